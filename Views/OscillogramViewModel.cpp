#include "Views/OscillogramViewModel.h"

#include "Model/NumericCast.h"
#include "Model/Oscillograms.h"
#include "Model/SimpleOscillogram.h"
#include "Settings/ColorStyle.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParModel.h"
#include "Views/Painters/ChannelRenderer.h"
#include "Views/TimeMeasureMode.h"

#include "Calc/CalcModule.h"

#include <QFontMetrics>
#include <QGuiApplication>

namespace {
int defaultFontHeight()
{
    return QFontMetrics(QFont()).height();
}
} // namespace

OscillogramViewModel::OscillogramViewModel(QObject* parent)
    : QObject(parent)
    , m_xScale(new XScale(this))
    , m_timeMeasureMode(new TimeMeasureMode(this))
    , m_markers(QSharedPointer<Markers>::create())
{
    connect(m_xScale, &XScale::sigScaleChanged, this, &OscillogramViewModel::xScaleChanged);
    connect(m_timeMeasureMode, &TimeMeasureMode::updated, this, &OscillogramViewModel::measuresChanged);
}

OscillogramViewModel::~OscillogramViewModel() = default;

int OscillogramViewModel::defaultRowHeight()
{
    return 5 * defaultFontHeight() + 1;
}

int OscillogramViewModel::defaultRowMinHeight()
{
    return 2 * defaultFontHeight() + 1;
}

// Record

QSharedPointer<SimpleOscillogram> OscillogramViewModel::simpleOscillogram() const
{
    return m_oscillogram.dynamicCast<SimpleOscillogram>();
}

int OscillogramViewModel::countOfSamples() const
{
    return m_oscillogram ? m_oscillogram->countOfSamples() : 0;
}

int OscillogramViewModel::countOfAnalogChannels() const
{
    return m_oscillogram ? m_oscillogram->countOfAnalogChannels() : 0;
}

int OscillogramViewModel::countOfChannels() const
{
    return m_oscillogram ? m_oscillogram->countOfChannels() : 0;
}

QSharedPointer<Channel> OscillogramViewModel::channelAt(int channel) const
{
    if (channel < 0 || channel >= countOfChannels())
        return {};
    const int analogs = countOfAnalogChannels();
    if (channel < analogs)
        return m_oscillogram->analogChannel(channel);
    return m_oscillogram->digitalChannel(channel - analogs);
}

void OscillogramViewModel::resetPositionAndRows()
{
    resetCurrentSample();
    setStartSampleNumber(0);
    resetXScale();
    resetAnalogVerticalScrollValue();
    resetDigitalVerticalScrollValue();
    resetAllChannelRowHeights();
    resetAllChanMag();
    resetAllChannelSelections();
    resetChannelRowsFilter();
}

void OscillogramViewModel::setOscillogram(const QSharedPointer<Oscillogram>& oscillogram)
{
    if (oscillogram == m_oscillogram)
        return;
    m_oscillogram = oscillogram;
    initCalcModule();
    resetPositionAndRows();
    emit sigWaveChanged(m_oscillogram);
    resetMarkers();
}

void OscillogramViewModel::resetOscillogram()
{
    setOscillogram({});
}

void OscillogramViewModel::setCalcOscillogram(const QSharedPointer<Oscillogram>& oscillogram)
{
    if (!oscillogram || oscillogram == m_oscillogram)
        return;
    const int added = oscillogram->countOfAnalogChannels() - countOfAnalogChannels();
    Oscillograms::instance()->changeOscillogram(m_oscillogram, oscillogram);
    m_oscillogram = oscillogram;
    emit sigWaveChanged(m_oscillogram);
    emit sigRepopulateCalculatedWave(added);
    resetPositionAndRows();
    resetMarkers();
    m_timeMeasureMode->resetMeasures();
    m_isModified = true;
}

void OscillogramViewModel::setMathOscillogram(const QSharedPointer<Oscillogram>& oscillogram)
{
    m_oscillogram = oscillogram;
    emit sigWaveChanged(m_oscillogram);
    emit sigRepopulateCalculatedWave(1);
    initCalcModule();
    resetPositionAndRows();
    resetMarkers();
}

