#include "ModalDialogs.h"

#include "Settings/ColorStyle.h"
#include "Settings/KorvaneSettings.h"
#include "Settings/KorvaneSettingsWidget.h"
#include "Settings/SettingsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using Flags = QVector<bool>;

namespace {
const QStringList parameterBoxes
    = { QStringLiteral("cb_amp"), QStringLiteral("cb_ef"), QStringLiteral("cb_ef_harm"),
          QStringLiteral("cb_freq"), QStringLiteral("cb_ph"), QStringLiteral("cb_adc") };

// What a message box showed before it was closed.
struct SeenBox
{
    bool seen = false;
    QString title;
    QString text;
};

// Closes the next message box and tells what it said. tries bounds the wait in steps of 10 ms:
// ten seconds by default, since a loaded machine may take a while to show a box.
std::shared_ptr<SeenBox> closeNextMessageBox(int tries = 1000)
{
    auto seen = std::make_shared<SeenBox>();
    whenModalOpens(
        [seen](QWidget* modal) {
            if (auto* box = qobject_cast<QMessageBox*>(modal)) {
                seen->seen = true;
                seen->title = box->windowTitle();
                seen->text = box->text();
            }
            modal->close();
        },
        tries);
    return seen;
}
} // namespace

class TestSettingsDialog : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();
    void cleanup();

    void titleAndTabs();
    void calculatorTabOffersTalvi();
    void texts_data();
    void texts();
    void parameterBoxTexts_data();
    void parameterBoxTexts();
    void languageEntries();
    void colorStyleEntries();
    void defaultsAreShown();
    void loadSettingsShowsStoredValues();
    void storedTimeDisplayMode_data();
    void storedTimeDisplayMode();
    void customZoneSpinFollowsItsRadio();
    void refusalWhenNoParameterIsChosen();
    void oneParameterIsEnough();
    void saveStoresEveryField();
    void languageChangeAsksForRestart();
    void sameLanguageSavesSilently();
    void compactModeComboFollowsTheParameters();
    void compactModeChoiceIsKept();
    void compactModeChoiceFallsToFirstWhenUnchecked();
    void colorStyleIsAppliedOnSave_data();
    void colorStyleIsAppliedOnSave();
    void styleOutsideTheComboIsKept();
    void hideMWFieldsHidesTheLanguage();
    void hideCalcFieldsLeavesCalculatorAlone();
    void calculatorPageIsSavedWithTheDialog();
    void cancelSavesNothing();

private:
    QString iniPath() const { return m_dir->filePath(QStringLiteral("Korvane.ini")); }
    template<class T> T* child(const QString& name) const
    {
        T* found = m_dialog->findChild<T*>(name);
        if (!found)
            qFatal("no child %s", qPrintable(name));
        return found;
    }
    void makeDialog() { m_dialog = std::make_unique<SettingsDialog>(m_settings); }
    void writeKey(const QString& key, const QVariant& value);
    QVariant readKey(const QString& key) const
    {
        return QSettings(iniPath(), QSettings::IniFormat).value(key);
    }
    void checkParameters(const Flags& flags);
    QComboBox* compactCombo() const { return child<QComboBox>(QStringLiteral("cb_paramCompactMode")); }

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_ini;
    QSharedPointer<KorvaneSettings> m_settings;
    std::unique_ptr<SettingsDialog> m_dialog;
};

void TestSettingsDialog::init()
{
    KV::Cfg::ColorStyle::setCurrent(KV::Cfg::ColorStyle::Standard);
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_ini = std::make_unique<QSettings>(iniPath(), QSettings::IniFormat);
    m_settings = QSharedPointer<KorvaneSettings>::create(m_ini.get());
    makeDialog();
}

void TestSettingsDialog::cleanup()
{
    m_dialog.reset();
    m_settings.reset();
    m_ini.reset();
    m_dir.reset();
}

void TestSettingsDialog::writeKey(const QString& key, const QVariant& value)
{
    m_ini->setValue(key, value);
    m_ini->sync();
    m_settings->restoreSettings();
    m_dialog->loadSettings();
}

void TestSettingsDialog::checkParameters(const Flags& flags)
{
    for (int i = 0; i < parameterBoxes.size(); ++i)
        child<QCheckBox>(parameterBoxes.at(i))->setChecked(flags.at(i));
}

