#pragma once

#include "korvane_export.h"

#include <QCoreApplication>
#include <QMetaType>
#include <QSharedPointer>
#include <QString>

#include <exception>

// Base of every failure raised inside a task. The text is the user-facing message; a cause
// chain tells what led to it. what() is not overridden: the message is read through message().
class KORVANE_EXPORT Exception : public std::exception
{
public:
    Exception() = default;
    explicit Exception(const QString& message);
    // Takes ownership of the raw cause.
    Exception(const QString& message, Exception* cause);
    Exception(const QString& message, QSharedPointer<Exception> cause);
    explicit Exception(QSharedPointer<Exception> cause);
    explicit Exception(Exception* cause);
    ~Exception() override;

    QString message() const { return m_message; }
    QSharedPointer<Exception> cause() const { return m_cause; }

private:
    QString m_message;
    QSharedPointer<Exception> m_cause;
};

class KORVANE_EXPORT CancelledException : public Exception
{
public:
    CancelledException();
};

class KORVANE_EXPORT NotImplementedException : public Exception
{
public:
    NotImplementedException();
    explicit NotImplementedException(const QString& message);
    NotImplementedException(const QString& message, Exception* cause);
    NotImplementedException(const QString& message, QSharedPointer<Exception> cause);
    explicit NotImplementedException(QSharedPointer<Exception> cause);
    explicit NotImplementedException(Exception* cause);
};

class KORVANE_EXPORT IllegalArgumentException : public Exception
{
public:
    IllegalArgumentException();
    explicit IllegalArgumentException(const QString& message);
    IllegalArgumentException(const QString& message, Exception* cause);
    IllegalArgumentException(const QString& message, QSharedPointer<Exception> cause);
    explicit IllegalArgumentException(QSharedPointer<Exception> cause);
    explicit IllegalArgumentException(Exception* cause);
};

// Thrown by value by the configuration text parser's token readers.
class KORVANE_EXPORT ParsingException : public Exception
{
public:
    explicit ParsingException(const QString& message);
    ParsingException(const ParsingException& other) = default;
};

class KORVANE_EXPORT LoadFailureException : public Exception
{
public:
    LoadFailureException() = default;
    explicit LoadFailureException(const QString& message);
    LoadFailureException(const QString& message, Exception* cause);
};

class KORVANE_EXPORT FileFormatException : public LoadFailureException
{
    Q_DECLARE_TR_FUNCTIONS(FileFormatException)
public:
    FileFormatException();
};

// The text of a failure with its causes, one per line: the message, then for each cause a line
// "По причине: <its message>". This is what the error boxes show.
KORVANE_EXPORT QString exceptionChainText(const Exception& exception);

Q_DECLARE_METATYPE(QSharedPointer<Exception>)
Q_DECLARE_METATYPE(LoadFailureException)
