#include "ComtradeFixture.h"
#include "FixtureFiles.h"
#include "ModalDialogs.h"
#include "Model/AnalogChannel.h"
#include "Model/ClcOscillogram.h"
#include "Model/ComtradeOscillogram.h"
#include "Model/EasyLibKorvane.h"
#include "Model/OscillogramLoader.h"
#include "Model/Oscillograms.h"
#include "PlotRecords.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsProvider.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QFile>
#include <QFontMetrics>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUndoStack>

namespace {
// A record of 3000 samples at 1000 Hz whose trigger, at sample 500, is 10:00:00.600: it begins at
// 10:00:00.100, so its first samples lie in the trigger's second.
QSharedPointer<SimpleOscillogram> recordInTriggerSecond()
{
    auto record = PlotRecords::makeRecord(1, 1, 3000, 500);
    record->setTriggerTime(PreciseDateTime(2024, 3, 1, 10, 0, 0, 600000, 0));
    return record;
}

// "text<TAB>keys" per action, "|" per separator.
QStringList describe(const QList<QAction*>& actions)
{
    QStringList rows;
    for (QAction* action : actions) {
        if (action->isSeparator())
            rows << QStringLiteral("|");
        else
            rows << action->text() + QLatin1Char('\t') + action->shortcut().toString();
    }
    return rows;
}
} // namespace

class TestOscillogramView : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        EasyLibKorvane::initialize();
    }
    void init()
    {
        m_settings = QSharedPointer<KorvaneSettings>::create(SettingsProvider::settings());
        m_view.reset(new OscillogramView(m_settings));
        m_view->showToolbar();
    }
    void cleanup() { m_view.reset(); }

    void constructionDefaults();
    void toolBarHoldsTheBuiltToolsInOrder();
    void saveButtonCarriesTheSaveMenu();
    void saveMenuEntriesOpenTheirDialogs();
    void toolTipsAndCheckableActions();
    void everyIconPairIsInTheResources();
    void scaleActionsCrossOver();
    void clcRecordDisablesTheAnalysisActions();
    void primaryAndSecondaryTakeTurns();
    void startOfSecondOfTheFirstSecondEndsAtSampleZero();
    void endOfSecondEndsAtTheLastSampleOfTheSecond();
    void setOscillogramNamesTheViewAndItsSavePath();
    void areaSizesShareTheSplitter_data();
    void areaSizesShareTheSplitter();
    void modifiedFollowsTheModelAndTheUndoStack();
    void openFillsTheView();
    void compactAndFullModesSetTheRowHeights();
    void listsOfAnAbsentKindAreHidden();
    void resizeAreaSharesTheSplitters();
    void triggerAndMarkersGoThroughUndo();
    void splitterMoveGoesThroughUndo();
    void openOfAnUnknownFormatGivesNoLoader();
    void failedOpenLeavesTheViewEmpty();

private:
    QAction* action(ViewAction::Id id) const { return m_view->action(id); }

    QSharedPointer<KorvaneSettings> m_settings;
    QScopedPointer<OscillogramView> m_view;
};

void TestOscillogramView::constructionDefaults()
{
    QCOMPARE(m_view->undoStack()->undoLimit(), 500);
    QCOMPARE(m_view->size(), QSize(700, 700));
    QVERIFY(!m_view->updatesEnabled());
    QTest::qWait(1);
    QVERIFY(m_view->updatesEnabled());
    QStringList texts;
    for (QAction* a : m_view->actions())
        texts << a->text();
    QVERIFY(texts.contains(QStringLiteral("&Undo")));
    QVERIFY(texts.contains(QStringLiteral("&Redo")));
}

