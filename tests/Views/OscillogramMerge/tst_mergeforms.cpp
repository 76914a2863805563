#include "MergeRecords.h"
#include "ModalDialogs.h"

#include "Model/ClcOscillogram.h"
#include "Model/EasyLibKorvane.h"
#include "Model/Oscillograms.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramMerge/DiaMergeSetup.h"
#include "Views/OscillogramMerge/MergeSettingsForm.h"
#include "Views/OscillogramMerge/OscillogramMergeTask.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>

#include <memory>

using namespace MergeRecords;

namespace {
const QString attention = QStringLiteral("Внимание");

// Notes the next message box and answers it with the button given, until `active` is cleared.
void answerNextBox(SeenBox& seen, QMessageBox::StandardButton answer,
    std::shared_ptr<bool> active = std::make_shared<bool>(true), int triesLeft = 6000)
{
    QTimer::singleShot(5, [&seen, answer, active, triesLeft]() {
        if (!*active)
            return;
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            seen = { box->windowTitle(), box->text(), box->icon() };
            *active = false;
            if (QAbstractButton* button = box->button(answer))
                button->click();
            else
                box->reject();
        } else if (triesLeft > 0) {
            answerNextBox(seen, answer, active, triesLeft - 1);
        }
    });
}

Description plain(int id, const PreciseDateTime& begin, int samples = 100)
{
    Description d;
    d.id = id;
    d.samples = samples;
    d.begin = begin;
    d.types = { DT::Int16, DT::Float };
    d.digitals = 1;
    d.prefix = QStringLiteral("R%1").arg(id);
    return d;
}

QList<MergeSettingsForm::NamedOscillogram> named(const QList<QSharedPointer<SimpleOscillogram>>& records)
{
    QList<MergeSettingsForm::NamedOscillogram> list;
    for (const auto& record : records)
        list.append({ record->filename(), record });
    return list;
}

// What a record shows of itself that a merge could move.
QString state(const Oscillogram& record)
{
    return QString::fromStdString(record.triggerTime().toCMRString())
        + QStringLiteral(" %1 %2")
              .arg(record.countOfPreFailureSamples())
              .arg(record.countOfPostFailureSamples());
}

struct Pressed
{
    int emitted = 0;
    SeenBox box;
};

// Presses Done, answering the first box with the button given, if one opens.
Pressed pressDone(MergeSettingsForm& form, QMessageBox::StandardButton answer = QMessageBox::Ok)
{
    Pressed pressed;
    QSignalSpy done(&form, &MergeSettingsForm::sigDoneButtonTriggered);
    const auto active = std::make_shared<bool>(true);
    answerNextBox(pressed.box, answer, active);
    form.doneButton()->click();
    *active = false;
    pressed.emitted = done.count();
    return pressed;
}

// Done refuses with the text under "Внимание" and emits nothing.
void expectRefusal(MergeSettingsForm& form, const QString& text)
{
    const Pressed pressed = pressDone(form);
    QCOMPARE(pressed.emitted, 0);
    QCOMPARE(pressed.box.title, attention);
    QCOMPARE(pressed.box.text, text);
}
} // namespace

class TestMergeForms : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();

    void gluingBridgesAtMostThreeMinutes_data();
    void gluingBridgesAtMostThreeMinutes();
    void astronomicalNeedsACommonInstant();
    void firstFailureNeedsFailuresEverywhere();
    void gluingNeedsASignal();
    void differentRatesWarnAndMayGoOn();
    void aNameIsRequired();
    void noRecordChosen();
    void differentConfigurationsAskBeforeGluing();
    void typeChoiceShowsItsDescriptionAndChannels();
    void unknownTypeStartsNoTask();
    void dialogAddsTheMergedRecordToTheRegistry();
    void cancelledMergeLeavesNoRecord_data();
    void cancelledMergeLeavesNoRecord();
    void failedMergeTellsWhyAndLeavesNoRecord();
    void viewOffersTheMergeAndShowsTheResult();

private:
    QSharedPointer<KorvaneSettings> m_settings;
};

void TestMergeForms::initTestCase()
{
    EasyLibKorvane::initialize();
    m_settings = QSharedPointer<KorvaneSettings>::create();
}

