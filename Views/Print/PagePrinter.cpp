#include "Views/Print/PagePrinter.h"

#include "Model/Oscillogram.h"
#include "Views/AChanParItem.h"
#include "Views/ChanParItem.h"
#include "Views/DigitalChannelNameItem.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/Print/OscPrintOptions.h"
#include "Views/Print/PrintGeometry.h"
#include "Views/RowColors.h"
#include "Views/TimeLine.h"

#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QThread>

namespace {
const QColor headColor(192, 220, 243);
// A background of white with almost no cover: the plot lies on the white row, and the paper
// shows through where nothing is drawn.
constexpr long long plotBackground = 0x0FFFFFFF;
// The plot leaves the row's last two pixels to the line that closes the row.
constexpr int rowFooter = 2;
} // namespace

PagePrinter::PagePrinter(OscillogramView* view, QObject* parent)
    : QObject(parent), m_view(view), m_timeLine(std::make_unique<TimeLine>())
{
    if (view)
        m_timeLine->setOscillogramViewModel(view->oscillogramViewModel());
}

PagePrinter::PagePrinter(const PagePrinter& other)
    : QObject(nullptr)
    , m_view(other.m_view)
    , m_options(other.m_options)
    , m_printer(other.m_printer)
    , m_painter(other.m_painter)
    , m_content(other.m_content)
    , m_rows(other.m_rows)
    , m_heights(other.m_heights)
    , m_rowBreaks(other.m_rowBreaks)
    , m_pageWidth(other.m_pageWidth)
    , m_pageHeight(other.m_pageHeight)
    , m_nameWidth(other.m_nameWidth)
    , m_timeLine(std::make_unique<TimeLine>())
{
    m_timeLine->setOscillogramViewModel(other.m_timeLine->oscillogramViewModel());
}

PagePrinter::~PagePrinter() = default;

void PagePrinter::setOptions(OscPrintOptions* options)
{
    m_options = options;
    if (options)
        setContent(options->content());
}

void PagePrinter::setContent(const PrintContent& content)
{
    m_content = content;
}

void PagePrinter::setPrinter(QPrinter* printer)
{
    m_printer = printer;
    m_pageWidth = printer ? printer->width() : 0;
    m_pageHeight = printer ? printer->height() : 0;
    const auto record = m_view ? m_view->oscillogramViewModel()->oscillogram() : nullptr;
    m_rows = (m_view && record) ? PrintRows::collect(*m_view) : QVector<PrintRow>();
    m_nameWidth = record ? PrintRows::nameColumnWidth(m_rows, *record) : 0;
    m_heights.clear();
    for (const PrintRow& row : qAsConst(m_rows)) {
        m_heights << PrintGeometry::printedRowHeight(
            row.height, row.listWidth, m_pageWidth, m_pageHeight, row.analog);
    }
    m_rowBreaks = PrintGeometry::rowBreaks(m_heights, m_pageHeight);
}

int PagePrinter::plotWidth(bool withNames) const
{
    return qMax(withNames ? m_pageWidth - (m_nameWidth + 2) : m_pageWidth, 1);
}

int PagePrinter::samplesAcross(bool withNames) const
{
    return qMax(PrintGeometry::samplesAcrossPage(plotWidth(withNames), m_content.xScale), 1);
}

int PagePrinter::lastSample() const
{
    if (m_content.lastSample >= 0)
        return m_content.lastSample;
    const auto record = m_view ? m_view->oscillogramViewModel()->oscillogram() : nullptr;
    return record ? record->countOfSamples() - 1 : 0;
}

int PagePrinter::rangeCount() const
{
    // The first range carries the names always; the others only when asked to, which widens
    // their plots.
    const long long second = (long long)m_content.firstSample + samplesAcross(true);
    if (second > lastSample())
        return 1;
    return 2 + int((lastSample() - second) / samplesAcross(m_content.isNameAllPages));
}

int PagePrinter::pageFirstSample(int page) const
{
    const int range = page / groupCount();
    if (range == 0)
        return m_content.firstSample;
    return m_content.firstSample + samplesAcross(true)
        + (range - 1) * samplesAcross(m_content.isNameAllPages);
}

bool PagePrinter::pageHasNames(int page) const
{
    return m_content.isNameAllPages || page / groupCount() == 0;
}

int PagePrinter::samplesPerPage(double xScale, bool isNameAllPages) const
{
    const int across = PrintGeometry::samplesAcrossPage(plotWidth(isNameAllPages), xScale);
    return PrintGeometry::samplesPerPage(m_heights, m_pageHeight, across);
}

