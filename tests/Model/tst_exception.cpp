#include "Model/Exception.h"
#include "Model/Task.h"

#include <QSignalSpy>
#include <QTest>

namespace {
// A task whose body is chosen by the test.
class ScriptedTask : public Task<int>
{
public:
    explicit ScriptedTask(std::function<int()> body) : m_body(std::move(body)) { }

protected:
    int work() override { return m_body(); }

private:
    std::function<int()> m_body;
};

QSharedPointer<Exception> runAndTakeError(ScriptedTask& task)
{
    QSignalSpy errors(&task, &TaskBase::error);
    QSignalSpy completions(&task, &TaskBase::completed);
    task.run();
    if (errors.count() != 1 || completions.count() != 0)
        return {};
    return errors.first().first().value<QSharedPointer<Exception>>();
}
} // namespace

class TestException : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { qRegisterMetaType<QSharedPointer<Exception>>("QSharedPointer<Exception>"); }

    void defaultMessages()
    {
        QCOMPARE(CancelledException().message(), QStringLiteral("Task cancelled"));
        QCOMPARE(NotImplementedException().message(), QStringLiteral("Code is not implemented"));
        QCOMPARE(IllegalArgumentException().message(), QStringLiteral("Illegal argument passed"));
        QCOMPARE(FileFormatException().message(), QStringLiteral("Неправильный формат файла"));
        QVERIFY(LoadFailureException().message().isEmpty());
    }

    void causeOnlyConstructorsLeaveMessageEmpty()
    {
        const Exception fromRaw(new Exception(QStringLiteral("inner")));
        QVERIFY(fromRaw.message().isEmpty());
        QCOMPARE(fromRaw.cause()->message(), QStringLiteral("inner"));
        const Exception fromShared(QSharedPointer<Exception>::create(QStringLiteral("inner")));
        QVERIFY(fromShared.message().isEmpty());
        QCOMPARE(fromShared.cause()->message(), QStringLiteral("inner"));
    }

    void chainOfTwoCausesHasThreeLines()
    {
        const Exception chain(QStringLiteral("top"),
            new Exception(QStringLiteral("middle"), new Exception(QStringLiteral("bottom"))));
        const QStringList lines = exceptionChainText(chain).split(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.at(0), QStringLiteral("top"));
        QCOMPARE(lines.at(1), QStringLiteral("По причине: middle"));
        QCOMPARE(lines.at(2), QStringLiteral("По причине: bottom"));
    }

    void completedCarriesResult()
    {
        ScriptedTask task([] { return 42; });
        QSignalSpy completions(&task, &TaskBase::completed);
        QSignalSpy errors(&task, &TaskBase::error);
        task.run();
        QCOMPARE(completions.count(), 1);
        QCOMPARE(errors.count(), 0);
        QCOMPARE(task.result(), 42);
    }

    void parsingExceptionByValueArrivesAsPlainException()
    {
        ScriptedTask task([]() -> int { throw ParsingException(QStringLiteral("bad token")); });
        const auto error = runAndTakeError(task);
        QVERIFY(error);
        QCOMPARE(error->message(), QStringLiteral("bad token"));
        QVERIFY(!error.dynamicCast<ParsingException>());
    }

    void pointerKeepsDynamicType()
    {
        ScriptedTask task([]() -> int { throw new LoadFailureException(QStringLiteral("no file")); });
        const auto error = runAndTakeError(task);
        QVERIFY(error.dynamicCast<LoadFailureException>());
        QCOMPARE(error->message(), QStringLiteral("no file"));
    }

    void sharedPointerIsPassedOn()
    {
        const auto thrown = QSharedPointer<Exception>(new FileFormatException());
        ScriptedTask task([thrown]() -> int { throw thrown; });
        QCOMPARE(runAndTakeError(task).data(), thrown.data());
    }

    void checkCancelledThrowsOnlyAfterCancel()
    {
        ScriptedTask task([&task]() -> int {
            task.checkCancelled();
            task.cancel();
            task.checkCancelled();
            return 1;
        });
        QVERIFY(!task.isCancelled());
        const auto error = runAndTakeError(task);
        QVERIFY(error.dynamicCast<CancelledException>());
        QVERIFY(task.isCancelled());
    }
};

QTEST_GUILESS_MAIN(TestException)
#include "tst_exception.moc"