void TestMergeForms::cleanup()
{
    for (const auto& wave : Oscillograms::instance()->allWaves())
        Oscillograms::instance()->remove(wave);
    // The windows that merges opened; deleting one may take others with it.
    QList<QPointer<QWidget>> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<OscillogramView*>(window) && !window->parentWidget())
            windows.append(window);
    }
    for (const QPointer<QWidget>& window : windows)
        delete window.data();
}

void TestMergeForms::gluingBridgesAtMostThreeMinutes_data()
{
    QTest::addColumn<qint64>("gapMs");
    QTest::addColumn<bool>("allowed");
    QTest::newRow("180,000 ms glue") << qint64(180000) << true;
    QTest::newRow("180,001 ms refused") << qint64(180001) << false;
    QTest::newRow("overlap glues") << qint64(-50) << true;
}

void TestMergeForms::gluingBridgesAtMostThreeMinutes()
{
    QFETCH(qint64, gapMs);
    QFETCH(bool, allowed);
    // The first record ends at t0 + 99 ms. Both have the same channels.
    const auto first = make(plain(1, t0()));
    Description later = plain(2, at((99 + gapMs) * 1000));
    later.prefix = QStringLiteral("R1");
    const auto second = make(later);
    const QString before = state(*first) + state(*second);
    MergeSettingsForm form;
    form.setOscillograms(named({ second, first }));
    form.setMergeType(1);
    form.setOscillogramName(QStringLiteral("Склейка"));
    const Pressed pressed = pressDone(form);
    QCOMPARE(form.mergeAllowed(), allowed);
    QCOMPARE(pressed.emitted, allowed ? 1 : 0);
    if (!allowed) {
        QCOMPARE(pressed.box.title, attention);
        QCOMPARE(pressed.box.text,
            QStringLiteral(
                "Склейка осциллограмм невозможна. Осциллограммы расходятся по времени больше чем на 3 "
                "минуты."));
    }
    QCOMPARE(state(*first) + state(*second), before);
}

void TestMergeForms::astronomicalNeedsACommonInstant()
{
    // The second begins 1 ms after the first ends.
    const auto first = make(plain(1, t0()));
    const auto second = make(plain(2, at(100000)));
    const QString before = state(*first) + state(*second);
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    form.setVerticalMergeMode(2);
    form.setOscillogramName(QStringLiteral("Объединение"));
    expectRefusal(form,
        QStringLiteral(
            "Осциллограммы расходятся по времени, объединение по астрономическому времени невозможно."));
    QCOMPARE(state(*first) + state(*second), before);

    // Ending exactly where the other begins is a common instant.
    const auto touching = make(plain(3, at(99000)));
    form.setOscillograms(named({ first, touching }));
    QCOMPARE(pressDone(form).emitted, 1);
    QVERIFY(form.timesOverlap());
}

void TestMergeForms::firstFailureNeedsFailuresEverywhere()
{
    Description withFailure = plain(1, t0());
    withFailure.failures = { { QStringLiteral("КЗ"), 10 } };
    const auto first = make(withFailure);
    const auto second = make(plain(2, t0()));
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    form.setVerticalMergeMode(3);
    form.setOscillogramName(QStringLiteral("Объединение"));
    expectRefusal(form,
        QStringLiteral(
            "Объединение по точке аварийного события невозможно. Найдена осциллограмма без аварийного "
            "события."));
    form.setOscillogramChosen(1, false);
    QCOMPARE(pressDone(form).emitted, 1);
}

void TestMergeForms::gluingNeedsASignal()
{
    const auto first = make(plain(1, t0()));
    Description later = plain(2, at(100000));
    later.prefix = QStringLiteral("R1");
    const auto second = make(later);
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    form.setMergeType(1);
    form.setOscillogramName(QStringLiteral("Склейка"));
    // The channels of the earliest record, all ticked at first.
    QCOMPARE(form.channelList()->count(), 3);
    for (int row = 0; row < form.channelList()->count(); ++row)
        form.channelList()->item(row)->setCheckState(Qt::Unchecked);
    expectRefusal(form, QStringLiteral("Сигналы не выбраны."));
    form.channelList()->item(1)->setCheckState(Qt::Checked);
    QCOMPARE(pressDone(form).emitted, 1);
    QCOMPARE(form.selectedItems().size(), 1);
    QCOMPARE(form.selectedItems()[0]->channel()->name(), QStringLiteral("R12"));
}

