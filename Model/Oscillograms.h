#pragma once

#include "Model/Oscillogram.h"

#include <QMap>
#include <QObject>

// The process-wide registry of opened records, keyed by file name. Used on the interface
// thread only, so it has no lock.
class KORVANE_EXPORT Oscillograms : public QObject
{
    Q_OBJECT
public:
    static Oscillograms* instance();

    bool isEmpty() const { return m_waves.isEmpty(); }
    bool contains(const QString& key) const { return m_waves.contains(key); }
    QStringList filenames() const { return m_waves.keys(); }
    QList<QSharedPointer<Oscillogram>> allWaves() const { return m_waves.values(); }
    QSharedPointer<Oscillogram> get(const QString& key) const { return m_waves.value(key); }
    QString key(const QSharedPointer<Oscillogram>& wave) const { return m_waves.key(wave); }

    // A key in use gets "(2)", "(3)" and so on behind it until a free one is found.
    void add(const QString& key, const QSharedPointer<Oscillogram>& wave);
    void remove(const QSharedPointer<Oscillogram>& wave);
    void changeOscillogram(
        const QSharedPointer<Oscillogram>& oldOne, const QSharedPointer<Oscillogram>& newOne);

signals:
    void changed();

private:
    Oscillograms() = default;

    QMap<QString, QSharedPointer<Oscillogram>> m_waves;
};