void OscillogramViewModel::initCalcModule()
{
    // The calculators are set up from the user's settings; a model that has none yet has none.
    if (!m_allSettings) {
        m_calcModule.reset();
        return;
    }
    auto module = QSharedPointer<CalcModule>::create();
    module->setAllSettings(m_allSettings);
    const double rate = m_oscillogram ? m_oscillogram->sampleRate() : DevConfig().sampleRate;
    module->init(CalcModule::makeDevConfig(*m_allSettings, rate));
    m_calcModule = module;
}

// Position and scale

void OscillogramViewModel::setCurrentSample(int sample)
{
    if (sample == m_currentSample)
        return;
    m_currentSample = qBound(0, sample, qMax(countOfSamples() - 1, 0));
    emit currentSampleChanged(m_currentSample);
}

void OscillogramViewModel::resetCurrentSample()
{
    if (m_currentSample != 0)
        setCurrentSample(0);
}

void OscillogramViewModel::resetXScale()
{
    m_xScale->reset();
}

void OscillogramViewModel::scaleUp()
{
    m_xScale->up();
}

void OscillogramViewModel::scaleDown()
{
    m_xScale->down();
}

void OscillogramViewModel::setFitXScaleForWidth(int width)
{
    const double fit = double(width) / countOfSamples();
    double value = XScale::maximum;
    while (!(value <= XScale::minimum) && !(value < fit))
        value /= XScale::stepFactor;
    m_xScale->setValue(value);
}

void OscillogramViewModel::setStartSampleNumber(int sample)
{
    if (sample == m_startSampleNumber)
        return;
    const int samples = countOfSamples();
    const double scale = xScale();
    int stored = 0;
    if (m_plotWidth <= scale * samples)
        stored = qBound(0, sample, qMax(0, int(samples - m_plotWidth / scale)));
    m_startSampleNumber = stored;
    emit startSampleNumberChanged(m_startSampleNumber);
}

void OscillogramViewModel::resetStartSampleNumber()
{
    setStartSampleNumber(0);
}

void OscillogramViewModel::setHasFocus(bool hasFocus)
{
    if (hasFocus == m_hasFocus)
        return;
    m_hasFocus = hasFocus;
    emit hasFocusChanged(m_hasFocus);
}

void OscillogramViewModel::resetHasFocus()
{
    setHasFocus(false);
}

// Scroll

void OscillogramViewModel::setAnalogVerticalScrollValue(int value)
{
    if (value == m_analogVerticalScrollValue)
        return;
    m_analogVerticalScrollValue = value;
    emit analogVerticalScrollValueChanged(value);
}

void OscillogramViewModel::resetAnalogVerticalScrollValue()
{
    setAnalogVerticalScrollValue(0);
}

void OscillogramViewModel::setDigitalVerticalScrollValue(int value)
{
    if (value == m_digitalVerticalScrollValue)
        return;
    m_digitalVerticalScrollValue = value;
    emit digitalVerticalScrollValueChanged(value);
}

void OscillogramViewModel::resetDigitalVerticalScrollValue()
{
    setDigitalVerticalScrollValue(0);
}

// Rows

void OscillogramViewModel::setChannelRowsFilter(const QVector<bool>& filter)
{
    if (filter == m_channelRowsFilter)
        return;
    m_channelRowsFilter = filter;
    emit channelRowsFilterChanged(m_channelRowsFilter);
}

void OscillogramViewModel::setChannelVisible(int channel, bool visible)
{
    if (channel < 0 || channel >= m_channelRowsFilter.size() || m_channelRowsFilter[channel] == visible)
        return;
    m_channelRowsFilter[channel] = visible;
    emit channelRowsFilterChanged(m_channelRowsFilter);
}

void OscillogramViewModel::resetChannelRowsFilter()
{
    m_channelRowsFilter.resize(countOfChannels());
    m_channelRowsFilter.fill(true);
    emit channelRowsFilterChanged(m_channelRowsFilter);
    emit sigDisplayAllSignals();
}

bool OscillogramViewModel::isChannelVisible(int channel) const
{
    return channel >= 0 && channel < m_channelRowsFilter.size() && m_channelRowsFilter[channel];
}

void OscillogramViewModel::setChanRowHeight(int channel, int height)
{
    auto entry = m_rowHeights.find(channel);
    if (entry == m_rowHeights.end())
        entry = m_rowHeights.insert(channel, RowHeight { 0, defaultRowMinHeight() });
    entry->height = qMax(height, entry->minHeight);
    emit channelRowHeightChanged(channel, entry->height);
}

