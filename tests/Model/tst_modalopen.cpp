// The modal open: the record it delivers, the progress its dialog shows, and Cancel at any
// moment. Also the rules of the coalesced progress and of the task's cancelled flag.
#include "ComtradeFixture.h"
#include "ExactCompare.h"

#include "Loaders/ComtradeLoader.h"
#include "Model/AnalogChannel.h"
#include "Model/DigitalChannel.h"
#include "Model/EasyLibKorvane.h"
#include "Model/Oscillogram.h"
#include "Model/Oscillograms.h"
#include "Model/ProgressCoalescer.h"
#include "Model/ProgressDialog.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QPointer>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <functional>
#include <limits>

using namespace KorvaneTest;

namespace {
using Report = QPair<QString, double>;

const QString dataStage = QStringLiteral("Чтение файла данных");

// Calls back with each progress dialog as it is shown, before its event loop delivers anything.
class DialogWatcher : public QObject
{
public:
    explicit DialogWatcher(std::function<void(ProgressDialog*)> shown) : m_shown(std::move(shown))
    {
        qApp->installEventFilter(this);
    }
    ~DialogWatcher() override { qApp->removeEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (auto* dialog = qobject_cast<ProgressDialog*>(watched))
                m_shown(dialog);
        }
        return false;
    }

private:
    std::function<void(ProgressDialog*)> m_shown;
};

void pressCancel(ProgressDialog* dialog)
{
    dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
}

// The reports of a load run on this thread, nothing coalesced: what the loader itself says.
QList<Report> reportsOfTheLoader(const QString& path)
{
    QList<Report> reports;
    ComtradeLoader loader(path, nullptr);
    QObject::connect(&loader, &TaskBase::progressChanged, [&reports](const QString& stage, double percent) {
        reports.append({ stage, percent });
    });
    loader.run();
    return reports;
}

ComtradeSetDescription setOf(const QString& format, int samples)
{
    ComtradeSetDescription set;
    set.format = format;
    set.analogs = 4;
    set.digitals = 4;
    set.samples = samples;
    return set;
}

struct ModalOutcome
{
    bool ok = false;
    int calls = 0;
    QSharedPointer<Oscillogram> record;
};

ModalOutcome openModally(const QString& path)
{
    ModalOutcome outcome;
    outcome.ok = EasyLibKorvane::open(path, nullptr, [&outcome](LoaderResult& result) {
        ++outcome.calls;
        outcome.record = result.oscillogram;
    });
    return outcome;
}

void clearRegistry()
{
    for (const auto& record : Oscillograms::instance()->allWaves())
        Oscillograms::instance()->remove(record);
}

// Waits for the workers that cancelled loads leave behind and deletes their loaders.
void drainWorkers()
{
    QThreadPool::globalInstance()->waitForDone();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
} // namespace

