#pragma once

#include "Views/DropInfo.h"
#include "korvane_export.h"

#include <QSharedPointer>
#include <QVector>

#include <optional>
#include <vector>

class OscillogramViewModel;
class QObject;
class QUndoStack;
class QWidget;
class ScrollArea;

// What a row list makes of its rows; the helper keeps their order and asks the list for widgets.
class KORVANE_EXPORT RowItems
{
public:
    virtual ~RowItems();
    virtual QWidget* createItem(int index, int channel) = 0;
    virtual void addSignalToItem(QWidget* item, int channel);
    virtual void removeSignalFromItem(QWidget* item, int channel);
    virtual void updateItemSelection(QWidget* item, int channel, bool isSelected);
    // After the rows changed: order, overlays or the whole list.
    virtual void rowsChanged();
};

// The rows of an analogue list: each row a list of channel numbers drawn in one plot, the first
// naming the row. The parameter list and the plot list each keep one and apply the same changes,
// which travel as signals of the view model, so that both lists keep the same order.
class KORVANE_EXPORT AListHelper
{
public:
    using Rows = std::vector<std::vector<int>>;

    AListHelper(ScrollArea* area, RowItems* items);
    virtual ~AListHelper();

    // Connects the list to the view model's signals, with the list as context.
    void setModel(const QSharedPointer<OscillogramViewModel>& model, QObject* context);
    QSharedPointer<OscillogramViewModel> model() const { return m_model; }

    const Rows& rows() const { return m_rows; }
    // The row holding the channel, or -1.
    int rowOf(int channel) const;
    QWidget* itemAttachedToDescriptor(int channel) const;
    std::vector<int> containedChannelIds() const;
    // Where a row dropped onto the target goes: before it for the upper half, after it for the lower.
    int findInsertIndex(const DropInfo& drop) const;
    bool isOwnChannel(int channel) const;

    // One row per channel, in the given order or in the record's.
    void repopulate(const std::optional<std::vector<int>>& order = std::nullopt);
    void repopulateWithOverlays(const Rows& rows);

    // Changes that both lists apply, each on its own rows.
    void insertRow(int index, int channel);
    void deleteRow(int channel);
    void addSignal(int targetChannel, int channel);
    void removeSignal(int channel);

    // The rows after a user's change; the change reaches both lists as one undoable step.
    static Rows moved(const Rows& rows, const DropInfo& drop);
    static Rows overlaid(const Rows& rows, int targetChannel, int channel);
    // The last channel of a row with several leaves it and gets a row of its own below.
    static Rows split(const Rows& rows, int rowIndex);
    void requestMove(const DropInfo& drop);
    void requestOverlay(int targetChannel, int channel);
    void requestSplit(int rowIndex);
    // Through the undo stack when there is one.
    void requestRows(const Rows& rows);
    void setUndoStack(QUndoStack* stack) { m_undoStack = stack; }

    void updateChannelVisible(const QVector<bool>& filter);
    void updateChannelRowHeight(int channel, int height);
    void updateChannelSelection(int channel, bool isSelected);

    // Mirrors the channel's trace within its range, or ends the mirroring, and repaints.
    static void setChannelInverted(OscillogramViewModel& model, int channel, bool inverted);

protected:
    // The channels this list shows, in record order.
    virtual std::vector<int> ownChannels() const;
    virtual bool isAnalogList() const { return true; }
    virtual int rowHeightFor(const std::vector<int>& row) const;
    // The least height of a row of that many channels.
    virtual int panelsHeight(int panels) const;

private:
    void rebuild(const Rows& rows);
    void applyRowState(int index);

public:
    // 0 for the analogue lists, 1 for the discrete ones, as the view model's row signals carry it.
    int kind() const { return isAnalogList() ? 0 : 1; }

private:
    void onCalculatedWave(int added);

    ScrollArea* m_area;
    QUndoStack* m_undoStack = nullptr;
    RowItems* m_items;
    QSharedPointer<OscillogramViewModel> m_model;
    Rows m_rows;
    // The rows before the last new record, which a record with computed channels keeps.
    Rows m_previousRows;
    int m_previousAnalogCount = 0;
    int m_analogCount = 0;
};

// The rows of a discrete list: one channel each, all of one height.
class KORVANE_EXPORT DListHelper : public AListHelper
{
public:
    using AListHelper::AListHelper;
    static int rowHeight();

protected:
    std::vector<int> ownChannels() const override;
    bool isAnalogList() const override { return false; }
    int rowHeightFor(const std::vector<int>& row) const override;
    int panelsHeight(int panels) const override;
};