void OscillogramViewModel::setChanRowMinHeight(int channel, int minHeight)
{
    auto entry = m_rowHeights.find(channel);
    if (entry == m_rowHeights.end())
        entry = m_rowHeights.insert(channel, RowHeight { 0, defaultRowMinHeight() });
    entry->minHeight = minHeight;
}

void OscillogramViewModel::increaseChannelRowHeightByValue(int channel, int delta)
{
    setChanRowHeight(channel, chanRowHeight(channel) + delta);
}

void OscillogramViewModel::resetChannelRowHeight(int channel)
{
    setChanRowHeight(channel, defaultRowHeight());
}

void OscillogramViewModel::resetAllChannelRowHeights()
{
    const int count = qMax(m_rowHeights.size(), countOfAnalogChannels());
    for (int c = 0; c < count; ++c)
        resetChannelRowHeight(c);
}

int OscillogramViewModel::chanRowHeight(int channel) const
{
    return m_rowHeights.value(channel).height;
}

int OscillogramViewModel::chanRowMinHeight(int channel) const
{
    return m_rowHeights.value(channel).minHeight;
}

// Amplitude

void OscillogramViewModel::setChanMag(int channel, double amplitude)
{
    if (channel < 0 || channel >= m_amplitudes.size() || m_amplitudes[channel] == amplitude)
        return;
    m_amplitudes[channel] = amplitude;
    emit chanMagChanged(channel, amplitude);
}

double OscillogramViewModel::chanMag(int channel) const
{
    if (channel < 0 || channel >= m_amplitudes.size())
        return 0.0;
    return m_amplitudes[channel];
}

void OscillogramViewModel::resetChanMag(int channel)
{
    setChanMag(channel, 1.0);
}

void OscillogramViewModel::resetAllChanMag()
{
    m_amplitudes.resize(countOfChannels());
    // Only rows with a height entry, the analogue ones, get their amplitude back.
    for (int c = 0; c < m_rowHeights.size(); ++c)
        setChanMag(c, 1.0);
}

void OscillogramViewModel::resetChannel(int channel)
{
    resetChanMag(channel);
    resetChannelRowHeight(channel);
}

// Selection

void OscillogramViewModel::setChannelSelected(int channel, bool selected)
{
    const auto target = channelAt(channel);
    if (!target || target->isSelected() == selected)
        return;
    target->setIsSelected(selected);
    emit channelSelectionChanged(channel, selected);
}

bool OscillogramViewModel::isChannelSelected(int channel) const
{
    const auto target = channelAt(channel);
    return target && target->isSelected();
}

void OscillogramViewModel::toggleChannelSelection(int channel)
{
    setChannelSelected(channel, !isChannelSelected(channel));
}

void OscillogramViewModel::resetChannelSelection(int channel)
{
    setChannelSelected(channel, false);
}

void OscillogramViewModel::resetAllChannelSelections()
{
    for (int c = 0; c < countOfChannels(); ++c)
        resetChannelSelection(c);
}

void OscillogramViewModel::selectAllChannels()
{
    for (int c = 0; c < countOfChannels(); ++c)
        setChannelSelected(c, true);
}

void OscillogramViewModel::makeOnlySelectedChannelsVisible()
{
    const int analogs = countOfAnalogChannels();
    const int count = countOfChannels();
    bool analogSelected = false;
    bool digitalSelected = false;
    for (int c = 0; c < count; ++c) {
        if (isChannelSelected(c))
            (c < analogs ? analogSelected : digitalSelected) = true;
    }
    for (int c = 0; c < count && c < m_channelRowsFilter.size(); ++c) {
        const bool groupSelected = c < analogs ? analogSelected : digitalSelected;
        m_channelRowsFilter[c] = groupSelected ? isChannelSelected(c) : true;
        emit sigSelectionChanVisible();
    }
    emit channelRowsFilterChanged(m_channelRowsFilter);
}

bool OscillogramViewModel::isClcOscillogram() const
{
    return m_oscillogram && m_oscillogram->waveType() == 0;
}

bool OscillogramViewModel::isAnalogChannel(int channel) const
{
    return channel >= 0 && channel < countOfAnalogChannels();
}

bool OscillogramViewModel::isDigitalChannel(int channel) const
{
    return channel >= countOfAnalogChannels() && channel < countOfChannels();
}

QString OscillogramViewModel::analogChannelUnit(int channel) const
{
    return isAnalogChannel(channel) ? m_oscillogram->analogChannel(channel)->unit() : QString();
}

