#pragma once

#include "Model/Exception.h"
#include "Model/ProgressCoalescer.h"

#include <QObject>
#include <QSharedPointer>

#include <atomic>

// The frame of every long job. Cancellation is a flag with one writer (cancel(), on the
// interface thread) and one reader (the worker, between units of work); a late read costs only
// one more unit of work, so relaxed ordering is enough, but it must be atomic to be a defined
// read at all.
class KORVANE_EXPORT TaskBase : public QObject
{
    Q_OBJECT
public:
    explicit TaskBase(QObject* parent = nullptr);
    ~TaskBase() override;

    bool isCancelled() const { return m_cancelled.load(std::memory_order_relaxed); }
    // From then on progressChanged carries only the reports a display needs (see
    // ProgressCoalescer). Set it before the task starts; the worker alone reads it afterwards.
    void setProgressCoalesced(bool coalesced) { m_coalesced = coalesced; }
    void updateProgress(const QString& stage, double percent);
    // With coalesced progress, passes on the report last held back; called as the task ends.
    void flushProgress();
    // Throws a pointer to a new CancelledException when the flag is set.
    void checkCancelled();

signals:
    void progressChanged(QString stage, double percent);
    void completed();
    void error(QSharedPointer<Exception> exception);
    // Declared for hosts that listen to it; the frame itself never emits it.
    void cancelled();

public slots:
    void cancel();

private:
    std::atomic<bool> m_cancelled { false };
    bool m_coalesced = false;
    ProgressCoalescer m_coalescer;
};
