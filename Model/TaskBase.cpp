#include "TaskBase.h"

TaskBase::TaskBase(QObject* parent) : QObject(parent)
{
}

TaskBase::~TaskBase() = default;

void TaskBase::updateProgress(const QString& stage, double percent)
{
    emit progressChanged(stage, percent);
}

void TaskBase::checkCancelled()
{
    if (m_cancelled)
        throw new CancelledException();
}

void TaskBase::cancel()
{
    m_cancelled = true;
}
