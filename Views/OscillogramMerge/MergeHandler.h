#pragma once

#include "Model/MergedWave.h"
#include "Model/OscillogramData.h"
#include "Model/RasObject.h"
#include "Model/SimpleOscillogram.h"
#include "Views/OscillogramMerge/MergeItem.h"

#include <QObject>

#include <array>
#include <functional>
#include <memory>

class SampleCopier;

// How sources line up in a merged record. The task calls the four operations in order: begin
// (the target's begin time and which sources fit its time scale), counts, layout (shifts,
// failures, parts, lines and objects) and copy (the samples into the store).
class KORVANE_EXPORT MergeHandler : public QObject
{
    Q_OBJECT
public:
    explicit MergeHandler(QObject* parent = nullptr);
    ~MergeHandler() override;

    void setSources(const QList<QSharedPointer<Oscillogram>>& sources);
    void setItems(const QList<QSharedPointer<MergeItem>>& items) { m_items = items; }
    void setName(const QString& name) { m_name = name; }
    void setTargetRate(double rate) { m_targetRate = rate; }
    // Called between rows of the copy; throws to stop it.
    void setCancelCheck(std::function<void()> check) { m_cancelCheck = std::move(check); }

    virtual void calculateBeginTime() = 0;
    virtual void calculateCounts() = 0;
    virtual void layOut() = 0;
    virtual void copySamples() = 0;

    // Counts the items' channels by storage type into the store's five channel counts.
    void countChannels();
    // A new builder reserved with the channel counts and totalCount; false when it cannot hold them.
    bool reserveStore();

    QList<QSharedPointer<Oscillogram>> sources() const { return m_sources; }
    QList<QSharedPointer<MergeItem>> items() const { return m_items; }
    QList<bool> fits() const { return m_fits; }
    QList<int> shifts() const { return m_shifts; }
    QSharedPointer<OscillogramData> store() const { return m_store; }
    PreciseDateTime targetBeginTime() const { return m_targetBeginTime; }
    double targetRate() const { return m_targetRate; }
    int failureSample() const { return m_failureSample; }
    int preCount() const { return m_preCount; }
    int postCount() const { return m_postCount; }
    int totalCount() const { return m_totalCount; }
    int channelCount(DT::DataType type) const { return m_channelCounts[type]; }
    QList<MergedWave> mergedWaves() const { return m_mergedWaves; }
    QList<QSharedPointer<Failure>> failures() const { return m_failures; }
    QList<QSharedPointer<Line>> lines() const { return m_lines; }
    QList<RAS_OBJECT> rasObjects() const { return m_rasObjects; }

    // The source's pre- and post-failure counts at the target rate, truncated.
    int scaledPre(const Oscillogram& source) const;
    int scaledPost(const Oscillogram& source) const;
    // The source's sample that target-rate sample `sample` falls on, truncated.
    static int sourceSample(qint64 sample, double sourceRate, double targetRate);

signals:
    void progressChanged(QString stage, double percent);

protected:
    // The source as the record class whose trigger time the handlers may move; the task has
    // checked that every source is one.
    SimpleOscillogram& simple(int source) const;
    int indexOfSource(const QSharedPointer<Oscillogram>& source) const;
    // Takes the source's failures at sample (blockNum + b) × target rate ÷ source rate + a.
    void takeFailures(const Oscillogram& source, int a, int b);
    // Takes a copy of each line of the list whose name the target does not have yet.
    void takeLines(const QList<QSharedPointer<Line>>& lines);
    // Reports row ÷ total and polls cancellation every thousandth of `rows`, the rows to write.
    void reportRow(const QString& stage, qint64 row, qint64 total, qint64 rows);
    // Ends the copy: the store of `rows` rows.
    void buildStore(int rows);
    SampleCopier& copier(int rows);

    QList<QSharedPointer<Oscillogram>> m_sources;
    QList<bool> m_fits;
    QList<int> m_shifts;
    std::unique_ptr<OscillogramDataBuilder> m_builder;
    QSharedPointer<OscillogramData> m_store;
    PreciseDateTime m_targetBeginTime;
    double m_targetRate = 1.0;
    int m_failureSample = 0;
    int m_preCount = 0;
    int m_postCount = 0;
    int m_totalCount = 0;
    std::array<int, 6> m_channelCounts {};
    QList<QSharedPointer<MergeItem>> m_items;
    QList<MergedWave> m_mergedWaves;
    QList<QSharedPointer<Failure>> m_failures;
    QList<QSharedPointer<Line>> m_lines;
    QList<RAS_OBJECT> m_rasObjects;
    QString m_name;

private:
    std::unique_ptr<SampleCopier> m_copier;
    std::function<void()> m_cancelCheck;
};