void TestMergeForms::differentRatesWarnAndMayGoOn()
{
    Description fast = plain(2, t0());
    fast.rate = 4000.0;
    const auto first = make(plain(1, t0()));
    const auto second = make(fast);
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    form.setOscillogramName(QStringLiteral("Объединение"));
    const Pressed cancelled = pressDone(form, QMessageBox::Cancel);
    QVERIFY(form.ratesDiffer());
    QCOMPARE(cancelled.emitted, 0);
    QCOMPARE(cancelled.box.title, attention);
    QCOMPARE(cancelled.box.text,
        QStringLiteral("Частота дискретизации выбранных осциллограмм отличается. \nБудет выполнена "
                       "передискретизация по наименьшему значению частоты."));
    QCOMPARE(pressDone(form, QMessageBox::Ok).emitted, 1);
}

void TestMergeForms::aNameIsRequired()
{
    const auto first = make(plain(1, t0()));
    MergeSettingsForm form;
    form.setOscillograms(named({ first }));
    form.setOscillogramName(QStringLiteral("   "));
    expectRefusal(form, QStringLiteral("Введите название для новой осциллограммы."));
}

void TestMergeForms::noRecordChosen()
{
    const auto first = make(plain(1, t0()));
    MergeSettingsForm form;
    form.setOscillograms(named({ first }));
    form.setOscillogramName(QStringLiteral("Объединение"));
    form.setOscillogramChosen(0, false);
    QCOMPARE(form.channelList()->count(), 0);
    expectRefusal(form, QStringLiteral("Осциллограммы не выбраны."));
}

void TestMergeForms::differentConfigurationsAskBeforeGluing()
{
    Description other = plain(2, at(100000));
    other.types = { DT::Int16, DT::Float, DT::Double };
    other.prefix = QStringLiteral("R1");
    const auto first = make(plain(1, t0()));
    const auto second = make(other);
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    form.setMergeType(1);
    form.setOscillogramName(QStringLiteral("Склейка"));
    const Pressed declined = pressDone(form, QMessageBox::No);
    QCOMPARE(declined.emitted, 0);
    QCOMPARE(declined.box.title, QStringLiteral("Проверка конфигурации"));
    QCOMPARE(declined.box.text,
        QStringLiteral("Конфигурации осциллограмм отличаются. Удовлетворительный результат склейки не "
                       "гарантируется. \r\nПродолжить склейку?"));
    QCOMPARE(pressDone(form, QMessageBox::Yes).emitted, 1);

    // Records alike in channels are glued without the question.
    const auto alike = make(plain(1, at(100000)));
    form.setOscillograms(named({ first, alike }));
    QSignalSpy done(&form, &MergeSettingsForm::sigDoneButtonTriggered);
    form.slotDone();
    QCOMPARE(done.count(), 1);
}

void TestMergeForms::typeChoiceShowsItsDescriptionAndChannels()
{
    const auto first = make(plain(1, t0()));
    const auto second = make(plain(2, at(-1000000)));
    MergeSettingsForm form;
    form.setOscillograms(named({ first, second }));
    auto* description = form.findChild<QLabel*>(QStringLiteral("l_description"));
    QVERIFY(description);
    QCOMPARE(description->text(), QStringLiteral("Объединение всех каналов выбранных осциллограмм."));
    // Every channel of both, in the list's order.
    QCOMPARE(form.channelList()->count(), 6);
    QCOMPARE(form.channelList()->item(0)->text(), QStringLiteral("R11"));
    form.findChild<QRadioButton*>(QStringLiteral("rb_horisontal"))->click();
    QCOMPARE(form.mergeType(), 1);
    QCOMPARE(description->text(), QStringLiteral("Склейка одноименных каналов разных осциллограмм."));
    // The earliest record's channels only.
    QCOMPARE(form.channelList()->count(), 3);
    QCOMPARE(form.channelList()->item(0)->text(), QStringLiteral("R21"));
    QCOMPARE(form.chosenOscillograms().first(), QSharedPointer<Oscillogram>(second));
    if (qEnvironmentVariableIsSet("KORVANE_MERGE_PICTURES")) {
        form.resize(640, 480);
        form.grab().save(qEnvironmentVariable("KORVANE_MERGE_PICTURES") + QStringLiteral("/gluing.png"));
    }
}

