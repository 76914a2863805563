#include "Settings/ColorStyle.h"
#include "Settings/KorvaneSettings.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Flags = QVector<bool>;
Q_DECLARE_METATYPE(Flags)

namespace {
const Flags allSix(6, true);

// "1" for a selected parameter, "0" for another, in order.
QString flagText(const Flags& flags)
{
    QString text;
    for (bool flag : flags)
        text += flag ? QLatin1Char('1') : QLatin1Char('0');
    return text;
}

// The value of one field by its name, so that tables can list the fields.
QVariant field(const KorvaneSettings& s, const QString& name)
{
    if (name == QLatin1String("varType"))
        return s.varType();
    if (name == QLatin1String("constType"))
        return s.constType();
    if (name == QLatin1String("calcDuration"))
        return s.calcDuration();
    if (name == QLatin1String("devType"))
        return s.devType();
    if (name == QLatin1String("manualFlag"))
        return s.manualFlag();
    if (name == QLatin1String("manualInterval"))
        return s.manualInterval();
    if (name == QLatin1String("firstHarmScale"))
        return s.firstHarmScale();
    if (name == QLatin1String("timeDisplayMode"))
        return static_cast<int>(s.timeDisplayMode());
    if (name == QLatin1String("customTimeZone"))
        return s.customTimeZone();
    if (name == QLatin1String("style"))
        return KorvaneSettings::style().number();
    if (name == QLatin1String("lastOpenFiles"))
        return s.lastOpenFiles();
    if (name == QLatin1String("languageCode"))
        return s.languageCode();
    if (name == QLatin1String("selectedParamters"))
        return flagText(s.selectedParamters());
    if (name == QLatin1String("selectedParameterForCompactMode"))
        return s.selectedParameterForCompactMode();
    if (name == QLatin1String("drawMouseMeasures"))
        return s.isDrawMouseMeasures();
    if (name == QLatin1String("calculaterLineVisible"))
        return s.isCalculaterLineVisible();
    if (name == QLatin1String("blockCalcSettings"))
        return s.blockCalcSettings();
    return QVariant();
}

const QStringList allKeys
    = { QStringLiteral("KorvaneCalculator/type"), QStringLiteral("KorvaneCalculator/constType"),
          QStringLiteral("KorvaneCalculator/calcDuration"), QStringLiteral("KorvaneCalculator/devType"),
          QStringLiteral("KorvaneCalculator/manualFlag"), QStringLiteral("KorvaneCalculator/manualInterval"),
          QStringLiteral("Spectrum/firstHarmScale"), QStringLiteral("main/timeDisplayMode"),
          QStringLiteral("main/customTimeZone"), QStringLiteral("main/colorStyle"),
          QStringLiteral("main/lastOpenOscillograms"), QStringLiteral("Language/LanguageCode"),
          QStringLiteral("main/selectedParameters"), QStringLiteral("main/selectedParameterForCompactMode"),
          QStringLiteral("main/drawMouseMeasures"), QStringLiteral("main/calculaterLineVisibility") };
} // namespace

class TestKorvaneSettings : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
        KV::Cfg::ColorStyle::setCurrent(KV::Cfg::ColorStyle::Standard);
    }

    void absentFileGivesDefaults_data();
    void absentFileGivesDefaults();
    void absentFileGivesMachineUtcOffset();
    void absentFileIsNotCreatedByReading();
    void valuesSurviveSaveAndRestore_data();
    void valuesSurviveSaveAndRestore();
    void savingWritesEveryKey();
    void storedVarType_data();
    void storedVarType();
    void blockedCalcSettingsAreNotWritten();
    void blockCalcSettingsIsNeverStored();
    void badIntegerReadsAsZero_data();
    void badIntegerReadsAsZero();
    void languageCodeIsWrittenAsItStands_data();
    void languageCodeIsWrittenAsItStands();
    void languageLists();
    void indexLanguageCode_data();
    void indexLanguageCode();
    void addLastOpenFile_data();
    void addLastOpenFile();
    void lastOpenFilesKeepTen();
    void saveOpenFilesWritesTheListAlone();
    void clearLastOpenFiles();
    void colorStyleIsAppliedAtRestore_data();
    void colorStyleIsAppliedAtRestore();
    void setStyleChangesTheProcessWideStyle();
    void storedSelectedParameters_data();
    void storedSelectedParameters();
    void setSelectedParametersKeepsSixFlags_data();
    void setSelectedParametersKeepsSixFlags();
    void restoreDiscardsUnsavedChanges();