void TestOscillogramView::toolBarHoldsTheBuiltToolsInOrder()
{
    const QList<QAction*> actions = m_view->toolBar()->actions();
    QVERIFY(!actions.isEmpty());
    // The first item is the save button; the rest follow the table of the tool bar, leaving out
    // the tools that do not exist yet but keeping the separators between groups.
    const QStringList expected = {
        QStringLiteral("Настройки Korvane\t"),
        QStringLiteral("Печать осциллограммы\tAlt+P"),
        QStringLiteral("|"),
        QStringLiteral("Растянуть по времени\t"),
        QStringLiteral("Сжать по времени\t"),
        QStringLiteral("Показать все\t"),
        QStringLiteral("Компактный режим\t"),
        QStringLiteral("Полный режим\t"),
        QStringLiteral("|"),
        QStringLiteral("Первичные значения\tCtrl+1"),
        QStringLiteral("Вторичные значения\tCtrl+2"),
        QStringLiteral("|"),
        QStringLiteral("Начало замера времени\t"),
        QStringLiteral("Сохранить последний замер времени\t"),
        QStringLiteral("Удалить последний замер времени\t"),
        QStringLiteral("Удалить все замеры времени\t"),
        QStringLiteral("|"),
        QStringLiteral("Установить маркер\t"),
        QStringLiteral("Сбросить все маркеры\t"),
        QStringLiteral("Таблица маркеров\t"),
        QStringLiteral("|"),
        QStringLiteral("Выделенные сигналы\t"),
        QStringLiteral("Все сигналы\t"),
        QStringLiteral("Отменить выделение\tEsc"),
        QStringLiteral("|"),
        QStringLiteral("Установить ноль времени\t"),
        QStringLiteral("В начало секунды\t"),
        QStringLiteral("В конец секунды\t"),
        QStringLiteral("|"),
        QStringLiteral("Объединить сигналы открытых осциллограмм в одну осциллограмму\t"),
    };
    QCOMPARE(describe(actions.mid(1)), expected);
}

void TestOscillogramView::saveButtonCarriesTheSaveMenu()
{
    auto* button = m_view->toolBar()->findChild<QToolButton*>(QStringLiteral("pb_save"));
    QVERIFY(button);
    QCOMPARE(button->popupMode(), QToolButton::MenuButtonPopup);
    QCOMPARE(button->defaultAction()->text(), QStringLiteral("Сохранить осциллограмму"));
    QCOMPARE(button->defaultAction()->shortcut(), QKeySequence(QStringLiteral("Alt+S")));
    QCOMPARE(describe(button->menu()->actions()),
        QStringList({ QStringLiteral("Сохранить осциллограмму как...\tAlt+Shift+S"),
            QStringLiteral("Экспорт осциллограммы как CSV...\tAlt+C") }));
}

// Each entry of the save menu opens its dialog; the CSV one writes the table of the record.
void TestOscillogramView::saveMenuEntriesOpenTheirDialogs()
{
    m_view->setOscillogram(PlotRecords::makeRecord(1, 1, 3));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("view.csv"));
    QString comtradeDialog;
    whenModalOpens([&comtradeDialog](QWidget* modal) {
        comtradeDialog = QString::fromLatin1(modal->metaObject()->className());
        static_cast<QDialog*>(modal)->reject();
    });
    action(ViewAction::SaveAs)->trigger();
    QCOMPARE(comtradeDialog, QStringLiteral("ComtradeSaveSettings"));

    QString csvDialog;
    whenModalOpens([&csvDialog, path](QWidget* modal) {
        csvDialog = QString::fromLatin1(modal->metaObject()->className());
        modal->findChild<QLineEdit*>(QStringLiteral("le_path"))->setText(path);
        QTest::mouseClick(modal->findChild<QPushButton*>(QStringLiteral("pb_save")), Qt::LeftButton);
    });
    SeenBox seen;
    closeNextMessageBox(seen);
    QVERIFY(action(ViewAction::ExportCsv)->isEnabled());
    action(ViewAction::ExportCsv)->trigger();
    QCOMPARE(csvDialog, QStringLiteral("CsvSaveSettings"));
    QCOMPARE(seen.text, QStringLiteral("Осциллограмма сохранена"));
    const QList<QByteArray> lines = KorvaneTest::readFile(path).split('\n');
    // The header, three rows and the empty piece after the last line feed.
    QCOMPARE(lines.size(), 5);
    QVERIFY(lines.first().startsWith("step;time;"));
}

void TestOscillogramView::toolTipsAndCheckableActions()
{
    using namespace ViewAction;
    QCOMPARE(action(FitXScale)->toolTip(),
        QStringLiteral("Подобрать масштаб, чтобы было видно всю запись от начала до конца"));
    QCOMPARE(action(Primary)->toolTip(), QStringLiteral("Показывать первичные значения"));
    QCOMPARE(action(Secondary)->toolTip(), QStringLiteral("Показывать вторичные значения"));
    QCOMPARE(action(MarkerAdd)->toolTip(), QStringLiteral("Установить маркер в текущей временной метке"));
    QCOMPARE(action(SelectedChannels)->toolTip(), QStringLiteral("Оставить только выделенные сигналы"));
    // Without a tool tip of its own, an action shows its text.
    QCOMPARE(action(MarkersTable)->toolTip(), QStringLiteral("Таблица маркеров"));
    QVERIFY(action(Primary)->isCheckable());
    QVERIFY(action(Secondary)->isCheckable());
    QVERIFY(!action(FitXScale)->isCheckable());
    // The context menu of an analogue row offers the merge first, then the colours.
    QCOMPARE(describe(m_view->analogActionList()),
        QStringList({ QStringLiteral("Объединить сигналы открытых осциллограмм в одну осциллограмму\t"),
            QStringLiteral("Выбрать цвет\t"), QStringLiteral("Стандартный цвет\t") }));
}

