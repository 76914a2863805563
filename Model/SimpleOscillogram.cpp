#include "SimpleOscillogram.h"

#include "Model/NumericCast.h"
#include "Model/OscillogramData.h"

#include <QtGlobal>

QSharedPointer<Channel> SimpleOscillogram::channel(int index) const
{
    if (index < 0)
        return {};
    if (index < countOfAnalogChannels())
        return analogChannel(index);
    return digitalChannel(index - countOfAnalogChannels());
}

PreciseDateTime SimpleOscillogram::beginTime() const
{
    return triggerTime().addUSec(
        Korvane::roundedToInt(-1000000.0 * countOfPreFailureSamples() / sampleRate()));
}

PreciseDateTime SimpleOscillogram::endTime() const
{
    return triggerTime().addUSec(
        Korvane::roundedToInt((countOfPostFailureSamples() - 1.0) * 1000000.0 / sampleRate()));
}

int SimpleOscillogram::countOfSamples() const
{
    const auto store = data();
    return store ? store->countOfSamples() : 0;
}

PreciseDateTime SimpleOscillogram::dateTime(int sample) const
{
    if (m_mergedWaves.isEmpty())
        return plainDateTime(sample);
    for (int w = m_mergedWaves.size() - 1; w >= 0; --w) {
        const MergedWave& wave = m_mergedWaves[w];
        if (wave.sampleOffset <= sample)
            return wave.beginTime.addUSec(
                Korvane::truncatedMicroseconds((sample - wave.sampleOffset) * 1000000.0 / sampleRate()));
    }
    return PreciseDateTime();
}

void SimpleOscillogram::setTriggerTime(const PreciseDateTime& time)
{
    m_triggerTime = time;
}

void SimpleOscillogram::setTriggerTime(int sample)
{
    setTriggerTime(dateTime(sample));
    m_countOfPreFailureSamples = sample;
    m_countOfPostFailureSamples = countOfSamples() - sample;
}

void SimpleOscillogram::setHeaderFileContent(const QString& text)
{
    m_headerFileContent = text;
    static const QString label = QStringLiteral("Наименование файла:");
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (line.startsWith(label)) {
            m_oscNameFromHeader = line.mid(label.size()).trimmed();
            return;
        }
    }
}

void SimpleOscillogram::setLineNames()
{
    for (int n = 0; n < m_analogChannels.size(); ++n) {
        QStringList names;
        for (const auto& line : qAsConst(m_lines)) {
            if (line->contains(static_cast<unsigned short>(n)))
                names.append(line->name());
        }
        m_analogChannels[n]->setLineNames(names);
    }
    for (int n = 0; n < m_digitalChannels.size(); ++n) {
        QStringList names;
        for (const auto& line : qAsConst(m_lines)) {
            if (line->rpDNumbers().contains(static_cast<unsigned short>(n)))
                names.append(line->name());
        }
        m_digitalChannels[n]->setLineNames(names);
    }
}