void OscillogramViewModel::setPrimSecMode(int mode)
{
    if (mode == m_primSecMode)
        return;
    m_primSecMode = mode;
    emit sigPrimSecModeChanged(mode);
}

// Measures

QList<MeasureItem> OscillogramViewModel::getTimeMeasures() const
{
    return m_timeMeasureMode->measures();
}

void OscillogramViewModel::setTimeMeasures(const QList<MeasureItem>& measures)
{
    m_timeMeasureMode->setMeasures(measures);
}

int OscillogramViewModel::startMeasureSample() const
{
    const auto measures = m_timeMeasureMode->measures();
    return measures.isEmpty() ? -1 : measures.last().startSampleNumber();
}

void OscillogramViewModel::startTimeMeasure()
{
    m_timeMeasureMode->startMeasure(m_currentSample);
    emit sigStartTimeMeasureChanged(m_currentSample);
}

void OscillogramViewModel::finishTimeMeasure()
{
    m_timeMeasureMode->finishMeasure(m_currentSample);
}

void OscillogramViewModel::saveLatestTimeMeasure()
{
    m_timeMeasureMode->saveLastMeasure();
}

void OscillogramViewModel::removeLatestTimeMeasure()
{
    m_timeMeasureMode->removeLastMeasure();
}

void OscillogramViewModel::removeAllTimeMeasures()
{
    m_timeMeasureMode->resetMeasures();
}

// Markers

void OscillogramViewModel::appendMarker(const Markers::Item& item)
{
    m_markers->append(item);
    emit repaintWave();
}

void OscillogramViewModel::removeMarker(const Markers::Item& item)
{
    m_markers->remove(item);
    emit repaintWave();
}

void OscillogramViewModel::setMarkers(const QList<Markers::Item>& items)
{
    m_markers->setItems(items);
    emit repaintWave();
}

void OscillogramViewModel::clearMarkers()
{
    m_markers->setItems({});
    emit repaintWave();
}

Markers::Item OscillogramViewModel::makeMarkerItem() const
{
    return makeMarkerItem(m_currentSample);
}

Markers::Item OscillogramViewModel::makeMarkerItem(int sample) const
{
    Markers::Item item;
    item.sampleNumber = sample;
    if (m_oscillogram) {
        const double ms
            = (sample - m_oscillogram->countOfPreFailureSamples()) * 1000.0 / m_oscillogram->sampleRate();
        item.time = QString::number(ms, 'f', 2);
    }
    for (AChanParModel* model : m_aParModels)
        item.values[model->channelNumber()] = model->parameterValues(sample);
    return item;
}

void OscillogramViewModel::resetMarkers()
{
    m_markers->clear();
    QList<QString> titles;
    QList<int> channels;
    QHash<int, QStringList> shortNames;
    QHash<int, QStringList> longNames;
    QHash<int, int> counts;
    for (AChanParModel* model : m_aParModels) {
        const int channel = model->channelNumber();
        const auto target = channelAt(channel);
        titles << QString::number(channel) + QStringLiteral(". ") + (target ? target->name() : QString());
        channels << channel;
        shortNames[channel] = model->parameterNames(false);
        longNames[channel] = model->parameterNames(true);
        counts[channel] = model->rowCount();
    }
    m_markers->setChannelTitles(titles);
    m_markers->setTableChannels(channels);
    m_markers->setShortNames(shortNames);
    m_markers->setLongNames(longNames);
    m_markers->setParameterCounts(counts);
}

// Anomalies and others

void OscillogramViewModel::setAnomalyPaint(bool paint)
{
    m_anomalyPaint = paint;
    emit repaintWave();
}

void OscillogramViewModel::setAnomalyChannels(const QHash<int, Anomaly>& anomalies)
{
    m_anomalies = anomalies;
    m_anomalyPaint = true;
    emit repaintWave();
}

void OscillogramViewModel::deleteChannel(int a, int b)
{
    emit sigDeleteChannel(a, b);
}

void OscillogramViewModel::addChannel(int a, int b, int c)
{
    emit sigAddChannel(a, b, c);
}

void OscillogramViewModel::setTriggerTime(int sample)
{
    const auto simple = simpleOscillogram();
    if (!simple)
        return;
    simple->setTriggerTime(sample);
    emit triggerTimeChanged();
}

void OscillogramViewModel::slotAnomalyReport(const QString& report)
{
    emit sigAnomalyReport(report);
}