void TestSettingsDialog::titleAndTabs()
{
    QCOMPARE(m_dialog->windowTitle(), QStringLiteral("Настройки"));
    auto* tabs = m_dialog->findChild<QTabWidget*>();
    QVERIFY(tabs);
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Основные"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Вычислитель"));
    QVERIFY(qobject_cast<KorvaneSettingsWidget*>(tabs->widget(1)));
}

void TestSettingsDialog::calculatorTabOffersTalvi()
{
    auto* combo = child<QComboBox>(QStringLiteral("cb_varCalc"));
    QCOMPARE(combo->count(), 1);
    QCOMPARE(combo->itemText(0), QStringLiteral("Talvi"));
    QVERIFY(!combo->isHidden());
}

void TestSettingsDialog::texts_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<QString>("text");
    QTest::newRow("language label") << "l_language"
                                    << "Язык:";
    QTest::newRow("colour style label") << "l_colorStyle"
                                        << "Цветовой стиль:";
    QTest::newRow("mouse measures") << "cb_drawMouseMeasures"
                                    << "Создание замера курсором мыши";
    QTest::newRow("calculator line") << "cb_calculaterLineVisibility"
                                     << "Отображение линии вычислителя";
    QTest::newRow("compatible reading") << "cb_compatibleLoading"
                                        << "Открывать файлы COMTRADE в режиме совместимости";
    QTest::newRow("time group") << "gb_timeDisplay"
                                << "Отображение времени в осциллограммах";
    QTest::newRow("device local time")
        << "rb_deviceLocalTime"
        << "Показывать в локальном времени устройства, записавшего осциллограмму";
    QTest::newRow("UTC") << "rb_utcTime"
                         << "Показывать в UTC+0";
    QTest::newRow("parameters group") << "gb_parameters"
                                      << "Отображаемые параметры синусоидальных сигналов";
    QTest::newRow("compact mode label") << "l_paramCompactMode"
                                        << "Отображаемый параметр сигнала в компактном режиме:";
}

void TestSettingsDialog::texts()
{
    QFETCH(QString, objectName);
    QFETCH(QString, text);
    QWidget* widget = child<QWidget>(objectName);
    if (auto* label = qobject_cast<QLabel*>(widget))
        QCOMPARE(label->text(), text);
    else if (auto* button = qobject_cast<QAbstractButton*>(widget))
        QCOMPARE(button->text(), text);
    else if (auto* group = qobject_cast<QGroupBox*>(widget))
        QCOMPARE(group->title(), text);
    else
        QFAIL("unexpected widget kind");
}

void TestSettingsDialog::parameterBoxTexts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    QTest::newRow("amplitude") << 0 << "Амплитуда";
    QTest::newRow("effective value") << 1 << "Эффективное значение";
    QTest::newRow("first harmonic") << 2 << "Эффективное значение 1-ой гармоники";
    QTest::newRow("frequency") << 3 << "Частота";
    QTest::newRow("phase") << 4 << "Фаза";
    QTest::newRow("ADC code") << 5 << "АЦП";
}

void TestSettingsDialog::parameterBoxTexts()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QCOMPARE(child<QCheckBox>(parameterBoxes.at(index))->text(), text);
}

void TestSettingsDialog::languageEntries()
{
    auto* combo = child<QComboBox>(QStringLiteral("cb_language"));
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), QStringLiteral("Русский (ru)"));
    QCOMPARE(combo->itemText(1), QStringLiteral("English (en)"));
    QCOMPARE(combo->currentIndex(), 0);
    writeKey(QStringLiteral("Language/LanguageCode"), QStringLiteral("en"));
    QCOMPARE(combo->currentIndex(), 1);
}

void TestSettingsDialog::colorStyleEntries()
{
    auto* combo = child<QComboBox>(QStringLiteral("cb_colorStyle"));
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), QStringLiteral("Стандартный"));
    QCOMPARE(combo->itemText(1), QStringLiteral("Черно-белый"));
    QCOMPARE(combo->currentIndex(), 0);
    writeKey(QStringLiteral("main/colorStyle"), 2);
    QCOMPARE(combo->currentIndex(), 1);
}