void TestMergeForms::unknownTypeStartsNoTask()
{
    Oscillograms::instance()->add(QStringLiteral("a"), make(plain(1, t0())));
    DiaMergeSetup dialog;
    dialog.form()->setMergeType(2);
    dialog.form()->setOscillogramName(QStringLiteral("x"));
    QVERIFY(!dialog.form()->createTask());
    QSignalSpy started(&dialog, &DiaMergeSetup::sigMergeStarted);
    dialog.slotMergeOscillograms(QStringLiteral("x"));
    QCOMPARE(started.count(), 0);
    QVERIFY(!dialog.runningTask());
    QCOMPARE(Oscillograms::instance()->filenames(), QStringList { "a" });
}

void TestMergeForms::dialogAddsTheMergedRecordToTheRegistry()
{
    Oscillograms::instance()->add(QStringLiteral("a.cfg"), make(plain(1, t0())));
    Oscillograms::instance()->add(QStringLiteral("b.cfg"), make(plain(2, at(50000))));
    DiaMergeSetup dialog;
    QCOMPARE(dialog.form()->oscillogramList()->count(), 2);
    dialog.form()->setOscillogramName(QStringLiteral("Общая"));
    if (qEnvironmentVariableIsSet("KORVANE_MERGE_PICTURES"))
        dialog.grab().save(qEnvironmentVariable("KORVANE_MERGE_PICTURES") + QStringLiteral("/dialog.png"));
    dialog.show();
    QSignalSpy merged(&dialog, &DiaMergeSetup::sigOscillogramMerged);
    QSignalSpy accepted(&dialog, &QDialog::accepted);
    dialog.form()->doneButton()->click();
    QVERIFY(merged.wait(20000));
    QCOMPARE(merged[0][1].toString(), QStringLiteral("Общая"));
    const auto record = Oscillograms::instance()->get(QStringLiteral("Общая"));
    QVERIFY(record);
    // Two records of two analogue channels each, 100 samples, the second 50 samples later.
    QCOMPARE(record->countOfAnalogChannels(), 4);
    QCOMPARE(record->countOfSamples(), 150);
    QCOMPARE(accepted.count(), 1);
}

void TestMergeForms::cancelledMergeLeavesNoRecord_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("stage");
    for (const char* stage : { "Расчет параметров склейки", "Выделение памяти", "Склейка", "Объединение",
             "Подготовка результата" })
        QTest::newRow(stage) << 0 << QString::fromUtf8(stage);
    QTest::newRow("gluing") << 1 << QStringLiteral("Склейка");
}

void TestMergeForms::cancelledMergeLeavesNoRecord()
{
    QFETCH(int, type);
    QFETCH(QString, stage);
    Oscillograms::instance()->add(QStringLiteral("a.cfg"), make(plain(1, t0(), 20000)));
    Description later = plain(2, at(50000), 20000);
    later.prefix = QStringLiteral("R1");
    Oscillograms::instance()->add(QStringLiteral("b.cfg"), make(later));
    const QStringList before = Oscillograms::instance()->filenames();
    DiaMergeSetup dialog;
    dialog.form()->setMergeType(type);
    dialog.form()->setOscillogramName(QStringLiteral("Общая"));
    dialog.show();
    // The cancel comes from the worker itself, at the stage's first report.
    connect(&dialog, &DiaMergeSetup::sigMergeStarted, this, [stage](OscillogramMergeTask* task) {
        connect(
            task, &TaskBase::progressChanged, task,
            [task, stage](const QString& reported) {
                if (reported == stage)
                    task->cancel();
            },
            Qt::DirectConnection);
    });
    QSignalSpy failed(&dialog, &DiaMergeSetup::sigMergeFailed);
    QSignalSpy merged(&dialog, &DiaMergeSetup::sigOscillogramMerged);
    dialog.form()->doneButton()->click();
    QVERIFY(failed.wait(20000));
    QCOMPARE(merged.count(), 0);
    QCOMPARE(Oscillograms::instance()->filenames(), before);
    QVERIFY(dialog.isVisible());
    QVERIFY(!dialog.runningTask());
}