void TestOscillogramView::everyIconPairIsInTheResources()
{
    using namespace ViewAction;
    for (int id = 0; id < Count; ++id) {
        const Description& row = description(Id(id));
        if (!row.icon)
            continue;
        const QString plain = QLatin1String(row.icon);
        const QString active = row.activeIcon ? QLatin1String(row.activeIcon) : plain + QStringLiteral("_2");
        for (const QString& name : { plain, active })
            QVERIFY2(QFile::exists(QStringLiteral(":/icons/%1.svg").arg(name)), qPrintable(name));
    }
}

void TestOscillogramView::scaleActionsCrossOver()
{
    m_view->setOscillogram(PlotRecords::makeRecord(1, 0, 1000));
    const auto model = m_view->oscillogramViewModel();
    action(ViewAction::ScaleDown)->trigger(); // "Растянуть по времени"
    QCOMPARE(model->xScale(), 1.0 / 1.1);
    action(ViewAction::ScaleUp)->trigger(); // "Сжать по времени"
    action(ViewAction::ScaleUp)->trigger();
    QCOMPARE(model->xScale(), 1.0 * 1.1);
}

void TestOscillogramView::clcRecordDisablesTheAnalysisActions()
{
    using namespace ViewAction;
    m_view->setOscillogram(QSharedPointer<ClcOscillogram>::create());
    for (Id id : { Primary, Secondary, SetTrigger })
        QVERIFY2(!action(id)->isEnabled(), qPrintable(action(id)->text()));
    m_view->setOscillogram(QSharedPointer<ComtradeOscillogram>::create());
    QVERIFY(action(SetTrigger)->isEnabled());
    // Primary values are in force: checked, and only the secondary ones can be chosen.
    QVERIFY(action(Primary)->isChecked());
    QVERIFY(!action(Primary)->isEnabled());
    QVERIFY(action(Secondary)->isEnabled());
}

void TestOscillogramView::primaryAndSecondaryTakeTurns()
{
    m_view->setOscillogram(PlotRecords::makeRecord(1, 0, 1000));
    const auto model = m_view->oscillogramViewModel();
    QSignalSpy viewSpy(m_view.data(), &OscillogramView::sigPrimSecModeChanged);
    QSignalSpy modelSpy(model.data(), &OscillogramViewModel::sigSetPrimSecMode);
    action(ViewAction::Secondary)->trigger();
    QCOMPARE(model->primSecMode(), 1);
    QCOMPARE(viewSpy.count(), 1);
    QCOMPARE(viewSpy.at(0).at(0).toInt(), 1);
    QCOMPARE(modelSpy.count(), 1);
    QVERIFY(action(ViewAction::Secondary)->isChecked());
    QVERIFY(!action(ViewAction::Secondary)->isEnabled());
    QVERIFY(!action(ViewAction::Primary)->isChecked());
    QVERIFY(action(ViewAction::Primary)->isEnabled());
    action(ViewAction::Primary)->trigger();
    QCOMPARE(model->primSecMode(), 0);
    QVERIFY(action(ViewAction::Primary)->isChecked());
    QVERIFY(!action(ViewAction::Secondary)->isChecked());
}

void TestOscillogramView::startOfSecondOfTheFirstSecondEndsAtSampleZero()
{
    const auto record = recordInTriggerSecond();
    m_view->setOscillogram(record);
    QCOMPARE(OscillogramView::previousSecondSample(*record), 0);
    action(ViewAction::PrevSecond)->trigger();
    QCOMPARE(record->countOfPreFailureSamples(), 0);
    QVERIFY(m_view->triggerChanged());
}

void TestOscillogramView::endOfSecondEndsAtTheLastSampleOfTheSecond()
{
    const auto record = recordInTriggerSecond();
    m_view->setOscillogram(record);
    // The second 10:00:00 ends with the sample at .999, that is 0.899 s after the first sample.
    QCOMPARE(OscillogramView::nextSecondSample(*record), 899);
    action(ViewAction::NextSecond)->trigger();
    QCOMPARE(record->countOfPreFailureSamples(), 899);
}