void OscillogramViewModel::slotSplitterMoved(int a, int b)
{
    if (QGuiApplication::keyboardModifiers() & Qt::ControlModifier)
        emit sigSplitterMoved(a, b);
}

void OscillogramViewModel::slotPanelParametersChanged()
{
    emit sigPanelParametersWidthChanged(splitterSize());
}

QString OscillogramViewModel::getTimePosition(int sample) const
{
    if (!m_oscillogram)
        return QString();
    PreciseDateTime trigger = m_oscillogram->triggerTime();
    PreciseDateTime moment = m_oscillogram->dateTime(sample);
    if (const auto simple = simpleOscillogram()) {
        int offset = 0;
        const int mode = m_allSettings ? int(m_allSettings->timeDisplayMode()) : 0;
        if (mode == 1)
            offset = simple->localCode() * 3600;
        else if (mode != 0)
            offset = (m_allSettings ? m_allSettings->customTimeZone() : 0) * 3600;
        trigger.recalcTimeZone(offset);
        moment.recalcTimeZone(offset);
    }
    return QString::number(trigger.uSecsTo(moment) / 1000.0, 'f', 3);
}

int OscillogramViewModel::splitterSize() const
{
    const int width = QFontMetrics(QFont()).horizontalAdvance(QString(17, QLatin1Char('*')));
    if (isClcOscillogram() || !m_allSettings)
        return width;
    const auto selected = m_allSettings->selectedParamters();
    return std::count(selected.begin(), selected.end(), true) > 3 ? 2 * width : width;
}

QString OscillogramViewModel::makeAnomalyReportHead(int channel) const
{
    QString head;
    if (!isAnalogChannel(channel))
        return head;
    const auto target = m_oscillogram->analogChannel(channel);
    if (!target->lineNames().isEmpty())
        head += tr("Линия: %1\n").arg(target->lineNames().join(QStringLiteral(", ")));
    head += tr("Канал: %2. %3\n").arg(channel).arg(target->name());
    return head;
}

QString OscillogramViewModel::makeAnomalyReportData(int from, int to, const QString& text) const
{
    return tr("Временной отрезок: %1 ─ %2 мс\n%3\n").arg(getTimePosition(from), getTimePosition(to), text);
}

// Rendering

int OscillogramViewModel::startSampleNumberOption(int startSample) const
{
    return startSample < 0 ? m_startSampleNumber : startSample;
}

double OscillogramViewModel::xScaleOption(double xScale) const
{
    return xScale < 0.0 ? this->xScale() : xScale;
}

QRgb OscillogramViewModel::backgroundColorOption(long long color) const
{
    return color < 0 ? KV::Cfg::ColorStyle::current().background : QRgb(color & 0xFFFFFFFF);
}

bool OscillogramViewModel::isDrawMarkers(const PlotDrawInfo& info, const QList<int>& channels) const
{
    return ChannelRenderer::drawsMarkers(info, channels, countOfAnalogChannels());
}

int OscillogramViewModel::calculaterWindowInSamples() const
{
    if (!m_allSettings || !m_oscillogram)
        return 0;
    const int ms
        = m_allSettings->manualFlag() ? m_allSettings->manualInterval() : m_allSettings->calcDuration() * 20;
    return Korvane::truncatedToInt(ms * m_oscillogram->sampleRate() / 1000.0);
}

QImage OscillogramViewModel::channelPlot(
    const QList<int>& channels, int width, int height, const PlotDrawInfo& info) const
{
    ChannelRenderer::Scene scene;
    scene.oscillogram = m_oscillogram;
    scene.startSample = startSampleNumberOption(info.startSample);
    scene.xScale = xScaleOption(info.xScale);
    scene.background = backgroundColorOption(info.backgroundColor);
    scene.amplitudes = m_amplitudes;
    scene.primSecMode = m_primSecMode;
    scene.anomalyPaint = m_anomalyPaint;
    scene.anomalies = m_anomalies;
    scene.markers = m_markers;
    scene.measures = m_timeMeasureMode->measures();
    scene.currentSample = m_currentSample;
    scene.hasFocus = m_hasFocus;
    scene.calculaterLineVisible = m_allSettings && m_allSettings->isCalculaterLineVisible();
    scene.windowInSamples = calculaterWindowInSamples();
    return ChannelRenderer().render(scene, channels, width, height, info);
}
