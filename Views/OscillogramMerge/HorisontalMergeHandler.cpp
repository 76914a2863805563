#include "HorisontalMergeHandler.h"

#include "Views/OscillogramMerge/SampleCopier.h"

void HorisontalMergeHandler::calculateBeginTime()
{
    m_gaps.clear();
    if (m_sources.isEmpty())
        return;
    m_fits[0] = true;
    m_targetBeginTime = m_sources[0]->beginTime();
    for (int s = 0; s + 1 < m_sources.size(); ++s) {
        const Oscillogram& earlier = *m_sources[s];
        const qint64 gap = earlier.endTime().uSecsTo(m_sources[s + 1]->beginTime());
        m_gaps.append(int(earlier.sampleRate() / 1000000.0 * double(gap)));
    }
    m_gaps.append(0);
}

void HorisontalMergeHandler::calculateCounts()
{
    // An estimate for the reservation and the progress: the copy itself runs over countOfSamples().
    m_preCount = 0;
    m_postCount = 0;
    for (int s = 0; s < m_sources.size(); ++s)
        m_postCount += scaledPost(*m_sources[s]) + m_gaps.value(s);
    m_totalCount = m_postCount;
}

void HorisontalMergeHandler::layOut()
{
    m_shifts = { 0 };
    m_mergedWaves.clear();
    if (m_sources.isEmpty())
        return;
    const Oscillogram& first = *m_sources[0];
    MergedWave part;
    for (unsigned short c = 0; c < first.countOfAnalogChannels(); ++c)
        part.analogNumbers.append(c);
    for (unsigned short c = 0; c < first.countOfDigitalChannels(); ++c)
        part.digitalNumbers.append(c);
    for (const auto& source : qAsConst(m_sources)) {
        part.beginTime = source->beginTime();
        m_mergedWaves.append(part);
    }
    m_lines = simple(0).lines();
    m_rasObjects = simple(0).rasObjects();
}

void HorisontalMergeHandler::addSourceColumns(SampleCopier& rowCopier, int source) const
{
    // Target analogue column t holds the first source's channel of the item's number; every
    // source gives its own channel of that number, whatever its name.
    const Oscillogram& record = *m_sources[source];
    std::array<int, 6> next {};
    for (const auto& item : qAsConst(m_items)) {
        if (!item->isAnalog())
            continue;
        const DT::DataType dstType = item->channel()->dataType();
        if (dstType <= DT::None || dstType >= DT::Digital)
            continue;
        const int column = next[dstType]++;
        if (item->number() < 0 || !record.isValidAnalogChannel(item->number()))
            continue;
        const auto channel = record.analogChannel(item->number());
        rowCopier.addColumn(source, record.data(), record.countOfSamples(), channel->dataType(),
            channel->dataOffset(), dstType, column);
    }
}

void HorisontalMergeHandler::copySamples()
{
    qint64 rows = 0;
    for (int s = 0; s < m_sources.size(); ++s)
        rows += qMax(0, m_sources[s]->countOfSamples() + m_gaps.value(s));
    SampleCopier& rowCopier = copier(int(qMin<qint64>(rows, std::numeric_limits<int>::max())));
    for (int s = 0; s < m_sources.size(); ++s)
        addSourceColumns(rowCopier, s);
    const QString stage = tr("Склейка");
    int offset = 0;
    for (int s = 0; s < m_sources.size(); ++s) {
        const Oscillogram& source = *m_sources[s];
        m_mergedWaves[s].sampleOffset = offset;
        takeFailures(source, offset, 0);
        const int sourceRows = source.countOfSamples() + m_gaps.value(s);
        // Digital channels are left clear: a gluing keeps the discrete rows but not their states.
        for (int j = 0; j < sourceRows; ++j) {
            reportRow(stage, offset + j, m_totalCount, rows);
            rowCopier.copyRow(s, sourceSample(j, source.sampleRate(), m_targetRate), offset + j);
        }
        offset += qMax(0, sourceRows);
    }
    buildStore(offset);
}
