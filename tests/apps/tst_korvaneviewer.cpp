#include "ComtradeFixture.h"
#include "FixtureFiles.h"
#include "MainWindow.h"
#include "ModalDialogs.h"

#include "Model/EasyLibKorvane.h"
#include "Model/Oscillogram.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"

#include <QDirIterator>
#include <QDropEvent>
#include <QImage>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

namespace {
struct Run
{
    int exitCode = -1;
    QString out;
    QString err;
};

// Runs the viewer with its settings in the folder given, without a screen.
Run runViewer(const QStringList& arguments, const QString& configHome)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(KORVANE_HOST), arguments);
    process.waitForFinished(120000);
    return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
        QString::fromUtf8(process.readAllStandardError()) };
}

QString settingsFileIn(const QString& folder)
{
    QDirIterator files(folder, { QStringLiteral("Korvane.ini") }, QDir::Files, QDirIterator::Subdirectories);
    return files.hasNext() ? files.next() : QString();
}
} // namespace

class TestKorvaneViewer : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void cleanup();

    void droppedFileOpensInATab();
    void damagedFileShowsTheMessageAndNoTab();
    void unknownFormatShowsTheMessageAndNoTab();
    void closingAModifiedRecordAsks_data();
    void closingAModifiedRecordAsks();
    void openedFilesJoinTheRecentFiles();
    void fileFilterNamesTheSuffixesOfRecords();

    void commandLineOpensAndGrabsTheWindow();
    void recentFilesLastAcrossRuns();
    void summaryPrintsTheRecord();

private:
    QString writeRecord(const QString& name, int samples = 400);
    bool waitForOpen(QSignalSpy& spy) { return spy.count() > 0 || spy.wait(20000); }

    QTemporaryDir m_dir;
    QSharedPointer<KorvaneSettings> m_settings;
    QScopedPointer<MainWindow> m_window;
};

void TestKorvaneViewer::initTestCase()
{
    QStandardPaths::setTestModeEnabled(true);
    EasyLibKorvane::initialize();
    qRegisterMetaType<OscillogramView*>();
}

void TestKorvaneViewer::init()
{
    m_settings = QSharedPointer<KorvaneSettings>::create();
    m_settings->clearLastOpenFiles();
    m_window.reset(new MainWindow(m_settings));
    m_window->show();
}

void TestKorvaneViewer::cleanup()
{
    for (int i = 0; m_window && i < m_window->tabs()->count(); ++i)
        m_window->viewAt(i)->resetModified();
    m_window.reset();
}

QString TestKorvaneViewer::writeRecord(const QString& name, int samples)
{
    KorvaneTest::ComtradeSetDescription set;
    set.samples = samples;
    const QString base = m_dir.filePath(name);
    if (!KorvaneTest::writeComtradeSet(base, set))
        return {};
    return base + QStringLiteral(".cfg");
}

void TestKorvaneViewer::droppedFileOpensInATab()
{
    const QString path = writeRecord(QStringLiteral("dropped"));
    QSignalSpy opened(m_window.data(), &MainWindow::recordOpened);
    QMimeData mime;
    mime.setUrls({ QUrl::fromLocalFile(path) });
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.data(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.data(), &drop);
    QVERIFY(waitForOpen(opened));
    QCOMPARE(m_window->tabs()->count(), 1);
    QCOMPARE(m_window->tabs()->tabText(0), QStringLiteral("dropped.cfg"));
    const auto record = m_window->viewAt(0)->oscillogramViewModel()->oscillogram();
    QVERIFY(record);
    QCOMPARE(record->countOfSamples(), 400);
    QCOMPARE(m_window->pendingLoads(), 0);
}

void TestKorvaneViewer::damagedFileShowsTheMessageAndNoTab()
{
    QSignalSpy opened(m_window.data(), &MainWindow::recordOpened);
    m_window->openRecord(writeRecord(QStringLiteral("good")));
    QVERIFY(waitForOpen(opened));
    // A .cfg whose first lines are not a configuration at all.
    const QString damaged = m_dir.filePath(QStringLiteral("damaged.cfg"));
    QVERIFY(KorvaneTest::writeFile(damaged, "this is no configuration\n"));
    SeenBox seen;
    closeNextMessageBox(seen);
    QSignalSpy failed(m_window.data(), &MainWindow::openFailed);
    m_window->openRecord(damaged);
    QVERIFY(failed.wait(20000));
    QTRY_COMPARE(seen.title, QStringLiteral("Загрузка файла"));
    QVERIFY(!seen.text.isEmpty());
    QCOMPARE(seen.icon, QMessageBox::Critical);
    QCOMPARE(m_window->tabs()->count(), 1);
    QCOMPARE(m_window->tabs()->tabText(0), QStringLiteral("good.cfg"));
    QCOMPARE(m_window->pendingLoads(), 0);
}

