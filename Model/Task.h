#pragma once

#include "Model/TaskBase.h"

#include <QRunnable>

// A job for the global thread pool: work() computes the result, run() turns its failures into
// the error signal. Exceptions arrive thrown in three forms, each handled by its own clause.
template<typename T> class Task : public QRunnable, public TaskBase
{
public:
    explicit Task(QObject* parent = nullptr) : TaskBase(parent) { }

    void run() override
    {
        try {
            m_result = work();
            flushProgress();
            emit completed();
        } catch (QSharedPointer<Exception> exception) {
            emit error(exception);
        } catch (Exception* exception) {
            emit error(QSharedPointer<Exception>(exception));
        } catch (Exception& exception) {
            // The dynamic type is lost on purpose: a ParsingException thrown by value reaches
            // the handlers as a plain Exception with the same message and cause.
            emit error(QSharedPointer<Exception>::create(exception.message(), exception.cause()));
        }
    }

    ~Task() override = default;

    T& result() { return m_result; }
    const T& result() const { return m_result; }

protected:
    virtual T work() = 0;

private:
    T m_result {};
};
