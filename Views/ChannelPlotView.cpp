#include "Views/ChannelPlotView.h"

#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QIcon>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

#include <cmath>

namespace {
// Distance of the drop mark from the edge of the half it stands for.
constexpr int kDropMarkInset = 5;
constexpr int kDropMarkWidth = 2;
} // namespace

ChannelPlotImageSource::ChannelPlotImageSource(
    const QSharedPointer<OscillogramViewModel>& model, ChannelPlotView* view)
    : m_model(model), m_view(view)
{
}

QImage ChannelPlotImageSource::image() const
{
    return m_model->channelPlot(m_view->channels(), m_view->width(), m_view->height());
}

ChannelPlotView::ChannelPlotView(
    const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent)
    : ImageView(parent), m_model(model), m_channels { channelNumber }
{
    setImageSource(QSharedPointer<ChannelPlotImageSource>::create(model, this));
    setAcceptDrops(true);
}

void ChannelPlotView::setChannelNumber(int channel)
{
    if (m_channels.isEmpty())
        m_channels << channel;
    else
        m_channels[0] = channel;
    update();
}

void ChannelPlotView::addSignal(int channel)
{
    if (contains(channel))
        return;
    m_channels << channel;
    update();
}

void ChannelPlotView::removeSignal(int channel)
{
    m_channels.removeAll(channel);
    update();
}

void ChannelPlotView::setDragSelected(bool selected)
{
    if (m_dragSelected == selected)
        return;
    m_dragSelected = selected;
    update();
}

void ChannelPlotView::setDragSelectedPos(int pos)
{
    m_dragPos = pos == DRAG_POS_LOWER ? DRAG_POS_LOWER : DRAG_POS_UPPER;
    update();
}

void ChannelPlotView::paintEvent(QPaintEvent* event)
{
    ImageView::paintEvent(event);
    if (!m_dragSelected)
        return;
    QPainter painter(this);
    const int y = m_dragPos == DRAG_POS_UPPER ? kDropMarkInset : height() - kDropMarkInset;
    painter.fillRect(0, y - kDropMarkWidth / 2, width(), kDropMarkWidth, RowColors::current().dragMark);
}

bool ChannelPlotView::acceptsDrag(const QMimeData* data) const
{
    const int dragged = ChannelMime::channel(data);
    if (dragged < 0 || dragged == getChannelNumber())
        return false;
    return m_model->isAnalogChannel(dragged) == m_model->isAnalogChannel(getChannelNumber());
}

void ChannelPlotView::trackDrag(QDragMoveEvent* event)
{
    m_dragPos = ChannelMime::dragPos(event->pos().y(), height());
    setDragSelected(true);
    update();
    emit sigDragChannelSelected(getChannelNumber(), true, m_dragPos);
}

void ChannelPlotView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!acceptsDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    trackDrag(event);
}

void ChannelPlotView::dragMoveEvent(QDragMoveEvent* event)
{
    if (!acceptsDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    trackDrag(event);
}

void ChannelPlotView::dragLeaveEvent(QDragLeaveEvent* event)
{
    setDragSelected(false);
    emit sigDragChannelSelected(getChannelNumber(), false, m_dragPos);
    event->accept();
}

void ChannelPlotView::dropEvent(QDropEvent* event)
{
    if (!acceptsDrag(event->mimeData())) {
        event->ignore();
        return;
    }
    const DRAG_POS pos = ChannelMime::dragPos(event->pos().y(), height());
    setDragSelected(false);
    emit sigDragChannelSelected(getChannelNumber(), false, pos);
    event->acceptProposedAction();
    emit sigDropSignal(event, getChannelNumber(), pos);
}

int ChannelPlotView::sampleAt(int x) const
{
    return int(std::lround(m_model->startSampleNumber() + x / m_model->xScale()));
}

QMenu* ChannelPlotView::makeContextMenu(int x)
{
    if (m_scaled) {
        m_scaled = false;
        return nullptr;
    }
    const int channel = getChannelNumber();
    const int sample = sampleAt(x);
    emit m_model->sigRightMouseClicked(channel);
    auto* menu = new QMenu(this);
    menu->addActions(m_model->analogActionList());
    m_reportFrom = m_reportTo = -1;
    const auto anomalies = m_model->getAnomalyHash();
    const auto found = anomalies.constFind(channel);
    if (found == anomalies.constEnd())
        return menu;
    for (const AnomalyData& span : found->getAnomalyData()) {
        if (span.startSample() <= sample && sample <= span.endSample()) {
            m_reportFrom = span.startSample();
            m_reportTo = span.endSample();
            menu->addAction(QIcon(QStringLiteral(":/icons/ic_anomaly_inf.svg")), tr("Информация об аномалии"),
                this, &ChannelPlotView::slotMakeReport);
            break;
        }
    }
    return menu;
}

void ChannelPlotView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = makeContextMenu(event->pos().x());
    if (!menu)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}

void ChannelPlotView::slotMakeReport()
{
    if (m_reportFrom < 0)
        return;
    const int channel = getChannelNumber();
    const QString text = m_model->getAnomalyHash().value(channel).getAnomlyText();
    m_model->slotAnomalyReport(m_model->makeAnomalyReportHead(channel)
        + m_model->makeAnomalyReportData(m_reportFrom, m_reportTo, text));
}