void TestMergeForms::failedMergeTellsWhyAndLeavesNoRecord()
{
    const auto record = make(plain(1, t0()));
    Oscillograms::instance()->add(QStringLiteral("a.cfg"), record);
    Oscillograms::instance()->add(QStringLiteral("b.clc"), QSharedPointer<ClcOscillogram>::create());
    const QString before = state(*record);
    DiaMergeSetup dialog;
    dialog.form()->setVerticalMergeMode(2);
    dialog.form()->setOscillogramName(QStringLiteral("Общая"));
    dialog.show();
    QSignalSpy failed(&dialog, &DiaMergeSetup::sigMergeFailed);
    SeenBox box;
    // Straight to the merge, past the form's checks, as Done leads there.
    dialog.slotMergeOscillograms(QStringLiteral("Общая"));
    closeNextMessageBox(box);
    QVERIFY(failed.wait(20000));
    QTRY_COMPARE(box.title, QStringLiteral("Объединение осциллограмм"));
    QCOMPARE(box.text,
        QStringLiteral(
            "Эта версия поддерживает объединение только осциллограмм Wv2, Comtrade и осциллограмм, "
            "обединенных из Wv2 или Comtrade."));
    QCOMPARE(Oscillograms::instance()->filenames(), (QStringList { "a.cfg", "b.clc" }));
    QCOMPARE(state(*record), before);
}

void TestMergeForms::viewOffersTheMergeAndShowsTheResult()
{
    const auto record = make(plain(1, t0()));
    Oscillograms::instance()->add(QStringLiteral("a.cfg"), record);
    Oscillograms::instance()->add(QStringLiteral("b.cfg"), make(plain(2, at(20000))));
    OscillogramView view(m_settings);
    view.setOscillogram(record);
    view.initByDefault();
    view.showToolbar();
    QAction* merge = view.action(ViewAction::Merge);
    QVERIFY(merge);
    QCOMPARE(merge->text(), QStringLiteral("Объединить сигналы открытых осциллограмм в одну осциллограмму"));
    QVERIFY(view.toolBar()->actions().contains(merge));

    // With no host listening, the merged record opens in a view window of its own.
    merge->trigger();
    auto* dialog = view.findChild<DiaMergeSetup*>();
    QVERIFY(dialog);
    dialog->form()->setOscillogramName(QStringLiteral("Общая"));
    dialog->form()->doneButton()->click();
    OscillogramView* shown = nullptr;
    QTRY_VERIFY_WITH_TIMEOUT(
        [&shown]() {
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (auto* other = qobject_cast<OscillogramView*>(window); other && other->isVisible())
                    shown = other;
            }
            return shown != nullptr;
        }(),
        20000);
    QCOMPARE(
        shown->oscillogramViewModel()->oscillogram(), Oscillograms::instance()->get(QStringLiteral("Общая")));
    QVERIFY(shown->isModified());
    if (qEnvironmentVariableIsSet("KORVANE_MERGE_PICTURES")) {
        shown->resize(1000, 600);
        QApplication::processEvents();
        shown->grab().save(qEnvironmentVariable("KORVANE_MERGE_PICTURES") + QStringLiteral("/merged.png"));
    }

    // A host that listens gets the name instead.
    QSignalSpy handed(&view, &OscillogramView::sigOscillogramMerged);
    merge->trigger();
    dialog = nullptr;
    for (auto* child : view.findChildren<DiaMergeSetup*>()) {
        if (child->isVisible())
            dialog = child;
    }
    QVERIFY(dialog);
    dialog->form()->setOscillogramName(QStringLiteral("Вторая"));
    dialog->form()->setOscillogramChosen(2, false);
    dialog->form()->doneButton()->click();
    QVERIFY(handed.wait(20000));
    QCOMPARE(handed[0][0].toString(), QStringLiteral("Вторая"));
}

QTEST_MAIN(TestMergeForms)
#include "tst_mergeforms.moc"
