#include "Oscillograms.h"

Oscillograms* Oscillograms::instance()
{
    static Oscillograms registry;
    return &registry;
}

void Oscillograms::add(const QString& key, const QSharedPointer<Oscillogram>& wave)
{
    QString freeKey = key;
    for (int number = 2; m_waves.contains(freeKey); ++number)
        freeKey = QStringLiteral("%1(%2)").arg(key).arg(number);
    m_waves.insert(freeKey, wave);
    emit changed();
}

void Oscillograms::remove(const QSharedPointer<Oscillogram>& wave)
{
    m_waves.remove(key(wave));
    emit changed();
}

void Oscillograms::changeOscillogram(
    const QSharedPointer<Oscillogram>& oldOne, const QSharedPointer<Oscillogram>& newOne)
{
    if (!newOne)
        return;
    m_waves[key(oldOne)] = newOne;
    emit changed();
}
