#pragma once

#include "Views/DropInfo.h"

#include <QSharedPointer>
#include <QWidget>

class OscillogramViewModel;

// The left part of a row, which the user drags to move the row and onto which other rows are
// dropped. A drop tells the view model where the dragged row should go.
class KORVANE_EXPORT DragDropSignalWidget : public QWidget
{
    Q_OBJECT
public:
    DragDropSignalWidget(const QSharedPointer<OscillogramViewModel>& model, QWidget* parent = nullptr);

    QSharedPointer<OscillogramViewModel> viewModel() const { return m_model; }
    // The channel that names the row.
    virtual int channelNumber() const = 0;
    // The row's picture, shown under the pointer while it is dragged.
    virtual QPixmap plot() const = 0;

    bool isDragSelected() const { return m_dragSelected; }
    DRAG_POS dragSelectedPos() const { return m_dragPos; }

signals:
    void sigDropSignal(const DropInfo& drop);
    void sigDragChannelSelected(int channel, bool isSelected, DRAG_POS pos);

protected:
    // Runs the drag of this row with the pixmap until the user lets go.
    void dragEvent(const QPixmap& pixmap);
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    bool acceptsDrag(const QMimeData* data) const;
    void trackDrag(QDragMoveEvent* event);
    void setDragSelected(bool selected);

    QSharedPointer<OscillogramViewModel> m_model;
    // A strip over the panels that shows where a drop would put the row.
    QWidget* m_mark;
    QPoint m_pressPos;
    bool m_dragSelected = false;
    DRAG_POS m_dragPos = DRAG_POS_UPPER;
};
