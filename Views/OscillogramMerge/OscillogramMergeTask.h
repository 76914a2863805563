#pragma once

#include "Model/Task.h"
#include "Views/OscillogramMerge/MergeHandler.h"

// Makes one new record out of several open ones on the thread pool: chooses the handler by the
// merge type, lets it line the sources up and copy their samples, and builds the record from
// what it gathered. The result is the new record.
class KORVANE_EXPORT OscillogramMergeTask : public Task<QSharedPointer<Oscillogram>>
{
    Q_OBJECT
public:
    // mergeType: channels of several records on one time line, or records one behind the other.
    enum MergeType { Vertical = 0, Horisontal = 1 };
    // verticalMergeMode: how the sources of a Vertical merge line up.
    enum VerticalMode { FirstReport = 0, TriggerTime = 1, AstronomicalTime = 2, FirstFailure = 3 };

    explicit OscillogramMergeTask(QObject* parent = nullptr);
    ~OscillogramMergeTask() override;

    void setOscillogramName(const QString& name) { m_oscillogramName = name; }
    QString oscillogramName() const { return m_oscillogramName; }
    void setMergeType(int type) { m_mergeType = type; }
    int mergeType() const { return m_mergeType; }
    void setVerticalMergeMode(int mode) { m_verticalMergeMode = mode; }
    int verticalMergeMode() const { return m_verticalMergeMode; }
    int countOfOscillograms() const { return m_oscillograms.size(); }
    void addMergeItem(const QSharedPointer<MergeItem>& item) { m_mergeItems.append(item); }
    QList<QSharedPointer<MergeItem>> mergeItems() const { return m_mergeItems; }
    void addOscillogram(const QSharedPointer<Oscillogram>& oscillogram)
    {
        m_oscillograms.append(oscillogram);
    }
    QList<QSharedPointer<Oscillogram>> oscillograms() const { return m_oscillograms; }
    // The handler of the merge type, or null for a type that has none.
    MergeHandler* handler() const { return m_handler.get(); }
    // The handler that the merge type and mode choose; null for an unknown type.
    static std::unique_ptr<MergeHandler> createHandler(int mergeType, int verticalMergeMode);

    // Earliest begin time first.
    void sortOscillograms();
    // For a gluing: the sources sorted, and one item per channel of the first of them.
    void setupGluingChannels();

protected:
    QSharedPointer<Oscillogram> work() override;

private:
    void calculateTargetSampleRate();
    void buildTargetChannels();
    void buildTargetOscillogram();

    QString m_oscillogramName;
    int m_mergeType = Vertical;
    int m_verticalMergeMode = FirstReport;
    QList<QSharedPointer<MergeItem>> m_mergeItems;
    QList<QSharedPointer<Oscillogram>> m_oscillograms;
    std::unique_ptr<MergeHandler> m_handler;
    double m_targetRate = 1.0;
    QList<QSharedPointer<AnalogChannel>> m_analogChannels;
    QList<QSharedPointer<DigitalChannel>> m_digitalChannels;
    QSharedPointer<SimpleOscillogram> m_target;
};