void TestOscillogramView::setOscillogramNamesTheViewAndItsSavePath()
{
    auto record = QSharedPointer<ComtradeOscillogram>::create();
    record->setFilename(QStringLiteral("/data/records/fault 12.cfg"));
    m_view->setOscillogram(record);
    QCOMPARE(m_view->oscillogramViewName(), QStringLiteral("fault 12.cfg"));
    QVERIFY(m_view->temporaryFilePath().endsWith(QStringLiteral("/fault 12.cfg")));
    QVERIFY(!m_view->temporaryFilePath().startsWith(QStringLiteral("/data/records")));
}

void TestOscillogramView::areaSizesShareTheSplitter_data()
{
    QTest::addColumn<int>("splitter");
    QTest::addColumn<int>("analog");
    QTest::addColumn<int>("digital");
    QTest::addColumn<QList<int>>("sizes");
    // 1000 pixels: 300 is 30 % for the discrete part, 700 for the analogue one.
    QTest::newRow("both overflow: 70/30") << 1000 << 900 << 500 << QList<int>({ 700, 300 });
    QTest::newRow("analogue overflows, discrete fits in 30 %")
        << 1000 << 2000 << 120 << QList<int>({ 880, 120 });
    QTest::newRow("analogue fits: it takes its content") << 1000 << 400 << 900 << QList<int>({ 400, 600 });
    QTest::newRow("all fits") << 1000 << 300 << 200 << QList<int>({ 300, 700 });
    // trunc(0.3 * 999) = 299.
    QTest::newRow("30 % is truncated") << 999 << 5000 << 5000 << QList<int>({ 700, 299 });
}

void TestOscillogramView::areaSizesShareTheSplitter()
{
    QFETCH(int, splitter);
    QFETCH(int, analog);
    QFETCH(int, digital);
    QFETCH(QList<int>, sizes);
    QCOMPARE(OscillogramView::areaSizes(splitter, analog, digital), sizes);
}

void TestOscillogramView::modifiedFollowsTheModelAndTheUndoStack()
{
    QVERIFY(!m_view->isModified());
    m_view->setIsModified(true);
    QVERIFY(m_view->isModified());
    m_view->resetModified();
    QVERIFY(!m_view->isModified());
    m_view->undoStack()->push(new QUndoCommand(QStringLiteral("a change")));
    QVERIFY(m_view->isModified());
    m_view->resetModified();
    QVERIFY(!m_view->isModified());
}

void TestOscillogramView::triggerAndMarkersGoThroughUndo()
{
    const auto record = recordInTriggerSecond();
    m_view->setOscillogram(record);
    const auto model = m_view->oscillogramViewModel();
    model->setCurrentSample(800);
    action(ViewAction::SetTrigger)->trigger();
    QCOMPARE(record->countOfPreFailureSamples(), 800);
    QVERIFY(m_view->isModified());
    action(ViewAction::MarkerAdd)->trigger();
    action(ViewAction::MarkerAdd)->trigger(); // a marker stands there already: nothing more
    QCOMPARE(model->markers()->items().size(), 1);
    QCOMPARE(m_view->undoStack()->count(), 2);
    m_view->undoStack()->undo();
    QCOMPARE(model->markers()->items().size(), 0);
    m_view->undoStack()->undo();
    QCOMPARE(record->countOfPreFailureSamples(), 500);
}

void TestOscillogramView::splitterMoveGoesThroughUndo()
{
    m_view->resize(900, 600);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.data()));
    QSplitter* splitter = m_view->lrSplitter();
    const QList<int> before = splitter->sizes();
    splitter->setSizes({ before.at(0) + 60, before.at(1) - 60 });
    emit splitter->splitterMoved(before.at(0) + 60, 1);
    QCOMPARE(m_view->undoStack()->count(), 1);
    const QList<int> moved = splitter->sizes();
    QVERIFY(moved != before);
    splitter->setSizes(before);
    m_view->undoStack()->undo();
    // The command read the sizes after the move: undo returns to where the move ended.
    QCOMPARE(splitter->sizes(), moved);
}

void TestOscillogramView::compactAndFullModesSetTheRowHeights()
{
    m_view->setOscillogram(PlotRecords::makeRecord(2, 1, 1000));
    m_view->initByDefault();
    const auto model = m_view->oscillogramViewModel();
    // One panel a row: compact is two text lines and a pixel, full the default row height.
    const int line = QFontMetrics(QFont()).height();
    action(ViewAction::CompactMode)->trigger();
    QVERIFY(model->isCompactMode());
    QCOMPARE(model->chanRowHeight(0), 2 * line + 1);
    QCOMPARE(model->chanRowHeight(1), 2 * line + 1);
    QCOMPARE(m_view->aChanPlotList()->rowHeight(0), 2 * line + 1);
    QCOMPARE(m_view->aChanParList()->rowHeight(1), 2 * line + 1);
    action(ViewAction::FullMode)->trigger();
    QVERIFY(!model->isCompactMode());
    QCOMPARE(model->chanRowHeight(0), OscillogramViewModel::defaultRowHeight());
    QCOMPARE(m_view->aChanPlotList()->rowHeight(1), OscillogramViewModel::defaultRowHeight());
}

