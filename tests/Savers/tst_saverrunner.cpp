#include "ModalDialogs.h"
#include "Model/ProgressDialog.h"
#include "SaverFixture.h"
#include "Savers/SaverRunner.h"
#include "Savers/WaveSaver.h"

#include <QTest>
#include <QThread>

#include <atomic>

namespace {
// Ends as it is told, on the thread it runs on; "waits for cancel" loops until asked to stop.
class ScriptedSaver : public WaveSaver
{
public:
    enum Ending { Finish, Fail, WaitForCancel };

    ScriptedSaver(Ending ending)
        : WaveSaver(QStringLiteral("/tmp/x.csv"), KorvaneTest::makeSaverRecord({}), false, false)
        , m_ending(ending)
    {
    }

    std::atomic<QThread*> ranOn { nullptr };

protected:
    void saveOsc() override
    {
        ranOn = QThread::currentThread();
        emit updateProgress(QStringLiteral("Сохранение..."), 0.0);
        switch (m_ending) {
        case Finish:
            setOk(true);
            emit finishProgress();
            return;
        case Fail:
            emit writeError();
            return;
        case WaitForCancel:
            while (!checkCancel())
                QThread::msleep(5);
            emit cancelSave();
            return;
        }
    }

private:
    Ending m_ending;
};

void cancelTheProgressDialog()
{
    whenModalOpens([](QWidget* modal) {
        if (auto* progress = qobject_cast<ProgressDialog*>(modal))
            progress->reject();
        else
            cancelTheProgressDialog();
    });
}
} // namespace

class TestSaverRunner : public QObject
{
    Q_OBJECT
private slots:
    void savedOnAThreadOfItsOwn()
    {
        ScriptedSaver saver(ScriptedSaver::Finish);
        QCOMPARE(SaverRunner::run(saver, nullptr), SaverRunner::Saved);
        QVERIFY(saver.ranOn.load() != nullptr);
        QVERIFY(saver.ranOn.load() != QThread::currentThread());
        // The saver is back on the caller's thread.
        QCOMPARE(saver.thread(), QThread::currentThread());
        QVERIFY(saver.isOk());
    }

    void writeErrorIsAFailure()
    {
        ScriptedSaver saver(ScriptedSaver::Fail);
        QCOMPARE(SaverRunner::run(saver, nullptr), SaverRunner::Failed);
    }

    // Cancel of the progress dialog asks the saver's thread to stop; the run ends cancelled.
    void cancelOfTheProgressDialogStopsTheSaver()
    {
        ScriptedSaver saver(ScriptedSaver::WaitForCancel);
        cancelTheProgressDialog();
        QCOMPARE(SaverRunner::run(saver, nullptr), SaverRunner::Cancelled);
        QVERIFY(!saver.isOk());
    }

    void messagesOfTheOutcomes_data()
    {
        QTest::addColumn<int>("outcome");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("icon");
        QTest::newRow("saved") << int(SaverRunner::Saved) << "Сохранение"
                               << "Осциллограмма сохранена" << int(QMessageBox::Information);
        QTest::newRow("cancelled") << int(SaverRunner::Cancelled) << "Сохранение"
                                   << "Сохранение отменено" << int(QMessageBox::Information);
        QTest::newRow("failed") << int(SaverRunner::Failed) << "Ошибка сохранения"
                                << "Не удалось сохранить осциллограмму." << int(QMessageBox::Critical);
    }
    void messagesOfTheOutcomes()
    {
        QFETCH(int, outcome);
        QFETCH(QString, title);
        QFETCH(QString, text);
        QFETCH(int, icon);
        SeenBox seen;
        closeNextMessageBox(seen);
        SaverRunner::report(SaverRunner::Outcome(outcome), nullptr);
        QCOMPARE(seen.title, title);
        QCOMPARE(seen.text, text);
        QCOMPARE(int(seen.icon), icon);
    }
};

QTEST_MAIN(TestSaverRunner)
#include "tst_saverrunner.moc"
