#include "ComtradeFixture.h"
#include "MainWindow.h"

#include "Model/EasyLibKorvane.h"
#include "Model/Oscillograms.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramMerge/DiaMergeSetup.h"
#include "Views/OscillogramMerge/MergeSettingsForm.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

// The viewer's tabs and the merge: the dialog offers the records of the open tabs, and the merged
// record opens in a tab of its own.
class TestMergeViewer : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        EasyLibKorvane::initialize();
        qRegisterMetaType<OscillogramView*>();
    }

    void mergedRecordOpensInANewTab()
    {
        auto settings = QSharedPointer<KorvaneSettings>::create();
        MainWindow window(settings);
        window.show();
        QSignalSpy opened(&window, &MainWindow::recordOpened);
        for (const QString& name : { QStringLiteral("first"), QStringLiteral("second") }) {
            KorvaneTest::ComtradeSetDescription set;
            set.samples = 200;
            QVERIFY(KorvaneTest::writeComtradeSet(m_dir.filePath(name), set));
            window.openRecord(m_dir.filePath(name) + QStringLiteral(".cfg"));
            QVERIFY(opened.wait(20000));
        }
        QCOMPARE(window.tabs()->count(), 2);
        QCOMPARE(Oscillograms::instance()->allWaves().size(), 2);

        OscillogramView* view = window.viewAt(0);
        view->action(ViewAction::Merge)->trigger();
        auto* dialog = view->findChild<DiaMergeSetup*>();
        QVERIFY(dialog);
        QCOMPARE(dialog->form()->oscillogramList()->count(), 2);
        dialog->form()->setOscillogramName(QStringLiteral("Общая"));
        dialog->form()->doneButton()->click();
        QVERIFY(opened.wait(20000));
        QCOMPARE(window.tabs()->count(), 3);
        QCOMPARE(window.tabs()->tabText(2), QStringLiteral("Общая *"));
        QCOMPARE(window.viewAt(2)->oscillogramViewModel()->oscillogram(),
            Oscillograms::instance()->get(QStringLiteral("Общая")));
        QVERIFY(window.viewAt(2)->isModified());

        // A closed tab's record is no longer offered.
        const auto closed = window.viewAt(1)->oscillogramViewModel()->oscillogram();
        QVERIFY(window.closeTab(1));
        QVERIFY(Oscillograms::instance()->key(closed).isEmpty());
        QCOMPARE(Oscillograms::instance()->allWaves().size(), 2);
        window.viewAt(1)->resetModified();
    }

private:
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestMergeViewer)
#include "tst_mergeviewer.moc"