void TestOscillogramView::listsOfAnAbsentKindAreHidden()
{
    m_view->show();
    m_view->setOscillogram(PlotRecords::makeRecord(2, 0, 1000));
    m_view->initByDefault();
    QVERIFY(m_view->aChanPlotList()->isVisible());
    QVERIFY(!m_view->dChanPlotList()->isVisible());
    QVERIFY(!m_view->dChanParList()->isVisible());
    m_view->setOscillogram(PlotRecords::makeRecord(0, 3, 1000));
    m_view->initByDefault();
    QVERIFY(!m_view->aChanPlotList()->isVisible());
    QVERIFY(!m_view->aChanParList()->isVisible());
    QVERIFY(m_view->dChanPlotList()->isVisible());
}

void TestOscillogramView::resizeAreaSharesTheSplitters()
{
    m_view->resize(900, 700);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.data()));
    m_view->setOscillogram(PlotRecords::makeRecord(12, 3, 1000));
    m_view->initByDefault();
    auto* image = qobject_cast<QSplitter*>(m_view->aChanPlotList()->parentWidget());
    auto* list = qobject_cast<QSplitter*>(m_view->aChanParList()->parentWidget());
    QVERIFY(image && list);
    // Twelve analogue rows overflow, three discrete ones fit in 30 %: they get their height.
    const QList<int> sizes = image->sizes();
    QCOMPARE(sizes.at(1), m_view->dChanPlotList()->contentHeight());
    QCOMPARE(list->sizes(), sizes);
}

void TestOscillogramView::openFillsTheView()
{
    QTemporaryDir dir;
    KorvaneTest::ComtradeSetDescription set;
    set.samples = 120;
    const QString base = dir.filePath(QStringLiteral("opened"));
    QVERIFY(KorvaneTest::writeComtradeSet(base, set));
    const QString path = base + QStringLiteral(".cfg");
    QWidget parent;
    OscillogramLoader* loader = EasyLibKorvane::open(path, &parent, m_view.data());
    QVERIFY(loader);
    // Connected after the call returned: the loader has not started yet, so nothing is missed.
    QSignalSpy completed(loader, &TaskBase::completed);
    QVERIFY(completed.wait(20000));
    QTRY_VERIFY(m_view->oscillogramViewModel()->oscillogram());
    const auto record = m_view->oscillogramViewModel()->oscillogram();
    QCOMPARE(record->countOfSamples(), 120);
    QCOMPARE(record->countOfAnalogChannels(), 2);
    QCOMPARE(m_view->oscillogramViewName(), QStringLiteral("opened.cfg"));
    QVERIFY(Oscillograms::instance()->contains(path));
}

void TestOscillogramView::openOfAnUnknownFormatGivesNoLoader()
{
    SeenBox seen;
    closeNextMessageBox(seen);
    QWidget parent;
    QVERIFY(!EasyLibKorvane::open(QStringLiteral("/nowhere/notes.txt"), &parent, m_view.data()));
    QCOMPARE(seen.title, QStringLiteral("Загрузка файла"));
    QCOMPARE(seen.text, QStringLiteral("Формат файла не поддерживается."));
    QVERIFY(!m_view->oscillogramViewModel()->oscillogram());
}

void TestOscillogramView::failedOpenLeavesTheViewEmpty()
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("broken.cfg"));
    QVERIFY(KorvaneTest::writeFile(path, "not a configuration\n"));
    SeenBox seen;
    closeNextMessageBox(seen);
    QWidget parent;
    OscillogramLoader* loader = EasyLibKorvane::open(path, &parent, m_view.data());
    QVERIFY(loader);
    QSignalSpy failed(loader, &TaskBase::error);
    QVERIFY(failed.wait(20000));
    QTRY_COMPARE(seen.title, QStringLiteral("Загрузка файла"));
    QVERIFY(!seen.text.isEmpty());
    QVERIFY(!m_view->oscillogramViewModel()->oscillogram());
}

QTEST_MAIN(TestOscillogramView)
#include "tst_oscillogramview.moc"
