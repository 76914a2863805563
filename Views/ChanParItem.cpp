#include "Views/ChanParItem.h"

#include "Model/DigitalChannel.h"
#include "Views/DigitalChannelNameItem.h"
#include "Views/DigitalToolBar.h"
#include "Views/ListHelpers.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

namespace {
constexpr int kDragPlotWidth = 300;
} // namespace

ChanParItem::ChanParItem(
    const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent)
    : DragDropSignalWidget(model, parent)
    , m_channelNumber(channelNumber)
    , m_name(new DigitalChannelNameItem(model, this))
    , m_toolBar(new DigitalToolBar(this))
{
    m_toolBar->hide();
    connect(m_toolBar, &DigitalToolBar::sigInvert, this,
        [this](bool inverted) { AListHelper::setChannelInverted(*viewModel(), m_channelNumber, inverted); });
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_name);
    const auto record = model->oscillogram();
    m_name->setChannel(
        record->digitalChannel(channelNumber - record->countOfAnalogChannels()), channelNumber);
    updateSelection();
}

void ChanParItem::updateSelection()
{
    m_selected = viewModel()->isChannelSelected(m_channelNumber);
    update();
}

QPixmap ChanParItem::plot() const
{
    const int panelWidth = qMax(width(), 1);
    const int rowHeight = qMax(height(), 1);
    QPixmap pixmap(panelWidth + kDragPlotWidth, rowHeight);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setPen(RowColors::current().nameText);
    painter.drawText(
        QRect(3, 0, panelWidth - 3, rowHeight), Qt::AlignLeft | Qt::AlignVCenter, m_name->name());
    painter.drawImage(
        panelWidth, 0, viewModel()->channelPlot({ m_channelNumber }, kDragPlotWidth, rowHeight));
    return pixmap;
}

void ChanParItem::paintEvent(QPaintEvent*)
{
    const RowColors colors = RowColors::current();
    QPainter(this).fillRect(rect(), m_selected ? colors.selectedPanel : colors.panelBackground);
}

void ChanParItem::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()))
        viewModel()->toggleChannelSelection(m_channelNumber);
    event->accept();
}

void ChanParItem::enterEvent(QEvent* event)
{
    const auto record = viewModel()->oscillogram();
    m_toolBar->slotInvert(
        record->digitalChannel(m_channelNumber - record->countOfAnalogChannels())->isInverted());
    m_toolBar->adjustSize();
    m_toolBar->move(width() - m_toolBar->width(), (height() - m_toolBar->height()) / 2);
    m_toolBar->show();
    m_toolBar->raise();
    DragDropSignalWidget::enterEvent(event);
}

void ChanParItem::leaveEvent(QEvent* event)
{
    m_toolBar->hide();
    DragDropSignalWidget::leaveEvent(event);
}