private:
    QString iniPath() const { return m_dir->filePath(QStringLiteral("Korvane.ini")); }
    std::unique_ptr<QSettings> openIni() const
    {
        return std::make_unique<QSettings>(iniPath(), QSettings::IniFormat);
    }
    void writeKey(const QString& key, const QVariant& value) const
    {
        auto ini = openIni();
        ini->setValue(key, value);
        ini->sync();
    }
    QVariant readKey(const QString& key) const { return openIni()->value(key); }

    std::unique_ptr<QTemporaryDir> m_dir;
};

void TestKorvaneSettings::absentFileGivesDefaults_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("varType is 2") << "varType" << QVariant(2);
    QTest::newRow("constType is 2") << "constType" << QVariant(2);
    QTest::newRow("calcDuration is 2 periods") << "calcDuration" << QVariant(2);
    QTest::newRow("devType is 0") << "devType" << QVariant(0);
    QTest::newRow("manualFlag is off") << "manualFlag" << QVariant(false);
    QTest::newRow("manualInterval is 40 ms") << "manualInterval" << QVariant(40);
    QTest::newRow("firstHarmScale is off") << "firstHarmScale" << QVariant(false);
    QTest::newRow("timeDisplayMode is the device's local time")
        << "timeDisplayMode" << QVariant(int(KorvaneSettings::DeviceLocalTime));
    QTest::newRow("colour style is 0") << "style" << QVariant(0);
    QTest::newRow("no recent files") << "lastOpenFiles" << QVariant(QStringList());
    QTest::newRow("language is ru") << "languageCode" << QVariant(QStringLiteral("ru"));
    QTest::newRow("six parameters selected") << "selectedParamters" << QVariant(QStringLiteral("111111"));
    QTest::newRow("compact mode shows parameter 0") << "selectedParameterForCompactMode" << QVariant(0);
    QTest::newRow("no mouse measures") << "drawMouseMeasures" << QVariant(false);
    QTest::newRow("calculator line hidden") << "calculaterLineVisible" << QVariant(false);
    QTest::newRow("calculator settings not blocked") << "blockCalcSettings" << QVariant(false);
}

void TestKorvaneSettings::absentFileGivesDefaults()
{
    QFETCH(QString, name);
    QFETCH(QVariant, expected);
    QVERIFY(!QFile::exists(iniPath()));
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(field(settings, name), expected);
}

void TestKorvaneSettings::absentFileGivesMachineUtcOffset()
{
    // A fixed zone five hours east of Greenwich, in POSIX notation (the sign is inverted there).
    const QByteArray oldZone = qgetenv("TZ");
    qputenv("TZ", "<+05>-5");
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    if (oldZone.isEmpty())
        qunsetenv("TZ");
    else
        qputenv("TZ", oldZone);
    QCOMPARE(settings.customTimeZone(), 5);
}

void TestKorvaneSettings::absentFileIsNotCreatedByReading()
{
    {
        auto ini = openIni();
        KorvaneSettings settings(ini.get());
    }
    QVERIFY(!QFile::exists(iniPath()));
}

