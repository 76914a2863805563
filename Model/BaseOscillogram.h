#pragma once

#include "Model/Oscillogram.h"

// What a record needs without a channel list: its file name and its store.
class KORVANE_EXPORT BaseOscillogram : public Oscillogram
{
public:
    QString filename() const override { return m_filename; }
    void setFilename(const QString& filename) { m_filename = filename; }
    QSharedPointer<OscillogramData> data() const override { return m_data; }
    void setData(const QSharedPointer<OscillogramData>& data) { m_data = data; }

    int countOfLines() const override { return 0; }
    QSharedPointer<Line> line(int) const override { return {}; }
    QList<QSharedPointer<Failure>> failures() const override { return {}; }
    QString headerContent() const override { return {}; }
    PreciseDateTime dateTime(int sample) const override;
    // Microseconds from the beginning, in 32 bits: the count ends at about 2147 seconds.
    int tsFromBeginTime(int sample) const override;

protected:
    PreciseDateTime plainDateTime(int sample) const;

private:
    QString m_filename;
    QSharedPointer<OscillogramData> m_data;
};