void TestKorvaneViewer::unknownFormatShowsTheMessageAndNoTab()
{
    SeenBox seen;
    closeNextMessageBox(seen);
    QSignalSpy failed(m_window.data(), &MainWindow::openFailed);
    m_window->openRecord(m_dir.filePath(QStringLiteral("notes.txt")));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(seen.text, QStringLiteral("Формат файла не поддерживается."));
    QCOMPARE(m_window->tabs()->count(), 0);
}

void TestKorvaneViewer::closingAModifiedRecordAsks_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closed");
    QTest::newRow("discard closes") << int(QMessageBox::Discard) << true;
    QTest::newRow("cancel keeps the tab") << int(QMessageBox::Cancel) << false;
}

void TestKorvaneViewer::closingAModifiedRecordAsks()
{
    QFETCH(int, answer);
    QFETCH(bool, closed);
    QSignalSpy opened(m_window.data(), &MainWindow::recordOpened);
    m_window->openRecord(writeRecord(QStringLiteral("changed")));
    QVERIFY(waitForOpen(opened));
    m_window->viewAt(0)->setIsModified(true);
    QString question;
    whenModalOpens([&question, answer](QWidget* modal) {
        auto* box = qobject_cast<QMessageBox*>(modal);
        question = box ? box->text() : QString();
        if (box)
            box->button(QMessageBox::StandardButton(answer))->click();
    });
    QCOMPARE(m_window->closeTab(0), closed);
    QVERIFY(question.contains(QStringLiteral("changed.cfg")));
    QCOMPARE(m_window->tabs()->count(), closed ? 0 : 1);
}

void TestKorvaneViewer::openedFilesJoinTheRecentFiles()
{
    QSignalSpy opened(m_window.data(), &MainWindow::recordOpened);
    const QString first = writeRecord(QStringLiteral("first"));
    const QString second = writeRecord(QStringLiteral("second"));
    m_window->openRecord(first);
    QVERIFY(waitForOpen(opened));
    m_window->openRecord(second);
    QTRY_COMPARE(opened.count(), 2);
    QCOMPARE(m_settings->lastOpenFiles().mid(0, 2), QStringList({ second, first }));
    QStringList menu;
    for (QAction* action : m_window->recentMenu()->actions())
        menu << action->text();
    QCOMPARE(menu.mid(0, 2), QStringList({ second, first }));
    // A recent file opens again from the menu.
    m_window->recentMenu()->actions().at(1)->trigger();
    QTRY_COMPARE(opened.count(), 3);
    QCOMPARE(m_window->tabs()->tabText(2), QStringLiteral("first.cfg"));
}

void TestKorvaneViewer::fileFilterNamesTheSuffixesOfRecords()
{
    const QString filter = MainWindow::fileFilter();
    for (const char* suffix : { "*.cfg", "*.zip", "*.wv2", "*.clc" })
        QVERIFY(filter.contains(QLatin1String(suffix)));
}

void TestKorvaneViewer::commandLineOpensAndGrabsTheWindow()
{
    const QString record = writeRecord(QStringLiteral("argument"));
    const QString picture = m_dir.filePath(QStringLiteral("window.png"));
    const Run run
        = runViewer({ QStringLiteral("--grab"), picture, record }, m_dir.filePath(QStringLiteral("cfg1")));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.contains(QStringLiteral("Analogue channels: 2, digital channels: 3")));
    QVERIFY(run.out.contains(picture));
    const QImage image(picture);
    QCOMPARE(image.size(), QSize(1280, 800));
}

void TestKorvaneViewer::recentFilesLastAcrossRuns()
{
    const QString config = m_dir.filePath(QStringLiteral("cfg2"));
    const QString first = writeRecord(QStringLiteral("run1"));
    const QString second = writeRecord(QStringLiteral("run2"));
    const QString picture = m_dir.filePath(QStringLiteral("runs.png"));
    QCOMPARE(runViewer({ QStringLiteral("--grab"), picture, first }, config).exitCode, 0);
    QCOMPARE(runViewer({ QStringLiteral("--grab"), picture, second }, config).exitCode, 0);
    const QString file = settingsFileIn(config);
    QVERIFY(!file.isEmpty());
    // The second run read the first one's list back and put its own file in front.
    QCOMPARE(QSettings(file, QSettings::IniFormat)
                 .value(QStringLiteral("main/lastOpenOscillograms"))
                 .toStringList(),
        QStringList({ second, first }));
}

void TestKorvaneViewer::summaryPrintsTheRecord()
{
    const Run run = runViewer({ QStringLiteral("--summary"), writeRecord(QStringLiteral("summary"), 250) },
        m_dir.filePath(QStringLiteral("cfg3")));
    QCOMPARE(run.exitCode, 0);
    QVERIFY(run.out.contains(QStringLiteral("Sample rate: 1000 Hz, samples: 250")));
    QVERIFY(run.out.contains(QStringLiteral("Station: Подстанция 1, device: Recorder 7")));
}

QTEST_MAIN(TestKorvaneViewer)
#include "tst_korvaneviewer.moc"