void TestKorvaneSettings::valuesSurviveSaveAndRestore_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("varType 0") << "varType" << QVariant(0);
    QTest::newRow("constType 0") << "constType" << QVariant(0);
    QTest::newRow("calcDuration 7") << "calcDuration" << QVariant(7);
    QTest::newRow("devType 1") << "devType" << QVariant(1);
    QTest::newRow("manualFlag on") << "manualFlag" << QVariant(true);
    QTest::newRow("manualInterval 50") << "manualInterval" << QVariant(50);
    QTest::newRow("firstHarmScale on") << "firstHarmScale" << QVariant(true);
    QTest::newRow("timeDisplayMode custom")
        << "timeDisplayMode" << QVariant(int(KorvaneSettings::CustomTimeZone));
    QTest::newRow("customTimeZone -7") << "customTimeZone" << QVariant(-7);
    QTest::newRow("colour style 2") << "style" << QVariant(2);
    QTest::newRow("recent files in order")
        << "lastOpenFiles"
        << QVariant(QStringList { QStringLiteral("/b/2.cfg"), QStringLiteral("/a/1.zip") });
    QTest::newRow("language en") << "languageCode" << QVariant(QStringLiteral("en"));
    QTest::newRow("mixed parameters") << "selectedParamters" << QVariant(QStringLiteral("010110"));
    QTest::newRow("compact mode parameter 4") << "selectedParameterForCompactMode" << QVariant(4);
    QTest::newRow("mouse measures on") << "drawMouseMeasures" << QVariant(true);
    QTest::newRow("calculator line shown") << "calculaterLineVisible" << QVariant(true);
}

void TestKorvaneSettings::valuesSurviveSaveAndRestore()
{
    QFETCH(QString, name);
    QFETCH(QVariant, expected);
    {
        auto ini = openIni();
        KorvaneSettings settings(ini.get());
        settings.setVarType(0);
        settings.setConstType(0);
        settings.setCalcDuration(7);
        settings.setDevType(1);
        settings.setManualFlag(true);
        settings.setManualInterval(50);
        settings.setFirstHarmScale(true);
        settings.setTimeDisplayMode(KorvaneSettings::CustomTimeZone);
        settings.setCustomTimeZone(-7);
        KorvaneSettings::setStyle(2);
        settings.addLastOpenFile(QStringLiteral("/a/1.zip"));
        settings.addLastOpenFile(QStringLiteral("/b/2.cfg"));
        settings.setLanguageCode(QStringLiteral("en"));
        settings.setSelectedParameters({ false, true, false, true, true, false });
        settings.setSelectedParameterForCompactMode(4);
        settings.setDrawMouseMeasures(true);
        settings.setCalculaterLineVisibility(true);
        settings.saveSettings();
    }
    KV::Cfg::ColorStyle::setCurrent(KV::Cfg::ColorStyle::Standard);
    auto ini = openIni();
    KorvaneSettings restored(ini.get());
    QCOMPARE(field(restored, name), expected);
}

void TestKorvaneSettings::savingWritesEveryKey()
{
    {
        auto ini = openIni();
        KorvaneSettings settings(ini.get());
        settings.saveSettings();
    }
    auto ini = openIni();
    for (const QString& key : allKeys)
        QVERIFY2(ini->contains(key), qPrintable(key));
    QCOMPARE(ini->allKeys().size(), allKeys.size());
    QCOMPARE(ini->value(QStringLiteral("KorvaneCalculator/type")).toInt(), 2);
    QCOMPARE(ini->value(QStringLiteral("KorvaneCalculator/manualInterval")).toInt(), 40);
    QCOMPARE(ini->value(QStringLiteral("main/colorStyle")).toInt(), 0);
}

void TestKorvaneSettings::storedVarType_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("expected");
    QTest::newRow("retired 1 reads as 2") << 1 << 2;
    QTest::newRow("0 stays") << 0 << 0;
    QTest::newRow("2 stays") << 2 << 2;
    QTest::newRow("3 stays") << 3 << 3;
}

void TestKorvaneSettings::storedVarType()
{
    QFETCH(int, stored);
    QFETCH(int, expected);
    writeKey(QStringLiteral("KorvaneCalculator/type"), stored);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(settings.varType(), expected);
    // Reading alone leaves the file as it is.
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/type")).toInt(), stored);
}

