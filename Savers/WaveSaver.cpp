#include "Savers/WaveSaver.h"

#include <QTextCodec>
#include <QThread>

WaveSaver::WaveSaver(const QString& fileName, QSharedPointer<Oscillogram> oscillogram,
    bool onlySelectedChannels, bool useTimeRange)
    : m_fileName(fileName)
    , m_oscillogram(std::move(oscillogram))
    , m_onlySelectedChannels(onlySelectedChannels)
    , m_useTimeRange(useTimeRange)
    , m_fileInfo(fileName)
    , m_codec(QTextCodec::codecForName("CP1251"))
    , m_countOfSamples(m_oscillogram ? m_oscillogram->countOfSamples() : 0)
{
}

WaveSaver::~WaveSaver() = default;

void WaveSaver::setCodec(const QString& name)
{
    m_codec = QTextCodec::codecForName(name.toUtf8());
}

void WaveSaver::setTimeRange(const MeasureItem& item)
{
    m_timeRange = item;
    if (m_timeRange.startSampleNumber() > m_timeRange.finishSampleNumber())
        m_timeRange.swapSamples();
}

PreciseDateTime WaveSaver::timeBegin() const
{
    return m_useTimeRange ? m_oscillogram->dateTime(m_timeRange.startSampleNumber())
                          : m_oscillogram->beginTime();
}

PreciseDateTime WaveSaver::timeTrigger() const
{
    return m_oscillogram->triggerTime();
}

PreciseDateTime WaveSaver::timeOfCurrentSample(int i) const
{
    return m_oscillogram->dateTime(i + firstSampleOfRange());
}

int WaveSaver::countSamples() const
{
    if (m_useTimeRange)
        return m_timeRange.finishSampleNumber() - m_timeRange.startSampleNumber();
    return m_countOfSamples;
}

bool WaveSaver::checkCancel() const
{
    return QThread::currentThread()->isInterruptionRequested();
}

void WaveSaver::saveProcess()
{
    saveOsc();
}
