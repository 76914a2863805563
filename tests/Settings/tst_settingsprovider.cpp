#include "Settings/KorvaneSettings.h"
#include "Settings/SettingsProvider.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTest>

// The process-wide file, in Qt's test location so that the user's own configuration stays untouched.
class TestSettingsProvider : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QStandardPaths::setTestModeEnabled(true);
        QFile::remove(SettingsProvider::fileName());
    }
    void cleanupTestCase() { QFile::remove(SettingsProvider::fileName()); }

    void fileIsKorvaneIniInTheConfigurationFolder()
    {
        const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
        QCOMPARE(SettingsProvider::fileName(), folder + QStringLiteral("/Korvane.ini"));
        QCOMPARE(SettingsProvider::settings()->fileName(), SettingsProvider::fileName());
        QCOMPARE(SettingsProvider::settings()->format(), QSettings::IniFormat);
    }

    void sameObjectOnEveryCall() { QCOMPARE(SettingsProvider::settings(), SettingsProvider::settings()); }

    void settingsWithoutOwnFileUseTheProvider()
    {
        KorvaneSettings settings;
        QCOMPARE(settings.settings(), SettingsProvider::settings());
    }

    void savedValuesReachTheFile()
    {
        KorvaneSettings settings;
        settings.setCalcDuration(6);
        settings.saveSettings();
        QVERIFY(QFile::exists(SettingsProvider::fileName()));
        QSettings file(SettingsProvider::fileName(), QSettings::IniFormat);
        QCOMPARE(file.value(QStringLiteral("KorvaneCalculator/calcDuration")).toInt(), 6);
    }
};

QTEST_GUILESS_MAIN(TestSettingsProvider)
#include "tst_settingsprovider.moc"
