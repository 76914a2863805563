#pragma once

#include "Views/ListHelpers.h"
#include "korvane_export.h"

#include <QAbstractScrollArea>
#include <QList>

#include <memory>

// A vertical list of rows of fixed heights in a scrolled viewport. Each row fills the width;
// hidden rows take no room. The row lists of the record view are built on it, and their signals
// are declared here, so that the view connects all lists alike.
class KORVANE_EXPORT ScrollArea : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit ScrollArea(QWidget* parent = nullptr);

    int rowCount() const { return m_rows.size(); }
    QWidget* rowWidget(int index) const { return m_rows.value(index); }
    int indexOfRow(QWidget* row) const { return m_rows.indexOf(row); }
    QList<QWidget*> rows() const { return m_rows; }
    // The list takes the row; its height comes with setRowHeight.
    void insertRow(int index, QWidget* row);
    // The row is deleted when control returns to the event loop.
    void deleteRow(int index);
    void deleteAllRows();
    void setRowHeight(int index, int height);
    int rowHeight(int index) const;
    void setRowVisible(int index, bool visible);
    bool isRowVisible(int index) const;
    // The sum of the heights of the visible rows.
    int contentHeight() const;
    // Places the rows after a change of heights, visibility or order.
    void relayout();

    // The order of the rows by channel; set by each list.
    AListHelper* listHelper() const { return m_helper.get(); }
    void repopulate(const std::optional<std::vector<int>>& order = std::nullopt);
    void repopulateWithOverlays(const AListHelper::Rows& rows);
    std::vector<int> containedChannelIds() const;
    int findInsertIndex(const DropInfo& drop) const;
    QWidget* itemAttachedToDescriptor(int channel) const;
    // Moves the dragged row before or after the target, in this list and its twin.
    void addChannel(const DropInfo& drop);
    // The view's stack, on which moves, joins and splits of rows go; without one they are final.
    void setUndoStack(QUndoStack* stack);
    void updateChannelVisible(const QVector<bool>& filter);
    void updateChannelRowHeight(int channel, int height);
    void updateChannelSelection(int channel, bool isSelected);
    // Sets the height of the row of the channel without the model, as the modes do for both lists.
    void updateHeight(int channel, int height);

signals:
    void sigChannelHeight(int channel, int delta);
    void sigChannelMinHeight(int channel, int minHeight);
    void sigIncMag(int channel);
    void sigDecMag(int channel);
    void sigIncH(int channel);
    void sigDecH(int channel);
    void sigFitMag(int channel);
    void sigReset(int channel);
    void sigHide(int channel);
    void sigInvert(int channel, bool isInverted);
    void sigFocusRequested();

protected:
    void setListHelper(std::unique_ptr<AListHelper> helper);
    // The colour of the room below the last row.
    virtual QColor viewportColor() const = 0;
    void paintEvent(QPaintEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void resizeEvent(QResizeEvent* event) override;
    QSize viewportSizeHint() const override;

private:
    void placeRows();

    std::unique_ptr<AListHelper> m_helper;
    QList<QWidget*> m_rows;
    QList<int> m_heights;
    QList<bool> m_visible;
    bool m_placing = false;
};