void TestSettingsDialog::defaultsAreShown()
{
    QVERIFY(!child<QCheckBox>(QStringLiteral("cb_drawMouseMeasures"))->isChecked());
    QVERIFY(!child<QCheckBox>(QStringLiteral("cb_calculaterLineVisibility"))->isChecked());
    QVERIFY(child<QRadioButton>(QStringLiteral("rb_deviceLocalTime"))->isChecked());
    for (const QString& name : parameterBoxes)
        QVERIFY2(child<QCheckBox>(name)->isChecked(), qPrintable(name));
    QCOMPARE(m_dialog->selectedParameters(), Flags(6, true));
    QCOMPARE(compactCombo()->count(), 6);
    QCOMPARE(compactCombo()->currentText(), QStringLiteral("Амплитуда"));
}

void TestSettingsDialog::loadSettingsShowsStoredValues()
{
    m_settings->setDrawMouseMeasures(true);
    m_settings->setCalculaterLineVisibility(true);
    m_settings->setSelectedParameters({ false, true, true, false, true, false });
    m_settings->setSelectedParameterForCompactMode(4);
    m_settings->setTimeDisplayMode(KorvaneSettings::UtcTime);
    m_settings->setCustomTimeZone(3);
    m_dialog->loadSettings();
    QVERIFY(child<QCheckBox>(QStringLiteral("cb_drawMouseMeasures"))->isChecked());
    QVERIFY(child<QCheckBox>(QStringLiteral("cb_calculaterLineVisibility"))->isChecked());
    QCOMPARE(m_dialog->selectedParameters(), Flags({ false, true, true, false, true, false }));
    QCOMPARE(compactCombo()->count(), 3);
    QCOMPARE(compactCombo()->currentText(), QStringLiteral("Фаза"));
    QVERIFY(child<QRadioButton>(QStringLiteral("rb_utcTime"))->isChecked());
    QCOMPARE(child<QSpinBox>(QStringLiteral("sb_customTimeZone"))->value(), 3);
}

void TestSettingsDialog::storedTimeDisplayMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("radio");
    QTest::newRow("0 is UTC") << 0 << "rb_utcTime";
    QTest::newRow("1 is the device's time") << 1 << "rb_deviceLocalTime";
    QTest::newRow("2 is the user's zone") << 2 << "rb_customTimeZone";
    QTest::newRow("any other is the user's zone") << 5 << "rb_customTimeZone";
}

void TestSettingsDialog::storedTimeDisplayMode()
{
    QFETCH(int, mode);
    QFETCH(QString, radio);
    writeKey(QStringLiteral("main/timeDisplayMode"), mode);
    QVERIFY(child<QRadioButton>(radio)->isChecked());
}

void TestSettingsDialog::customZoneSpinFollowsItsRadio()
{
    auto* spin = child<QSpinBox>(QStringLiteral("sb_customTimeZone"));
    QVERIFY(!spin->isEnabled());
    child<QRadioButton>(QStringLiteral("rb_customTimeZone"))->setChecked(true);
    QVERIFY(spin->isEnabled());
    child<QRadioButton>(QStringLiteral("rb_utcTime"))->setChecked(true);
    QVERIFY(!spin->isEnabled());
}

void TestSettingsDialog::refusalWhenNoParameterIsChosen()
{
    m_dialog->show();
    checkParameters(Flags(6, false));
    const auto box = closeNextMessageBox();
    child<QDialogButtonBox>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Ok)->click();
    QVERIFY(box->seen);
    QCOMPARE(box->title, QStringLiteral("Внимание"));
    QCOMPARE(box->text, QStringLiteral("Необходимо выбрать хотя бы один параметр для отображения"));
    QVERIFY(m_dialog->isVisible());
    QVERIFY(m_dialog->result() != QDialog::Accepted);
    QVERIFY(!QFile::exists(iniPath()));
    QCOMPARE(m_settings->selectedParamters(), Flags(6, true));
}

void TestSettingsDialog::oneParameterIsEnough()
{
    m_dialog->show();
    checkParameters({ false, false, false, false, false, true });
    const auto box = closeNextMessageBox(20);
    m_dialog->accept();
    QTest::qWait(300);
    QVERIFY(!box->seen);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_settings->selectedParamters(), Flags({ false, false, false, false, false, true }));
    QCOMPARE(m_settings->selectedParameterForCompactMode(), 5);
}

