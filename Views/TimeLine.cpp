#include "Views/TimeLine.h"

#include "Model/ComtradeOscillogram.h"
#include "Views/OscillogramViewModel.h"
#include "Settings/ColorStyle.h"
#include "Views/Painters/TimeLayers.h"
#include "Views/TimeLineTexts.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {
const QColor background(192, 220, 243);
const QColor unsavedMeasure(230, 118, 119);
// The ruler stands on a light background in every style, so its texts are black.
const QColor textColor(Qt::black);
constexpr double stripHeight = 12.0;
constexpr double labelWidth = 99.0;

QFont rulerFont()
{
    QFont font(QStringLiteral("Arial"));
    font.setPointSize(8);
    return font;
}

// One picture of the ruler: the geometry worked out once, then each part drawn in turn.
class RulerPainter
{
public:
    RulerPainter(const TimeLine& line, QPainter& painter, TimeLineTexts& texts, const TimeLineDrawInfo& info)
        : m_line(line)
        , m_model(*line.oscillogramViewModel())
        , m_record(*m_model.oscillogram())
        , m_painter(painter)
        , m_texts(texts)
        , m_width(painter.device()->width())
        , m_start(line.startSampleNumber(info.startSample))
        , m_scale(line.xScale(info.xScale))
        , m_rate(line.sampleRate())
        , m_samples(m_record.countOfSamples())
        , m_pre(m_record.countOfPreFailureSamples())
        , m_post(m_record.countOfPostFailureSamples())
        , m_yTop(painter.device()->height() - stripHeight)
        , m_yBottom(painter.device()->height() - 1.0)
        , m_yMid((m_yTop + m_yBottom) / 2)
    {
        // A trigger outside the record is drawn at its end.
        m_triggerOutside = m_samples < m_pre || m_samples < m_post;
        m_origin = ((m_triggerOutside ? m_samples : m_pre) - m_start) * m_scale;
    }

    void draw(const TimeLineDrawInfo& info)
    {
        drawMergedRecords();
        drawTicks();
        drawEnd();
        drawTrigger();
        if (info.drawMeasures)
            drawMeasures();
        if (info.drawMarkers)
            drawMarkers();
    }

private:
    double column(int sample) const { return (sample - m_start) * m_scale; }
    // The rectangle of a label above the strip.
    QRectF upperLabel(double left, double width) const
    {
        return QRectF(left, 2.0, width, m_yTop - 1.0 - 2.0);
    }
    void drawMergedRecords();
    void drawTicks();
    void drawTick(QPainterPath& ticks, double position, int sample);
    void drawEnd();
    void drawTrigger();
    void drawMeasures();
    void drawMeasure(const MeasureItem& measure, double recordLengthMs);
    void drawMarkers();

    const TimeLine& m_line;
    const OscillogramViewModel& m_model;
    const Oscillogram& m_record;
    QPainter& m_painter;
    TimeLineTexts& m_texts;
    int m_width;
    int m_start;
    double m_scale;
    double m_rate;
    int m_samples;
    int m_pre;
    int m_post;
    double m_yTop;
    double m_yBottom;
    double m_yMid;
    bool m_triggerOutside = false;
    double m_origin = 0.0;
};

void RulerPainter::drawMergedRecords()
{
    const auto* simple = dynamic_cast<const SimpleOscillogram*>(&m_record);
    if (!simple)
        return;
    const QList<MergedWave> waves = simple->mergedWaves();
    for (int i = 1; i <= waves.size(); ++i) {
        const double px = column(waves[i - 1].sampleOffset);
        QPainterPath flag(QPointF(px, 1.0));
        flag.lineTo(px + 11.0, 1.0);
        flag.lineTo(px + 11.0, m_yTop - 1.0);
        flag.lineTo(px, m_yTop - 1.0);
        flag.lineTo(px, m_yBottom);
        flag.closeSubpath();
        m_painter.fillPath(flag, Qt::green);
        m_painter.drawPath(flag);
        m_texts.draw(m_painter, QRectF(px, 2.0, 8.0, m_yTop - 1.0 - 2.0), Qt::AlignRight | Qt::AlignVCenter,
            QString::number(i));
    }
}