int PagePrinter::automaticScalePosition() const
{
    const auto record = m_view ? m_view->oscillogramViewModel()->oscillogram() : nullptr;
    return PrintGeometry::automaticScalePosition(
        m_heights, m_pageHeight, plotWidth(true), record ? record->countOfSamples() : 0);
}

QPair<int, int> PagePrinter::groupRows(int group) const
{
    const int from = group == 0 ? 0 : m_rowBreaks.at(group - 1);
    const int to = group < m_rowBreaks.size() ? m_rowBreaks.at(group) : m_rows.size();
    return { from, to };
}

void PagePrinter::paintPage(QPainter& painter, int page) const
{
    if (!m_view || !m_view->oscillogramViewModel()->oscillogram())
        return;
    const int firstSample = pageFirstSample(page);
    const bool withNames = pageHasNames(page);
    paintHead(painter, firstSample, withNames);
    const QPair<int, int> rows = groupRows(page % groupCount());
    int y = PrintGeometry::headerHeight;
    for (int index = rows.first; index < rows.second; ++index) {
        const int height = m_heights.at(index);
        painter.drawImage(0, y, rowStrip(m_rows.at(index), height, firstSample, withNames));
        y += height;
    }
}

void PagePrinter::paintHead(QPainter& painter, int firstSample, bool withNames) const
{
    const int left = withNames ? m_nameWidth + 2 : 0;
    if (withNames)
        painter.fillRect(QRect(0, 0, m_nameWidth + 1, PrintGeometry::headerHeight - 1), headColor);
    QImage strip(plotWidth(withNames), PrintGeometry::headerHeight, QImage::Format_RGB32);
    TimeLineDrawInfo info;
    info.startSample = firstSample;
    info.xScale = m_content.xScale;
    info.drawMeasures = m_content.isPrintMeasures;
    info.drawMarkers = m_content.isPrintMarkers;
    m_timeLine->drawTimeLine(&strip, info);
    painter.drawImage(left, 0, strip);
}

QImage PagePrinter::rowStrip(const PrintRow& row, int height, int firstSample, bool withNames) const
{
    QImage strip(m_pageWidth, height, QImage::Format_RGB32);
    strip.fill(Qt::white);
    const int plotHeight = qMax(height - rowFooter, 1);
    if (withNames)
        paintNames(strip, row, plotHeight);
    PlotDrawInfo info;
    info.startSample = firstSample;
    info.xScale = m_content.xScale;
    info.backgroundColor = plotBackground;
    info.drawMarkers = m_content.isPrintMarkers;
    info.drawMeasures = m_content.isPrintMeasures;
    info.drawCurrentSample = false;
    const QImage plot
        = m_view->oscillogramViewModel()->channelPlot(row.channels, plotWidth(withNames), plotHeight, info);
    QPainter painter(&strip);
    painter.drawImage(withNames ? m_nameWidth + 2 : 0, 0, plot);
    painter.setPen(Qt::gray);
    if (withNames)
        painter.drawLine(m_nameWidth, 0, m_nameWidth, height - 1);
    painter.drawLine(0, height - rowFooter, m_pageWidth, height - rowFooter);
    return strip;
}

void PagePrinter::paintNames(QImage& strip, const PrintRow& row, int height) const
{
    QImage panel(qMax(m_nameWidth, 1), height, QImage::Format_RGB32);
    panel.fill(Qt::white);
    if (auto* analog = qobject_cast<AChanParItem*>(row.panel.data())) {
        analog->drawPanel(&panel);
    } else if (auto* digital = qobject_cast<ChanParItem*>(row.panel.data())) {
        QPainter painter(&panel);
        painter.setPen(RowColors::current().nameText);
        painter.drawText(QRect(3, 0, panel.width() - 3, height), Qt::AlignLeft | Qt::AlignVCenter,
            digital->nameItem()->name());
    }
    QPainter(&strip).drawImage(0, 0, panel);
}

void PagePrinter::moveToWorker(QThread* worker)
{
    m_home = thread();
    moveToThread(worker);
}

void PagePrinter::slotPrintAllPages()
{
    const int count = pageCount();
    bool interrupted = false;
    for (int page = 0; page < count; ++page) {
        if (QThread::currentThread()->isInterruptionRequested()) {
            interrupted = true;
            break;
        }
        emit sigUpdateProgress(double(page) / count);
        if (page > 0)
            m_printer->newPage();
        paintPage(*m_painter, page);
    }
    if (m_home && thread() != m_home)
        moveToThread(m_home);
    if (interrupted)
        emit sigCancelProgress();
    else
        emit sigFinishProgress();
}
