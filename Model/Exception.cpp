#include "Exception.h"

namespace {
// Built once when the library loads; the constructors without a message use them.
const QString notImplementedText = QStringLiteral("Code is not implemented");
const QString illegalArgumentText = QStringLiteral("Illegal argument passed");
} // namespace

Exception::Exception(const QString& message) : m_message(message)
{
}

Exception::Exception(const QString& message, Exception* cause) : m_message(message), m_cause(cause)
{
}

Exception::Exception(const QString& message, QSharedPointer<Exception> cause)
    : m_message(message), m_cause(std::move(cause))
{
}

Exception::Exception(QSharedPointer<Exception> cause) : m_cause(std::move(cause))
{
}

Exception::Exception(Exception* cause) : m_cause(cause)
{
}

Exception::~Exception() = default;

CancelledException::CancelledException() : Exception(QStringLiteral("Task cancelled"))
{
}

NotImplementedException::NotImplementedException() : Exception(notImplementedText)
{
}
NotImplementedException::NotImplementedException(const QString& message) : Exception(message)
{
}
NotImplementedException::NotImplementedException(const QString& message, Exception* cause)
    : Exception(message, cause)
{
}
NotImplementedException::NotImplementedException(const QString& message, QSharedPointer<Exception> cause)
    : Exception(message, std::move(cause))
{
}
NotImplementedException::NotImplementedException(QSharedPointer<Exception> cause)
    : Exception(notImplementedText, std::move(cause))
{
}
NotImplementedException::NotImplementedException(Exception* cause) : Exception(notImplementedText, cause)
{
}

IllegalArgumentException::IllegalArgumentException() : Exception(illegalArgumentText)
{
}
IllegalArgumentException::IllegalArgumentException(const QString& message) : Exception(message)
{
}
IllegalArgumentException::IllegalArgumentException(const QString& message, Exception* cause)
    : Exception(message, cause)
{
}
IllegalArgumentException::IllegalArgumentException(const QString& message, QSharedPointer<Exception> cause)
    : Exception(message, std::move(cause))
{
}
IllegalArgumentException::IllegalArgumentException(QSharedPointer<Exception> cause)
    : Exception(illegalArgumentText, std::move(cause))
{
}
IllegalArgumentException::IllegalArgumentException(Exception* cause) : Exception(illegalArgumentText, cause)
{
}

ParsingException::ParsingException(const QString& message) : Exception(message)
{
}

LoadFailureException::LoadFailureException(const QString& message) : Exception(message)
{
}

LoadFailureException::LoadFailureException(const QString& message, Exception* cause)
    : Exception(message, cause)
{
}

FileFormatException::FileFormatException() : LoadFailureException(tr("Неправильный формат файла"))
{
}

QString exceptionChainText(const Exception& exception)
{
    QString text = exception.message();
    for (auto cause = exception.cause(); cause; cause = cause->cause())
        text += QLatin1Char('\n') + QCoreApplication::translate("EasyLibKorvane", "По причине: ")
            + cause->message();
    return text;
}
