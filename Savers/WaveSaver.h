#pragma once

#include "Model/MeasureItem.h"
#include "Model/Oscillogram.h"
#include "korvane_export.h"

#include <QFileInfo>
#include <QObject>
#include <QSharedPointer>
#include <QString>

class QTextCodec;

// The frame of everything that writes a record to a file. A saver is configured, run once by
// saveProcess() (on a thread of its own in the windowed case) and deleted; the run ends in one of
// finishProgress(), writeError() or cancelSave(). Savers never throw.
class KORVANE_EXPORT WaveSaver : public QObject
{
    Q_OBJECT
public:
    WaveSaver(const QString& fileName, QSharedPointer<Oscillogram> oscillogram, bool onlySelectedChannels,
        bool useTimeRange);
    ~WaveSaver() override;

    QString fileName() const { return m_fileName; }
    QString errorString() const { return m_errorText; }
    bool isOk() const { return m_ok; }

    // The codec is looked up by name and stored as found, null included.
    void setCodec(const QString& name);
    QTextCodec* codec() const { return m_codec; }
    // The stored range always rises; the flag that makes it count comes from the constructor.
    void setTimeRange(const MeasureItem& item);
    MeasureItem timeRange() const { return m_timeRange; }
    bool onlySelectedChannels() const { return m_onlySelectedChannels; }
    bool useTimeRange() const { return m_useTimeRange; }

    PreciseDateTime timeBegin() const;
    PreciseDateTime timeTrigger() const;
    // i counts from the first written sample.
    PreciseDateTime timeOfCurrentSample(int i) const;
    // The finish sample of a range is not written.
    int countSamples() const;
    bool checkCancel() const;

signals:
    void updateProgress(QString stage, double fraction);
    void finishProgress();
    void writeError();
    void cancelSave();

public slots:
    void saveProcess();

protected:
    virtual void saveOsc() = 0;

    QSharedPointer<Oscillogram> oscillogram() const { return m_oscillogram; }
    QFileInfo fileInfo() const { return m_fileInfo; }
    void setOk(bool ok) { m_ok = ok; }
    int firstSampleOfRange() const { return m_useTimeRange ? m_timeRange.startSampleNumber() : 0; }

private:
    QString m_fileName;
    QSharedPointer<Oscillogram> m_oscillogram;
    bool m_onlySelectedChannels;
    bool m_useTimeRange;
    MeasureItem m_timeRange;
    bool m_ok = false;
    QFileInfo m_fileInfo;
    QString m_errorText;
    QTextCodec* m_codec;
    int m_countOfSamples;
};