void RulerPainter::drawTicks()
{
    const double step = TimeGrid::stepFor(m_rate, m_scale);
    const int steps = int(std::floor(m_samples / (m_rate / 1000.0) / step + 0.5));
    const int trigger = m_triggerOutside ? m_samples : m_pre;
    const double samplesPerStep = step * m_rate / 1000.0;
    QPainterPath ticks;
    for (int i = 1; i <= steps; ++i) {
        const double distance = i * (step * m_scale * m_rate / 1000.0);
        const int offset = int(std::lround(i * samplesPerStep));
        const double left = m_origin - distance;
        // Only the right ticks stop at the end of the record; left ticks are drawn wherever the
        // ruler has room, also before the first sample.
        if (left >= 0.0 && left <= m_width)
            drawTick(ticks, left, trigger - offset);
        const double right = m_origin + distance;
        if (right >= 0.0 && right <= m_width && right <= m_samples * m_scale)
            drawTick(ticks, right, trigger + offset);
    }
    m_painter.drawPath(ticks);
}

void RulerPainter::drawTick(QPainterPath& ticks, double position, int sample)
{
    ticks.moveTo(position, m_yTop);
    ticks.lineTo(position, m_yBottom);
    const QString label = QString::number(m_line.timeForSample(m_pre, sample), 'f', 0);
    m_texts.draw(m_painter, QRectF(position - 103.0, m_yMid - 5.0, labelWidth, 9.0),
        Qt::AlignRight | Qt::AlignVCenter, label);
}

void RulerPainter::drawEnd()
{
    // The end mark and its time are placed from column 0, not from the start sample.
    const double end = (m_samples - 1) * m_scale;
    m_painter.setPen(Qt::red);
    m_painter.drawLine(QPointF(end, m_yTop), QPointF(end, m_yBottom));
    m_painter.setPen(textColor);
    const QString time = m_model.inDisplayZone(m_record.endTime()).timeToString();
    const double width = m_texts.width(time) + 9.0;
    m_texts.draw(m_painter, QRectF(m_samples * m_scale + 1.0, m_yMid - 5.0, width, 9.0),
        Qt::AlignRight | Qt::AlignVCenter, time);
}

void RulerPainter::drawTrigger()
{
    if (m_triggerOutside)
        return;
    QPainterPath triangle(QPointF(m_origin, m_yBottom));
    triangle.lineTo(m_origin + 5.0, m_yTop);
    triangle.lineTo(m_origin - 5.0, m_yTop);
    triangle.closeSubpath();
    m_painter.fillPath(triangle, Qt::red);
}

void RulerPainter::drawMeasures()
{
    const double recordLengthMs = m_record.triggerTime().uSecsTo(m_record.endTime()) / 1000.0;
    for (const MeasureItem& measure : m_model.getTimeMeasures())
        drawMeasure(measure, recordLengthMs);
}

void RulerPainter::drawMeasure(const MeasureItem& measure, double recordLengthMs)
{
    m_painter.setPen(measure.isSaved() ? QColor(Qt::black) : unsavedMeasure);
    MeasureItem ordered = measure;
    // A measure may be finished left of its start; it is drawn from its left end.
    if (measure.isComplete() && measure.finishSampleNumber() < measure.startSampleNumber())
        ordered.swapSamples();
    const double p1 = column(ordered.startSampleNumber());
    m_painter.drawLine(QPointF(p1, m_yBottom), QPointF(p1, 0.0));
    if (!measure.isComplete()) {
        const QString label
            = QString::number(m_line.timeForSample(m_pre, measure.startSampleNumber()), 'f', 3);
        m_texts.draw(m_painter, upperLabel(p1 + 2.0, labelWidth), Qt::AlignLeft | Qt::AlignTop, label);
        return;
    }
    const double p2 = column(ordered.finishSampleNumber());
    const double y = m_yTop - 2.0;
    // The second line and the double arrow between the two, with its heads, in one call.
    const QLineF arrow[] { { p2, m_yBottom, p2, 0.0 }, { p1, y, p2, y }, { p1 + 4.0, y - 4.0, p1, y },
        { p1, y, p1 + 4.0, y + 4.0 }, { p2 - 4.0, y - 4.0, p2, y }, { p2, y, p2 - 4.0, y + 4.0 } };
    m_painter.drawLines(arrow, 6);
    const QString label = QString::number(
        std::fabs(m_line.lengthMeasure(measure.finishSampleNumber(), measure.startSampleNumber())), 'f', 3);
    const double labelSpace = m_texts.width(label) + 10.0;
    // The text goes right of the arrow, or left of it when it would pass the record's length. That
    // length is in milliseconds and is compared with pixels as it stands.
    double side = p2;
    if (side + labelSpace > recordLengthMs)
        side = p1 - labelSpace;
    if (p2 - p1 <= labelSpace)
        m_texts.draw(m_painter, upperLabel(side + 10.0, labelWidth), Qt::AlignLeft | Qt::AlignTop, label);
    else
        m_texts.draw(m_painter, upperLabel(p1, p2 - p1 - 1.0), Qt::AlignHCenter | Qt::AlignTop, label);
}

