// The interface language: with "en" in the settings the texts of the viewer, the loaders and the
// settings dialog come out in English, with "ru" in the Russian they are written in. The English
// expected here is the wording of resources/translations/korvane_en.ts.
#include "ComtradeFixture.h"
#include "MainWindow.h"

#include "Model/EasyLibKorvane.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsDialog.h"
#include "Settings/Translation.h"
#include "Views/OscillogramView.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

namespace {
QStringList actionTexts(const QWidget& widget)
{
    QStringList texts;
    for (const QAction* action : widget.findChildren<QAction*>())
        texts << action->text() << action->toolTip();
    return texts;
}

QStringList labelTexts(const QWidget& widget)
{
    QStringList texts;
    for (const QLabel* label : widget.findChildren<QLabel*>())
        texts << label->text();
    return texts;
}
} // namespace

class TestTranslation : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();

    void settingsChooseTheLanguage_data();
    void settingsChooseTheLanguage();
    void viewerToolBarSpeaksTheLanguage_data();
    void viewerToolBarSpeaksTheLanguage();
    void loaderErrorSpeaksTheLanguage_data();
    void loaderErrorSpeaksTheLanguage();
    void settingsDialogSpeaksTheLanguage_data();
    void settingsDialogSpeaksTheLanguage();
    void unknownLanguageFailsAndKeepsRussian();

private:
    QTemporaryDir m_dir;
};

void TestTranslation::initTestCase()
{
    QVERIFY(m_dir.isValid());
    EasyLibKorvane::initialize();
    qRegisterMetaType<OscillogramView*>();
}

void TestTranslation::cleanup()
{
    KorvaneTranslation::install(QStringLiteral("ru"));
}

void TestTranslation::settingsChooseTheLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("expected");
    QTest::newRow("en") << "en"
                        << "Time";
    QTest::newRow("ru") << "ru"
                        << "Время";
}

// The code is read from "Language/LanguageCode" of the settings the host passes.
void TestTranslation::settingsChooseTheLanguage()
{
    QFETCH(QString, code);
    QFETCH(QString, expected);
    QSettings stored(m_dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat);
    stored.setValue(QStringLiteral("Language/LanguageCode"), code);
    stored.sync();
    const KorvaneSettings settings(&stored);
    QVERIFY(KorvaneTranslation::install(settings));
    QCOMPARE(QCoreApplication::translate("MarkersTableModel", "Время"), expected);
}

void TestTranslation::viewerToolBarSpeaksTheLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("en") << "en"
                        << QStringList { "Stretch in time", "Compress in time", "Show all", "Compact mode",
                               "Set a marker", "Fit the scale to show the whole record from start to end",
                               "Open..." };
    QTest::newRow("ru") << "ru"
                        << QStringList { "Растянуть по времени", "Сжать по времени", "Показать все",
                               "Компактный режим", "Установить маркер",
                               "Подобрать масштаб, чтобы было видно всю запись от начала до конца",
                               "Открыть..." };
}

void TestTranslation::viewerToolBarSpeaksTheLanguage()
{
    QFETCH(QString, code);
    QFETCH(QStringList, expected);
    QVERIFY(KorvaneTranslation::install(code));
    KorvaneTest::ComtradeSetDescription set;
    const QString base = m_dir.filePath(QStringLiteral("record_") + code);
    QVERIFY(KorvaneTest::writeComtradeSet(base, set));

    auto settings = QSharedPointer<KorvaneSettings>::create();
    MainWindow window(settings);
    window.show();
    QSignalSpy opened(&window, &MainWindow::recordOpened);
    window.openRecord(base + QStringLiteral(".cfg"));
    QVERIFY(opened.count() > 0 || opened.wait(20000));
    const QStringList texts = actionTexts(window);
    for (const QString& text : expected)
        QVERIFY2(texts.contains(text), qPrintable(text));
    window.viewAt(0)->resetModified();
}

void TestTranslation::loaderErrorSpeaksTheLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("expected");
    QTest::newRow("en") << "en"
                        << "The file format is not supported";
    QTest::newRow("ru") << "ru"
                        << "Формат файла не поддерживается";
}

// A file no loader reads: the message the host shows.
void TestTranslation::loaderErrorSpeaksTheLanguage()
{
    QFETCH(QString, code);
    QFETCH(QString, expected);
    QVERIFY(KorvaneTranslation::install(code));
    const QString path = m_dir.filePath(QStringLiteral("notes.txt"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("not a record\n");
    file.close();
    QString error;
    QVERIFY(!EasyLibKorvane::open(path, error));
    QVERIFY2(error.contains(expected), qPrintable(error));
}

void TestTranslation::settingsDialogSpeaksTheLanguage_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("en") << "en" << QStringList { "Language:", "Colour style:" };
    QTest::newRow("ru") << "ru" << QStringList { "Язык:", "Цветовой стиль:" };
}

void TestTranslation::settingsDialogSpeaksTheLanguage()
{
    QFETCH(QString, code);
    QFETCH(QStringList, expected);
    QVERIFY(KorvaneTranslation::install(code));
    QSettings stored(m_dir.filePath(QStringLiteral("dialog.ini")), QSettings::IniFormat);
    auto settings = QSharedPointer<KorvaneSettings>::create(&stored);
    SettingsDialog dialog(settings);
    const QStringList texts = labelTexts(dialog);
    for (const QString& text : expected)
        QVERIFY2(texts.contains(text), qPrintable(texts.join(QLatin1Char('|'))));
}

// A language without a translation reports it and leaves the texts Russian.
void TestTranslation::unknownLanguageFailsAndKeepsRussian()
{
    QVERIFY(KorvaneTranslation::install(QStringLiteral("en")));
    QVERIFY(!KorvaneTranslation::install(QStringLiteral("xx")));
    QCOMPARE(QCoreApplication::translate("MarkersTableModel", "Время"), QStringLiteral("Время"));
}

QTEST_MAIN(TestTranslation)
#include "tst_translation.moc"
