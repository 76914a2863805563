#pragma once

#include "Model/Exception.h"

#include <QObject>
#include <QSharedPointer>

// The frame of every long job. Cancellation is a plain flag: one writer (cancel(), on the
// interface thread) and one reader (the worker, between units of work); a late read costs only
// one more unit of work, so no lock guards it.
class KORVANE_EXPORT TaskBase : public QObject
{
    Q_OBJECT
public:
    explicit TaskBase(QObject* parent = nullptr);
    ~TaskBase() override;

    bool isCancelled() const { return m_cancelled; }
    void updateProgress(const QString& stage, double percent);
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
    bool m_cancelled = false;
};
