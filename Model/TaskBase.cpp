#include "TaskBase.h"

TaskBase::TaskBase(QObject* parent) : QObject(parent)
{
}

TaskBase::~TaskBase() = default;

void TaskBase::updateProgress(const QString& stage, double percent)
{
    if (m_coalesced && !m_coalescer.passes(stage, percent))
        return;
    emit progressChanged(stage, percent);
}

void TaskBase::flushProgress()
{
    QString stage;
    double percent = 0.0;
    if (m_coalesced && m_coalescer.takeHeld(stage, percent))
        emit progressChanged(stage, percent);
}

void TaskBase::checkCancelled()
{
    if (isCancelled())
        throw new CancelledException();
}

void TaskBase::cancel()
{
    m_cancelled.store(true, std::memory_order_relaxed);
}