class TestModalOpen : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        EasyLibKorvane::initialize();
        QVERIFY(m_dir.isValid());
    }

    void cleanup()
    {
        drainWorkers();
        clearRegistry();
    }

    void coalescerPassesStagesStepsAndTheFirstReport()
    {
        ProgressCoalescer coalescer;
        QVERIFY(coalescer.passes(QStringLiteral("a"), 0.0));
        // Within a thousandth of the last value passed, and at once: held back.
        QVERIFY(!coalescer.passes(QStringLiteral("a"), 0.0004));
        QVERIFY(!coalescer.passes(QStringLiteral("a"), 0.0009));
        QVERIFY(coalescer.passes(QStringLiteral("a"), 0.0010));
        // A new stage passes whatever its value.
        QVERIFY(coalescer.passes(QStringLiteral("b"), 0.0010));
        QVERIFY(!coalescer.passes(QStringLiteral("b"), 0.0015));
        QString stage;
        double percent = 0.0;
        QVERIFY(coalescer.takeHeld(stage, percent));
        QCOMPARE(stage, QStringLiteral("b"));
        QCOMPARE(percent, 0.0015);
        QVERIFY(!coalescer.takeHeld(stage, percent));
    }

    void coalescerPassesASmallChangeAfterItsSilence()
    {
        ProgressCoalescer coalescer;
        QVERIFY(coalescer.passes(QStringLiteral("a"), 0.5));
        QThread::msleep(ProgressCoalescer::longestSilenceMs + 10);
        // The same value again is nothing to show; a changed one is, once the silence is over.
        QVERIFY(!coalescer.passes(QStringLiteral("a"), 0.5));
        QVERIFY(coalescer.passes(QStringLiteral("a"), 0.5001));
    }

    void cancelledFlag()
    {
        ComtradeLoader loader(QStringLiteral("x.cfg"), nullptr);
        QVERIFY(!loader.isCancelled());
        loader.cancel();
        QVERIFY(loader.isCancelled());
    }

    void modalOpenDeliversTheSynchronousRecord_data()
    {
        QTest::addColumn<QString>("format");
        QTest::newRow("float32") << QStringLiteral("FLOAT32");
        QTest::newRow("ascii") << QStringLiteral("ASCII");
    }

    // 200,000 samples: the record equals the synchronous one, and the dialog shows a part of the
    // loader's reports in their order, from its first to its last.
    void modalOpenDeliversTheSynchronousRecord()
    {
        QFETCH(QString, format);
        const ComtradeSetDescription set = setOf(format, 200000);
        const QString base = m_dir.filePath(format);
        QVERIFY(writeComtradeSet(base, set));
        const QString path = base + QStringLiteral(".cfg");
        QString errorText;
        const QSharedPointer<Oscillogram> expected = EasyLibKorvane::open(path, errorText);
        QVERIFY(expected);
        const QList<Report> loaderReports = reportsOfTheLoader(path);

        QList<Report> shown;
        DialogWatcher watcher([&shown](ProgressDialog* dialog) {
            connect(dialog, &ProgressDialog::progressShown, [&shown](const QString& stage, double percent) {
                shown.append({ stage, percent });
            });
        });
        QElapsedTimer clock;
        clock.start();
        const ModalOutcome outcome = openModally(path);
        const qint64 elapsedMs = clock.elapsed();
        QVERIFY(outcome.ok);
        QCOMPARE(outcome.calls, 1);
        QCOMPARE(Oscillograms::instance()->get(path), outcome.record);
        compareRecords(*outcome.record, *expected);

        QVERIFY(!shown.isEmpty());
        QCOMPARE(shown.first(), loaderReports.first());
        QCOMPARE(shown.last(), loaderReports.last());
        int next = 0;
        for (const Report& report : qAsConst(shown)) {
            while (next < loaderReports.size() && loaderReports.at(next) != report)
                ++next;
            QVERIFY2(next < loaderReports.size(), "a report the loader never made, or out of order");
            ++next;
        }
        // At most one report per thousandth of each stage, one per silence and the last one.
        const int stages = 2;
        const qint64 bound = stages * 1001 + elapsedMs / ProgressCoalescer::longestSilenceMs + 1;
        QVERIFY2(shown.size() <= bound, qPrintable(QStringLiteral("%1 reports").arg(shown.size())));
        QVERIFY(loaderReports.size() > set.samples);
    }

    void cancelInTheDataStageAnswersWithin100Ms()
    {
        const ComtradeSetDescription set = setOf(QStringLiteral("ASCII"), 200000);
        const QString base = m_dir.filePath(QStringLiteral("cancel"));
        QVERIFY(writeComtradeSet(base, set));
        QElapsedTimer sinceCancel;
        DialogWatcher watcher([&sinceCancel](ProgressDialog* dialog) {
            connect(dialog, &ProgressDialog::progressShown,
                [dialog, &sinceCancel](const QString& stage, double percent) {
                    if (stage == dataStage && percent > 0.05 && !sinceCancel.isValid()) {
                        sinceCancel.start();
                        pressCancel(dialog);
                    }
                });
        });
        const ModalOutcome outcome = openModally(base + QStringLiteral(".cfg"));
        const qint64 answerMs = sinceCancel.elapsed();
        QVERIFY(sinceCancel.isValid());
        QVERIFY2(answerMs <= 100, qPrintable(QStringLiteral("%1 ms").arg(answerMs)));
        QVERIFY(!outcome.ok);
        QCOMPARE(outcome.calls, 0);
        QVERIFY(Oscillograms::instance()->isEmpty());
        drainWorkers();
        QVERIFY(Oscillograms::instance()->isEmpty());
    }

    // Cancel pressed at random moments, before, during and after the load: each round has one
    // outcome, and nothing is registered late by a load that open() gave up.
    void cancelAtRandomMoments()
    {
        const ComtradeSetDescription set = setOf(QStringLiteral("ASCII"), 20000);
        const QString base = m_dir.filePath(QStringLiteral("stress"));
        QVERIFY(writeComtradeSet(base, set));
        const QString path = base + QStringLiteral(".cfg");
        // The shortest of a few loads on this thread: the worker's share of a modal open, around
        // whose end the moments below are spread. The dialog's own cost comes on top of it.
        qint64 shortestMs = std::numeric_limits<qint64>::max();
        for (int i = 0; i < 5; ++i) {
            QElapsedTimer clock;
            clock.start();
            QString errorText;
            QVERIFY(EasyLibKorvane::open(path, errorText));
            shortestMs = qMin(shortestMs, clock.elapsed());
        }
        const int loadMs = int(qMax<qint64>(1, shortestMs));

        QRandomGenerator random(20261123);
        int delivered = 0;
        constexpr int rounds = 300;
        for (int round = 0; round < rounds; ++round) {
            // From at once to twice the time of a load.
            const int delayMs = int(random.bounded(loadMs * 2 + 2));
            DialogWatcher watcher([delayMs](ProgressDialog* dialog) {
                QPointer<ProgressDialog> guarded(dialog);
                QTimer::singleShot(delayMs, [guarded]() {
                    if (guarded && guarded->isVisible())
                        pressCancel(guarded);
                });
            });
            const ModalOutcome outcome = openModally(path);
            if (outcome.ok) {
                ++delivered;
                QCOMPARE(outcome.calls, 1);
                QVERIFY(outcome.record);
                QCOMPARE(Oscillograms::instance()->get(path), outcome.record);
            } else {
                QCOMPARE(outcome.calls, 0);
                QVERIFY(Oscillograms::instance()->isEmpty());
            }
            clearRegistry();
        }
        drainWorkers();
        QVERIFY(Oscillograms::instance()->isEmpty());
        qInfo("%d of %d rounds delivered their record (a load takes about %d ms)", delivered, rounds, loadMs);
        QVERIFY2(delivered > 0 && delivered < rounds, "the moments did not fall on both sides of the end");
    }

