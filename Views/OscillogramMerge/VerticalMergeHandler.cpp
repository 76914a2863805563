#include "VerticalMergeHandler.h"

#include "Views/OscillogramMerge/SampleCopier.h"

qint64 VerticalMergeHandler::targetMicroseconds(qint64 samples) const
{
    return qint64(double(samples) * 1000000.0 / m_targetRate);
}

void VerticalMergeHandler::layOut()
{
    m_shifts.clear();
    m_mergedWaves.clear();
    m_failures.clear();
    m_lines.clear();
    for (int s = 0; s < m_sources.size(); ++s) {
        const Oscillogram& source = *m_sources[s];
        m_shifts.append(scaledPre(source) - m_preCount);
        const MergedWave part = wave(s);
        m_mergedWaves.append(part);
        takeFailures(source, part.sampleOffset, part.handlerValue);
        takeLines(simple(s).lines());
    }
    RAS_RECORDING_DEVICE device;
    device.recordingDeviceId = QStringLiteral("Korvane");
    device.lines = m_lines;
    RAS_OBJECT object;
    object.devices.append(device);
    m_rasObjects = { object };
    numberItemChannels();
}

void VerticalMergeHandler::numberItemChannels()
{
    unsigned short analog = 0;
    unsigned short digital = 0;
    for (const auto& item : qAsConst(m_items)) {
        const int s = indexOfSource(item->oscillogram());
        if (item->isAnalog()) {
            if (s >= 0)
                m_mergedWaves[s].analogNumbers.append(analog);
            ++analog;
        } else {
            if (s >= 0)
                m_mergedWaves[s].digitalNumbers.append(digital);
            ++digital;
        }
    }
}

void VerticalMergeHandler::copySamples()
{
    const int rows = qMax(0, m_totalCount);
    SampleCopier& rowCopier = copier(rows);
    // Target columns count up per storage type in the order of the items.
    std::array<int, 6> next {};
    for (const auto& item : qAsConst(m_items)) {
        const int s = indexOfSource(item->oscillogram());
        const DT::DataType type = item->channel()->dataType();
        if (s < 0 || type <= DT::None || type > DT::Digital)
            continue;
        rowCopier.addColumn(s, m_sources[s]->data(), m_sources[s]->countOfSamples(), type, item->column(),
            type, next[type]++);
    }
    const QString stage = tr("Объединение");
    for (int r = 0; r < rows; ++r) {
        reportRow(stage, r, rows, rows);
        for (int s = 0; s < m_sources.size(); ++s) {
            const Oscillogram& source = *m_sources[s];
            rowCopier.copyRow(s, sourceSample(qint64(m_shifts[s]) + r, source.sampleRate(), m_targetRate), r);
        }
    }
    // The shifts have moved on by one for every row, as the copy left them.
    for (int& shift : m_shifts)
        shift += rows;
    buildStore(rows);
}