void TestKorvaneSettings::blockedCalcSettingsAreNotWritten()
{
    writeKey(QStringLiteral("KorvaneCalculator/calcDuration"), 3);
    {
        auto ini = openIni();
        KorvaneSettings settings(ini.get());
        settings.setBlockCalcSettings(true);
        settings.setVarType(0);
        settings.setConstType(0);
        settings.setCalcDuration(8);
        settings.setDevType(1);
        settings.setManualFlag(true);
        settings.setManualInterval(60);
        settings.setFirstHarmScale(true);
        settings.setDrawMouseMeasures(true);
        settings.saveSettings();
    }
    auto ini = openIni();
    QCOMPARE(ini->value(QStringLiteral("KorvaneCalculator/calcDuration")).toInt(), 3);
    for (const QString& key :
        { QStringLiteral("KorvaneCalculator/type"), QStringLiteral("KorvaneCalculator/constType"),
            QStringLiteral("KorvaneCalculator/devType"), QStringLiteral("KorvaneCalculator/manualFlag"),
            QStringLiteral("KorvaneCalculator/manualInterval") })
        QVERIFY2(!ini->contains(key), qPrintable(key));
    QCOMPARE(ini->value(QStringLiteral("Spectrum/firstHarmScale")).toBool(), true);
    QCOMPARE(ini->value(QStringLiteral("main/drawMouseMeasures")).toBool(), true);
}

void TestKorvaneSettings::blockCalcSettingsIsNeverStored()
{
    {
        auto ini = openIni();
        KorvaneSettings settings(ini.get());
        settings.setBlockCalcSettings(true);
        settings.saveSettings();
        settings.restoreSettings();
        QVERIFY(settings.blockCalcSettings());
    }
    auto ini = openIni();
    KorvaneSettings restored(ini.get());
    QVERIFY(!restored.blockCalcSettings());
    for (const QString& key : ini->allKeys())
        QVERIFY2(!key.contains(QLatin1String("block"), Qt::CaseInsensitive), qPrintable(key));
}

void TestKorvaneSettings::badIntegerReadsAsZero_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("name");
    QTest::newRow("calcDuration") << "KorvaneCalculator/calcDuration"
                                  << "calcDuration";
    QTest::newRow("manualInterval") << "KorvaneCalculator/manualInterval"
                                    << "manualInterval";
    QTest::newRow("constType") << "KorvaneCalculator/constType"
                               << "constType";
    QTest::newRow("timeDisplayMode") << "main/timeDisplayMode"
                                     << "timeDisplayMode";
    QTest::newRow("customTimeZone") << "main/customTimeZone"
                                    << "customTimeZone";
    QTest::newRow("colour style") << "main/colorStyle"
                                  << "style";
    QTest::newRow("compact mode parameter") << "main/selectedParameterForCompactMode"
                                            << "selectedParameterForCompactMode";
}

void TestKorvaneSettings::badIntegerReadsAsZero()
{
    QFETCH(QString, key);
    QFETCH(QString, name);
    writeKey(key, QStringLiteral("not a number"));
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(field(settings, name).toInt(), 0);
}

void TestKorvaneSettings::languageCodeIsWrittenAsItStands_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("written");
    QTest::newRow("en as it stands") << "en"
                                     << "en";
    QTest::newRow("unknown de as it stands") << "de"
                                             << "de";
    QTest::newRow("empty as ru") << ""
                                 << "ru";
}

void TestKorvaneSettings::languageCodeIsWrittenAsItStands()
{
    QFETCH(QString, code);
    QFETCH(QString, written);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    settings.setLanguageCode(code);
    settings.saveSettings();
    QCOMPARE(readKey(QStringLiteral("Language/LanguageCode")).toString(), written);
    QCOMPARE(settings.languageCode(), code);
}

void TestKorvaneSettings::languageLists()
{
    QCOMPARE(KorvaneSettings::languageCodes(), QStringList({ QStringLiteral("ru"), QStringLiteral("en") }));
    QCOMPARE(KorvaneSettings::languageNames(),
        QStringList({ QStringLiteral("Русский (ru)"), QStringLiteral("English (en)") }));
}

void TestKorvaneSettings::indexLanguageCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<int>("index");
    QTest::newRow("ru first") << "ru" << 0;
    QTest::newRow("en second") << "en" << 1;
    QTest::newRow("unknown code") << "de" << -1;
    QTest::newRow("empty code") << "" << -1;
    QTest::newRow("upper case is another code") << "RU" << -1;
}

void TestKorvaneSettings::indexLanguageCode()
{
    QFETCH(QString, code);
    QFETCH(int, index);
    QCOMPARE(KorvaneSettings::indexLanguageCode(code), index);
}