private:
    static void compareRecords(const Oscillogram& actual, const Oscillogram& expected)
    {
        QCOMPARE(actual.countOfSamples(), expected.countOfSamples());
        QCOMPARE(actual.countOfAnalogChannels(), expected.countOfAnalogChannels());
        QCOMPARE(actual.countOfDigitalChannels(), expected.countOfDigitalChannels());
        for (int c = 0; c < expected.countOfAnalogChannels(); ++c) {
            const auto a = actual.analogChannel(c);
            const auto e = expected.analogChannel(c);
            for (int s = 0; s < expected.countOfSamples(); ++s)
                KORVANE_COMPARE_EXACTLY(a->getValue(s, a->dataOffset()), e->getValue(s, e->dataOffset()));
        }
        for (int c = 0; c < expected.countOfDigitalChannels(); ++c) {
            const auto a = actual.digitalChannel(c);
            const auto e = expected.digitalChannel(c);
            for (int s = 0; s < expected.countOfSamples(); ++s) {
                if (a->value(s) != e->value(s))
                    QFAIL(qPrintable(QStringLiteral("digital %1 differs at sample %2").arg(c).arg(s)));
            }
        }
    }

    QTemporaryDir m_dir;
};

QTEST_MAIN(TestModalOpen)
#include "tst_modalopen.moc"