void TestSettingsDialog::saveStoresEveryField()
{
    child<QCheckBox>(QStringLiteral("cb_drawMouseMeasures"))->setChecked(true);
    child<QCheckBox>(QStringLiteral("cb_calculaterLineVisibility"))->setChecked(true);
    QVERIFY(child<QCheckBox>(QStringLiteral("cb_compatibleLoading"))->isChecked());
    child<QCheckBox>(QStringLiteral("cb_compatibleLoading"))->setChecked(false);
    child<QRadioButton>(QStringLiteral("rb_customTimeZone"))->setChecked(true);
    child<QSpinBox>(QStringLiteral("sb_customTimeZone"))->setValue(-4);
    checkParameters({ true, false, true, true, false, false });
    compactCombo()->setCurrentIndex(compactCombo()->findText(QStringLiteral("Частота")));
    m_dialog->saveSettings();

    QCOMPARE(readKey(QStringLiteral("main/drawMouseMeasures")).toBool(), true);
    QCOMPARE(readKey(QStringLiteral("main/calculaterLineVisibility")).toBool(), true);
    QCOMPARE(readKey(QStringLiteral("Loading/Compatible")).toBool(), false);
    QCOMPARE(readKey(QStringLiteral("main/timeDisplayMode")).toInt(), 2);
    QCOMPARE(readKey(QStringLiteral("main/customTimeZone")).toInt(), -4);
    QCOMPARE(readKey(QStringLiteral("main/selectedParameterForCompactMode")).toInt(), 3);
    QCOMPARE(readKey(QStringLiteral("Language/LanguageCode")).toString(), QStringLiteral("ru"));
    QSettings file(iniPath(), QSettings::IniFormat);
    KorvaneSettings restored(&file);
    QCOMPARE(restored.selectedParamters(), Flags({ true, false, true, true, false, false }));
}

void TestSettingsDialog::languageChangeAsksForRestart()
{
    m_dialog->show();
    child<QComboBox>(QStringLiteral("cb_language"))->setCurrentIndex(1);
    const auto box = closeNextMessageBox();
    m_dialog->accept();
    QVERIFY(box->seen);
    QCOMPARE(box->title, QStringLiteral("Сохранение настроек"));
    QCOMPARE(box->text, QStringLiteral("Перезапустите Korvane, чтобы применить настройки"));
    QCOMPARE(readKey(QStringLiteral("Language/LanguageCode")).toString(), QStringLiteral("en"));
    QCOMPARE(m_settings->languageCode(), QStringLiteral("en"));
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void TestSettingsDialog::sameLanguageSavesSilently()
{
    m_dialog->show();
    const auto box = closeNextMessageBox(20);
    m_dialog->accept();
    QTest::qWait(300);
    QVERIFY(!box->seen);
    QCOMPARE(readKey(QStringLiteral("Language/LanguageCode")).toString(), QStringLiteral("ru"));
}

void TestSettingsDialog::compactModeComboFollowsTheParameters()
{
    checkParameters({ true, false, false, true, false, true });
    QCOMPARE(compactCombo()->count(), 3);
    QCOMPARE(compactCombo()->itemText(0), QStringLiteral("Амплитуда"));
    QCOMPARE(compactCombo()->itemData(0).toInt(), 0);
    QCOMPARE(compactCombo()->itemText(1), QStringLiteral("Частота"));
    QCOMPARE(compactCombo()->itemData(1).toInt(), 3);
    QCOMPARE(compactCombo()->itemText(2), QStringLiteral("АЦП"));
    QCOMPARE(compactCombo()->itemData(2).toInt(), 5);
    checkParameters(Flags(6, false));
    QCOMPARE(compactCombo()->count(), 0);
}

void TestSettingsDialog::compactModeChoiceIsKept()
{
    compactCombo()->setCurrentIndex(compactCombo()->findData(4));
    child<QCheckBox>(QStringLiteral("cb_amp"))->setChecked(false);
    child<QCheckBox>(QStringLiteral("cb_freq"))->setChecked(false);
    QCOMPARE(compactCombo()->currentData().toInt(), 4);
    child<QCheckBox>(QStringLiteral("cb_amp"))->setChecked(true);
    QCOMPARE(compactCombo()->currentData().toInt(), 4);
    m_dialog->slotUpdateParamForComapctMode();
    QCOMPARE(compactCombo()->currentText(), QStringLiteral("Фаза"));
}

void TestSettingsDialog::compactModeChoiceFallsToFirstWhenUnchecked()
{
    compactCombo()->setCurrentIndex(compactCombo()->findData(4));
    child<QCheckBox>(QStringLiteral("cb_ph"))->setChecked(false);
    QCOMPARE(compactCombo()->currentIndex(), 0);
    QCOMPARE(compactCombo()->currentData().toInt(), 0);
}

void TestSettingsDialog::colorStyleIsAppliedOnSave_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("style");
    QTest::addColumn<uint>("background");
    QTest::newRow("standard is style 0") << 0 << 0 << 0xFF004000u;
    QTest::newRow("black and white is style 2") << 1 << 2 << 0xFFFFFFFFu;
}

