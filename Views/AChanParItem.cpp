#include "Views/AChanParItem.h"

#include "Model/AnalogChannel.h"
#include "Views/AChanParItemFrame.h"
#include "Views/ClcAChanParModel.h"
#include "Views/OscillogramViewModel.h"
#include "Views/RowColors.h"
#include "Views/SimpleAChanParModel.h"

#include <QContextMenuEvent>
#include <QFontMetrics>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>

namespace {
// Width of the plot part of a drag pixmap: enough to recognise the trace.
constexpr int kDragPlotWidth = 300;
constexpr int kTextLeft = 3;
} // namespace

AChanParItem::AChanParItem(
    const QSharedPointer<OscillogramViewModel>& model, int channelNumber, QWidget* parent)
    : DragDropSignalWidget(model, parent), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->addStretch(1);
    addSignal(channelNumber);
}

AChanParModel* AChanParItem::makeModel(int channel)
{
    const auto analog = viewModel()->oscillogram()->analogChannel(channel);
    if (viewModel()->isClcOscillogram())
        return new ClcAChanParModel(viewModel().data(), analog, channel);
    return new SimpleAChanParModel(viewModel().data(), analog, channel);
}

int AChanParItem::channelNumber() const
{
    return m_frames.isEmpty() ? -1 : m_frames.first()->channelNumber();
}

QList<int> AChanParItem::channels() const
{
    QList<int> numbers;
    for (const AChanParItemFrame* frame : m_frames)
        numbers << frame->channelNumber();
    return numbers;
}

AChanParItemFrame* AChanParItem::frame(int channel) const
{
    for (AChanParItemFrame* frame : m_frames) {
        if (frame->channelNumber() == channel)
            return frame;
    }
    return nullptr;
}

void AChanParItem::addSignal(int channel)
{
    if (frame(channel))
        return;
    auto* panel = new AChanParItemFrame(makeModel(channel), this);
    if (!m_frames.isEmpty())
        panel->setCompact(m_frames.first()->isCompact());
    addChanPanel(panel, channel);
}

void AChanParItem::addChanPanel(QWidget* panel, int)
{
    auto* frame = static_cast<AChanParItemFrame*>(panel);
    m_frames << frame;
    // Panels stack from the top; the stretch at the end keeps them there.
    m_layout->insertWidget(m_layout->count() - 1, frame);
    frame->refreshValues(viewModel()->currentSample());
    frame->setSelected(viewModel()->isChannelSelected(frame->channelNumber()));
}

void AChanParItem::removeSignal(int channel)
{
    AChanParItemFrame* found = frame(channel);
    if (!found)
        return;
    m_frames.removeOne(found);
    delete found;
}

void AChanParItem::refreshValues(int sample)
{
    for (AChanParItemFrame* frame : qAsConst(m_frames))
        frame->refreshValues(sample);
}

void AChanParItem::refreshParameters()
{
    for (AChanParItemFrame* frame : qAsConst(m_frames))
        frame->refreshParameters();
}

void AChanParItem::setCompact(bool compact)
{
    for (AChanParItemFrame* frame : qAsConst(m_frames))
        frame->setCompact(compact);
}

void AChanParItem::updateSelection()
{
    for (AChanParItemFrame* frame : qAsConst(m_frames))
        frame->setSelected(viewModel()->isChannelSelected(frame->channelNumber()));
}

void AChanParItem::drawPanel(QPaintDevice* device) const
{
    QPainter painter(device);
    const RowColors colors = RowColors::current();
    painter.fillRect(0, 0, device->width(), device->height(), Qt::white);
    const int h = QFontMetrics(QFont()).height();
    int rows = 0;
    for (const AChanParItemFrame* frame : m_frames)
        rows += frame->model()->channel()->lineNames().isEmpty() ? 1 : 2;
    const int flags = (rows == 1 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignJustify | Qt::AlignVCenter);
    int row = (device->height() / h - rows) / 2;
    QFont font;
    for (const AChanParItemFrame* frame : m_frames) {
        const auto channel = frame->model()->channel();
        const auto lineRect = [&] { return QRect(kTextLeft, row * h, device->width() + 2 - kTextLeft, h); };
        if (!channel->lineNames().isEmpty()) {
            font.setWeight(QFont::Normal);
            painter.setFont(font);
            painter.setPen(colors.lineText);
            painter.drawText(lineRect(), flags, channel->lineNames().join(QStringLiteral(", ")));
            ++row;
        }
        font.setWeight(QFont::Bold);
        painter.setFont(font);
        painter.setPen(colors.nameText);
        painter.drawText(lineRect(), flags, channel->name());
        ++row;
    }
}

QPixmap AChanParItem::plot() const
{
    const int panelWidth = qMax(width(), 1);
    const int rowHeight = qMax(height(), 1);
    QPixmap pixmap(panelWidth + kDragPlotWidth, rowHeight);
    QPixmap panel(panelWidth, rowHeight);
    drawPanel(&panel);
    QPainter painter(&pixmap);
    painter.drawPixmap(0, 0, panel);
    painter.drawImage(panelWidth, 0, viewModel()->channelPlot(channels(), kDragPlotWidth, rowHeight));
    return pixmap;
}

void AChanParItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), RowColors::current().panelBackground);
}

void AChanParItem::mouseReleaseEvent(QMouseEvent* event)
{
    // A click without a drag selects the channel of the panel under the pointer.
    if (event->button() == Qt::LeftButton) {
        for (AChanParItemFrame* frame : qAsConst(m_frames)) {
            if (frame->geometry().contains(event->pos()))
                viewModel()->toggleChannelSelection(frame->channelNumber());
        }
    }
    event->accept();
}

QMenu* AChanParItem::makeContextMenu()
{
    auto* menu = new QMenu(this);
    menu->addAction(tr("Показать панель инструментов"), this,
        [this] { emit viewModel()->sigSetVisibleToolBar(true, channelNumber()); });
    QAction* split = menu->addAction(tr("Разделить канал"), this, [this] { emit sigSplit(this); });
    split->setEnabled(m_frames.size() > 1);
    return menu;
}

void AChanParItem::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* menu = makeContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}