void TestKorvaneSettings::addLastOpenFile_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("first file") << QStringList() << "/r/a.cfg" << QStringList { "/r/a.cfg" };
    QTest::newRow("new file goes in front") << QStringList { "/r/a.cfg", "/r/b.cfg" } << "/r/c.zip"
                                            << QStringList { "/r/c.zip", "/r/a.cfg", "/r/b.cfg" };
    QTest::newRow("known file moves to the front, count unchanged") << QStringList { "/r/a.cfg", "/r/b.cfg",
        "/r/c.zip" } << "/r/c.zip" << QStringList { "/r/c.zip", "/r/a.cfg", "/r/b.cfg" };
    QTest::newRow("front file stays")
        << QStringList { "/r/a.cfg", "/r/b.cfg" } << "/r/a.cfg" << QStringList { "/r/a.cfg", "/r/b.cfg" };
    QTest::newRow("case differs: another path")
        << QStringList { "/r/a.cfg" } << "/r/A.cfg" << QStringList { "/r/A.cfg", "/r/a.cfg" };
}

void TestKorvaneSettings::addLastOpenFile()
{
    QFETCH(QStringList, before);
    QFETCH(QString, added);
    QFETCH(QStringList, after);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    for (int i = before.size() - 1; i >= 0; --i)
        settings.addLastOpenFile(before.at(i));
    QCOMPARE(settings.lastOpenFiles(), before);
    settings.addLastOpenFile(added);
    QCOMPARE(settings.lastOpenFiles(), after);
}

void TestKorvaneSettings::lastOpenFilesKeepTen()
{
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QStringList expected;
    for (int i = 1; i <= 10; ++i) {
        const QString path = QStringLiteral("/r/%1.cfg").arg(i);
        settings.addLastOpenFile(path);
        expected.prepend(path);
    }
    QCOMPARE(settings.lastOpenFiles(), expected);
    settings.addLastOpenFile(QStringLiteral("/r/11.cfg"));
    expected.prepend(QStringLiteral("/r/11.cfg"));
    expected.removeLast();
    QCOMPARE(settings.lastOpenFiles().size(), 10);
    QCOMPARE(settings.lastOpenFiles(), expected);
    QVERIFY(!settings.lastOpenFiles().contains(QStringLiteral("/r/1.cfg")));
    // A known file of a full list moves without pushing anything out.
    settings.addLastOpenFile(QStringLiteral("/r/5.cfg"));
    QCOMPARE(settings.lastOpenFiles().size(), 10);
    QCOMPARE(settings.lastOpenFiles().first(), QStringLiteral("/r/5.cfg"));
    QVERIFY(settings.lastOpenFiles().contains(QStringLiteral("/r/2.cfg")));
}

void TestKorvaneSettings::saveOpenFilesWritesTheListAlone()
{
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    settings.addLastOpenFile(QStringLiteral("/r/only.cfg"));
    settings.setCalcDuration(5);
    settings.setDrawMouseMeasures(true);
    settings.saveOpenFiles();
    auto file = openIni();
    QCOMPARE(file->allKeys(), QStringList { QStringLiteral("main/lastOpenOscillograms") });
    QCOMPARE(file->value(QStringLiteral("main/lastOpenOscillograms")).toStringList(),
        QStringList { QStringLiteral("/r/only.cfg") });
}

void TestKorvaneSettings::clearLastOpenFiles()
{
    writeKey(QStringLiteral("main/lastOpenOscillograms"),
        QStringList { QStringLiteral("/r/a.cfg"), QStringLiteral("/r/b.cfg") });
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(settings.lastOpenFiles().size(), 2);
    settings.clearLastOpenFiles();
    QVERIFY(settings.lastOpenFiles().isEmpty());
    // The file keeps the list until it is saved.
    QCOMPARE(readKey(QStringLiteral("main/lastOpenOscillograms")).toStringList().size(), 2);
    settings.saveOpenFiles();
    QVERIFY(readKey(QStringLiteral("main/lastOpenOscillograms")).toStringList().isEmpty());
    settings.restoreSettings();
    QVERIFY(settings.lastOpenFiles().isEmpty());
}