void TestSettingsDialog::colorStyleIsAppliedOnSave()
{
    QFETCH(int, index);
    QFETCH(int, style);
    QFETCH(uint, background);
    auto* combo = child<QComboBox>(QStringLiteral("cb_colorStyle"));
    combo->setCurrentIndex(1 - index);
    m_dialog->saveSettings();
    combo->setCurrentIndex(index);
    m_dialog->saveSettings();
    QCOMPARE(KV::Cfg::ColorStyle::current().number(), style);
    QCOMPARE(KV::Cfg::ColorStyle::current().background, QRgb(background));
    QCOMPARE(readKey(QStringLiteral("main/colorStyle")).toInt(), style);
}

void TestSettingsDialog::styleOutsideTheComboIsKept()
{
    writeKey(QStringLiteral("main/colorStyle"), 1);
    auto* combo = child<QComboBox>(QStringLiteral("cb_colorStyle"));
    QCOMPARE(combo->currentText(), QStringLiteral("Стандартный"));
    m_dialog->saveSettings();
    QCOMPARE(KV::Cfg::ColorStyle::current().number(), 1);
    QCOMPARE(readKey(QStringLiteral("main/colorStyle")).toInt(), 1);
    combo->setCurrentIndex(1);
    combo->setCurrentIndex(0);
    m_dialog->saveSettings();
    QCOMPARE(readKey(QStringLiteral("main/colorStyle")).toInt(), 1);
}

void TestSettingsDialog::hideMWFieldsHidesTheLanguage()
{
    m_dialog->show();
    QVERIFY(child<QComboBox>(QStringLiteral("cb_language"))->isVisible());
    m_dialog->hideMWFields();
    QVERIFY(!child<QComboBox>(QStringLiteral("cb_language"))->isVisible());
    QVERIFY(!child<QLabel>(QStringLiteral("l_language"))->isVisible());
    QVERIFY(child<QComboBox>(QStringLiteral("cb_colorStyle"))->isVisible());
}

void TestSettingsDialog::hideCalcFieldsLeavesCalculatorAlone()
{
    writeKey(QStringLiteral("KorvaneCalculator/type"), 0);
    writeKey(QStringLiteral("KorvaneCalculator/devType"), 1);
    m_dialog->hideCalcFields();
    auto* tabs = m_dialog->findChild<QTabWidget*>();
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Основные"));
    m_dialog->accept();
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/type")).toInt(), 0);
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/devType")).toInt(), 1);
}

void TestSettingsDialog::calculatorPageIsSavedWithTheDialog()
{
    writeKey(QStringLiteral("KorvaneCalculator/type"), 0);
    writeKey(QStringLiteral("KorvaneCalculator/devType"), 1);
    child<QSpinBox>(QStringLiteral("sb_calcDuration"))->setValue(5);
    child<QComboBox>(QStringLiteral("cb_constCalc"))->setCurrentIndex(1);
    m_dialog->accept();
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/type")).toInt(), 2);
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/devType")).toInt(), 0);
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/calcDuration")).toInt(), 5);
    QCOMPARE(readKey(QStringLiteral("KorvaneCalculator/constType")).toInt(), 0);
}

void TestSettingsDialog::cancelSavesNothing()
{
    m_dialog->show();
    child<QCheckBox>(QStringLiteral("cb_drawMouseMeasures"))->setChecked(true);
    child<QComboBox>(QStringLiteral("cb_colorStyle"))->setCurrentIndex(1);
    child<QDialogButtonBox>(QStringLiteral("buttonBox"))->button(QDialogButtonBox::Cancel)->click();
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    QVERIFY(!QFile::exists(iniPath()));
    QVERIFY(!m_settings->isDrawMouseMeasures());
    QCOMPARE(KV::Cfg::ColorStyle::current().number(), 0);
}

QTEST_MAIN(TestSettingsDialog)
#include "tst_settingsdialog.moc"