void RulerPainter::drawMarkers()
{
    m_painter.setPen(QColor::fromRgb(KV::Cfg::ColorStyle::current().markerLine));
    const QList<Markers::Item>& markers = m_model.markers()->items();
    QVector<QLineF> lines;
    lines.reserve(markers.size());
    for (const Markers::Item& marker : markers) {
        const double px = column(marker.sampleNumber);
        lines.append(QLineF(px, m_yBottom, px, 0.0));
        m_texts.draw(m_painter, upperLabel(px + 2.0, labelWidth), Qt::AlignLeft | Qt::AlignTop, marker.time);
    }
    m_painter.drawLines(lines);
}
} // namespace

TimeLine::TimeLine(QWidget* parent) : QWidget(parent), m_texts(std::make_unique<TimeLineTexts>())
{
    setFixedHeight(QFontMetrics(rulerFont()).height() + int(stripHeight) + 4);
}

TimeLine::~TimeLine() = default;

void TimeLine::setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model)
{
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (!m_model)
        return;
    const auto repaint = [this] { update(); };
    connect(m_model.data(), &OscillogramViewModel::repaintWave, this, repaint);
    connect(m_model.data(), &OscillogramViewModel::xScaleChanged, this, repaint);
    connect(m_model.data(), &OscillogramViewModel::startSampleNumberChanged, this, repaint);
    connect(m_model.data(), &OscillogramViewModel::measuresChanged, this, repaint);
    connect(m_model.data(), &OscillogramViewModel::triggerTimeChanged, this, repaint);
    connect(m_model.data(), &OscillogramViewModel::sigWaveChanged, this, repaint);
}

int TimeLine::startSampleNumber(int startSample) const
{
    return startSample < 0 && m_model ? m_model->startSampleNumber() : startSample;
}

double TimeLine::xScale(double xScale) const
{
    return xScale < 0.0 && m_model ? m_model->xScale() : xScale;
}

double TimeLine::sampleRate() const
{
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    if (!record)
        return 0.0;
    const auto comtrade = record.dynamicCast<ComtradeOscillogram>();
    if (comtrade && comtrade->isEventTriggeredOsc())
        return 2.0;
    return record->sampleRate();
}

double TimeLine::timeForSample(int a, int b) const
{
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    return record ? record->timeForSample(a, b) : 0.0;
}

double TimeLine::lengthMeasure(int a, int b) const
{
    const auto record = m_model ? m_model->oscillogram() : QSharedPointer<Oscillogram>();
    return record ? record->timeBetweenSamples(a, b) : 0.0;
}

void TimeLine::drawTimeLine(QPaintDevice* device, const TimeLineDrawInfo& info) const
{
    QPainter painter(device);
    const int width = device->width();
    const int height = device->height();
    painter.fillRect(QRect(0, 0, width, height), background);
    painter.setPen(QPen(textColor, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.drawLine(QPointF(0.0, height), QPointF(width, height));
    if (!m_model || !m_model->oscillogram() || m_model->oscillogram()->countOfSamples() == 0)
        return;
    painter.setFont(rulerFont());
    m_texts->prepareFor(painter);
    RulerPainter(*this, painter, *m_texts, info).draw(info);
}

void TimeLine::paintEvent(QPaintEvent*)
{
    if (m_model && m_model->oscillogram())
        drawTimeLine(this, TimeLineDrawInfo());
}

void TimeLine::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (!m_model || !m_model->oscillogram())
        return;
    const double sample = m_model->startSampleNumber() + event->pos().x() / m_model->xScale();
    emit sigSetTrigger(qMin(int(std::lround(sample)), m_model->oscillogram()->countOfSamples()));
}