void TestKorvaneSettings::colorStyleIsAppliedAtRestore_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("number");
    QTest::addColumn<uint>("background");
    QTest::newRow("absent key gives style 0") << QVariant() << 0 << 0xFF004000u;
    QTest::newRow("style 0") << QVariant(0) << 0 << 0xFF004000u;
    QTest::newRow("style 1") << QVariant(1) << 1 << 0xFF212830u;
    QTest::newRow("style 2, black on white") << QVariant(2) << 2 << 0xFFFFFFFFu;
    QTest::newRow("unknown style 7 gives style 1") << QVariant(7) << 1 << 0xFF212830u;
}

void TestKorvaneSettings::colorStyleIsAppliedAtRestore()
{
    QFETCH(QVariant, stored);
    QFETCH(int, number);
    QFETCH(uint, background);
    if (stored.isValid())
        writeKey(QStringLiteral("main/colorStyle"), stored);
    KV::Cfg::ColorStyle::setCurrent(stored.toInt() == 2 ? 1 : 2);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(KV::Cfg::ColorStyle::current().number(), number);
    QCOMPARE(KorvaneSettings::style().background, QRgb(background));
    QCOMPARE(&KorvaneSettings::style(), &KV::Cfg::ColorStyle::current());
}

void TestKorvaneSettings::setStyleChangesTheProcessWideStyle()
{
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(KorvaneSettings::style().number(), 0);
    KorvaneSettings::setStyle(2);
    QCOMPARE(KV::Cfg::ColorStyle::current().number(), 2);
    QCOMPARE(KV::Cfg::ColorStyle::current().grid, QRgb(0xFF626262));
    settings.saveSettings();
    QCOMPARE(readKey(QStringLiteral("main/colorStyle")).toInt(), 2);
}

void TestKorvaneSettings::storedSelectedParameters_data()
{
    QTest::addColumn<QVariantList>("stored");
    QTest::addColumn<Flags>("expected");
    QTest::newRow("six flags") << QVariantList { true, false, true, false, true, false }
                               << Flags { true, false, true, false, true, false };
    QTest::newRow("all false") << QVariantList { false, false, false, false, false, false }
                               << Flags(6, false);
    QTest::newRow("short list completed with true")
        << QVariantList { false, false } << Flags { false, false, true, true, true, true };
    QTest::newRow("long list cut to six")
        << QVariantList { false, false, false, false, false, false, true } << Flags(6, false);
}

void TestKorvaneSettings::storedSelectedParameters()
{
    QFETCH(QVariantList, stored);
    QFETCH(Flags, expected);
    writeKey(QStringLiteral("main/selectedParameters"), stored);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    QCOMPARE(settings.selectedParamters(), expected);
}

void TestKorvaneSettings::setSelectedParametersKeepsSixFlags_data()
{
    QTest::addColumn<Flags>("given");
    QTest::addColumn<Flags>("expected");
    QTest::newRow("empty gives all true") << Flags() << allSix;
    QTest::newRow("three completed") << Flags { false, false, false }
                                     << Flags { false, false, false, true, true, true };
    QTest::newRow("eight cut") << Flags(8, false) << Flags(6, false);
}

void TestKorvaneSettings::setSelectedParametersKeepsSixFlags()
{
    QFETCH(Flags, given);
    QFETCH(Flags, expected);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    settings.setSelectedParameters(given);
    QCOMPARE(settings.selectedParamters(), expected);
}

void TestKorvaneSettings::restoreDiscardsUnsavedChanges()
{
    writeKey(QStringLiteral("KorvaneCalculator/calcDuration"), 4);
    auto ini = openIni();
    KorvaneSettings settings(ini.get());
    settings.setCalcDuration(8);
    settings.setLanguageCode(QStringLiteral("en"));
    settings.restoreSettings();
    QCOMPARE(settings.calcDuration(), 4);
    QCOMPARE(settings.languageCode(), QStringLiteral("ru"));
}

QTEST_GUILESS_MAIN(TestKorvaneSettings)
#include "tst_korvanesettings.moc"
