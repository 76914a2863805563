#include "ModalDialogs.h"

#include "Settings/KorvaneSettings.h"
#include "Settings/KorvaneSettingsWidget.h"

#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestKorvaneSettingsWidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { QStandardPaths::setTestModeEnabled(true); }
    void init();
    void cleanup();

    void constantCalculatorEntries();
    void periodCountRange();
    void texts();
    void defaultsShowTwoPeriods();
    void slotIntervalChanged_data();
    void slotIntervalChanged();
    void spinBoxDrivesTheInterval();
    void manualPeriodOf50();
    void manualPeriodOfWholePeriods_data();
    void manualPeriodOfWholePeriods();
    void manualInputAccepted();
    void manualInputCancelled();
    void manualInputRange();
    void clickOnDisabledCountLeavesManualPeriod();
    void clickOnEnabledCountKeepsPeriods();
    void loadSettingsWithManualPeriod();
    void loadSettingsSelectsConstantCalculator_data();
    void loadSettingsSelectsConstantCalculator();
    void saveSettingsAlwaysStoresVarType2AndDevType0();
    void saveSettingsStoresTheControls();
    void saveSettingsStoresManualPeriod();
    void varCalculatorComboHiddenUntilOffered();

private:
    QString iniPath() const { return m_dir->filePath(QStringLiteral("Korvane.ini")); }
    template<class T> T* child(const QString& name) const
    {
        T* found = m_widget->findChild<T*>(name);
        if (!found)
            qFatal("no child %s", qPrintable(name));
        return found;
    }
    void makeWidget();
    // The settings as a fresh read of the file finds them.
    std::unique_ptr<KorvaneSettings> reread();

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<QSettings> m_ini;
    std::unique_ptr<QSettings> m_rereadIni;
    QSharedPointer<KorvaneSettings> m_settings;
    std::unique_ptr<KorvaneSettingsWidget> m_widget;
};

void TestKorvaneSettingsWidget::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
    m_ini = std::make_unique<QSettings>(iniPath(), QSettings::IniFormat);
    m_settings = QSharedPointer<KorvaneSettings>::create(m_ini.get());
    makeWidget();
}

void TestKorvaneSettingsWidget::cleanup()
{
    m_widget.reset();
    m_settings.reset();
    m_rereadIni.reset();
    m_ini.reset();
    m_dir.reset();
}

void TestKorvaneSettingsWidget::makeWidget()
{
    m_widget = std::make_unique<KorvaneSettingsWidget>(m_settings);
}

std::unique_ptr<KorvaneSettings> TestKorvaneSettingsWidget::reread()
{
    m_rereadIni = std::make_unique<QSettings>(iniPath(), QSettings::IniFormat);
    return std::make_unique<KorvaneSettings>(m_rereadIni.get());
}

void TestKorvaneSettingsWidget::constantCalculatorEntries()
{
    auto* combo = child<QComboBox>(QStringLiteral("cb_constCalc"));
    QCOMPARE(combo->count(), 2);
    QCOMPARE(combo->itemText(0), QStringLiteral("Вычислитель 1"));
    QCOMPARE(combo->itemData(0).toInt(), 2);
    QCOMPARE(combo->itemText(1), QStringLiteral("Вычислитель 2"));
    QCOMPARE(combo->itemData(1).toInt(), 0);
}

void TestKorvaneSettingsWidget::periodCountRange()
{
    auto* spin = child<QSpinBox>(QStringLiteral("sb_calcDuration"));
    QCOMPARE(spin->minimum(), 1);
    QCOMPARE(spin->maximum(), 8);
}

void TestKorvaneSettingsWidget::texts()
{
    QCOMPARE(child<QLabel>(QStringLiteral("l_constCalc"))->text(),
        QStringLiteral("Тип вычислителя постоянных сигналов:"));
    QCOMPARE(child<QLabel>(QStringLiteral("l_calcDuration"))->text(),
        QStringLiteral("Количество периодов для расчета (1 - 8):"));
    QCOMPARE(child<QPushButton>(QStringLiteral("pb_manual"))->text(), QStringLiteral("Задать промежуточное"));
}

void TestKorvaneSettingsWidget::defaultsShowTwoPeriods()
{
    QCOMPARE(child<QSpinBox>(QStringLiteral("sb_calcDuration"))->value(), 2);
    QVERIFY(child<QSpinBox>(QStringLiteral("sb_calcDuration"))->isEnabled());
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("40 мс"));
    QCOMPARE(child<QComboBox>(QStringLiteral("cb_constCalc"))->currentData().toInt(), 2);
    QVERIFY(!m_widget->isManual());
}

void TestKorvaneSettingsWidget::slotIntervalChanged_data()
{
    QTest::addColumn<int>("periods");
    QTest::addColumn<int>("ms");
    QTest::newRow("1 period is 20 ms") << 1 << 20;
    QTest::newRow("3 periods are 60 ms") << 3 << 60;
    QTest::newRow("8 periods are 160 ms") << 8 << 160;
}

void TestKorvaneSettingsWidget::slotIntervalChanged()
{
    QFETCH(int, periods);
    QFETCH(int, ms);
    m_widget->slotIntervalChanged(periods);
    QCOMPARE(m_widget->interval(), ms);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("%1 мс").arg(ms));
}

void TestKorvaneSettingsWidget::spinBoxDrivesTheInterval()
{
    child<QSpinBox>(QStringLiteral("sb_calcDuration"))->setValue(5);
    QCOMPARE(m_widget->interval(), 100);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("100 мс"));
}

void TestKorvaneSettingsWidget::manualPeriodOf50()
{
    m_widget->setManual(50);
    auto* spin = child<QSpinBox>(QStringLiteral("sb_calcDuration"));
    QCOMPARE(spin->value(), 2);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("50 мс"));
    QVERIFY(!spin->isEnabled());
    QCOMPARE(m_widget->interval(), 50);
    QVERIFY(m_widget->isManual());
}

void TestKorvaneSettingsWidget::manualPeriodOfWholePeriods_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<int>("periods");
    QTest::newRow("20 ms, lower bound") << 20 << 1;
    QTest::newRow("39 ms truncates to 1") << 39 << 1;
    QTest::newRow("60 ms") << 60 << 3;
    QTest::newRow("80 ms, upper bound") << 80 << 4;
}

void TestKorvaneSettingsWidget::manualPeriodOfWholePeriods()
{
    QFETCH(int, ms);
    QFETCH(int, periods);
    m_widget->setManual(ms);
    QCOMPARE(child<QSpinBox>(QStringLiteral("sb_calcDuration"))->value(), periods);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("%1 мс").arg(ms));
    QCOMPARE(m_widget->interval(), ms);
}

void TestKorvaneSettingsWidget::manualInputAccepted()
{
    m_widget->show();
    QString title;
    QString label;
    int start = 0;
    whenModalOpens([&](QWidget* modal) {
        auto* input = qobject_cast<QInputDialog*>(modal);
        if (!input) {
            modal->close();
            return;
        }
        title = input->windowTitle();
        label = input->labelText();
        start = input->intValue();
        input->setIntValue(70);
        input->accept();
    });
    QTest::mouseClick(child<QPushButton>(QStringLiteral("pb_manual")), Qt::LeftButton);
    QCOMPARE(title, QStringLiteral("Ввод периода"));
    QCOMPARE(label, QStringLiteral("Введите период для \nвычислителя, мс (20 - 80):"));
    QCOMPARE(start, 40);
    QCOMPARE(m_widget->interval(), 70);
    QCOMPARE(child<QSpinBox>(QStringLiteral("sb_calcDuration"))->value(), 3);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("70 мс"));
    QVERIFY(!child<QSpinBox>(QStringLiteral("sb_calcDuration"))->isEnabled());
}

void TestKorvaneSettingsWidget::manualInputCancelled()
{
    child<QSpinBox>(QStringLiteral("sb_calcDuration"))->setValue(3);
    bool seen = false;
    whenModalOpens([&](QWidget* modal) {
        seen = qobject_cast<QInputDialog*>(modal) != nullptr;
        if (auto* input = qobject_cast<QInputDialog*>(modal))
            input->setIntValue(50);
        modal->close();
    });
    m_widget->slotManualInterval();
    QVERIFY(seen);
    QCOMPARE(m_widget->interval(), 60);
    QVERIFY(!m_widget->isManual());
    QVERIFY(child<QSpinBox>(QStringLiteral("sb_calcDuration"))->isEnabled());
}

void TestKorvaneSettingsWidget::manualInputRange()
{
    int minimum = 0;
    int maximum = 0;
    whenModalOpens([&](QWidget* modal) {
        if (auto* input = qobject_cast<QInputDialog*>(modal)) {
            minimum = input->intMinimum();
            maximum = input->intMaximum();
        }
        modal->close();
    });
    m_widget->slotManualInterval();
    QCOMPARE(minimum, 20);
    QCOMPARE(maximum, 80);
}

void TestKorvaneSettingsWidget::clickOnDisabledCountLeavesManualPeriod()
{
    m_widget->show();
    m_widget->setManual(50);
    auto* spin = child<QSpinBox>(QStringLiteral("sb_calcDuration"));
    QTest::mouseClick(spin, Qt::LeftButton);
    QVERIFY(!m_widget->isManual());
    QVERIFY(spin->isEnabled());
    QCOMPARE(spin->value(), 2);
    QCOMPARE(m_widget->interval(), 40);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("40 мс"));
}

void TestKorvaneSettingsWidget::clickOnEnabledCountKeepsPeriods()
{
    m_widget->show();
    auto* spin = child<QSpinBox>(QStringLiteral("sb_calcDuration"));
    spin->setValue(4);
    QTest::mouseClick(spin, Qt::LeftButton);
    QVERIFY(!m_widget->isManual());
    QCOMPARE(m_widget->interval(), 80);
}

void TestKorvaneSettingsWidget::loadSettingsWithManualPeriod()
{
    m_settings->setManualFlag(true);
    m_settings->setManualInterval(30);
    m_settings->setCalcDuration(6);
    m_widget->loadSettings();
    auto* spin = child<QSpinBox>(QStringLiteral("sb_calcDuration"));
    QCOMPARE(spin->value(), 1);
    QVERIFY(!spin->isEnabled());
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("30 мс"));

    m_settings->setManualFlag(false);
    m_widget->loadSettings();
    QVERIFY(spin->isEnabled());
    QCOMPARE(spin->value(), 6);
    QCOMPARE(child<QLabel>(QStringLiteral("l_period"))->text(), QStringLiteral("120 мс"));
}

void TestKorvaneSettingsWidget::loadSettingsSelectsConstantCalculator_data()
{
    QTest::addColumn<int>("constType");
    QTest::addColumn<int>("index");
    QTest::newRow("constType 2 is the first entry") << 2 << 0;
    QTest::newRow("constType 0 is the second entry") << 0 << 1;
    QTest::newRow("unknown constType shows the first entry") << 5 << 0;
}

void TestKorvaneSettingsWidget::loadSettingsSelectsConstantCalculator()
{
    QFETCH(int, constType);
    QFETCH(int, index);
    m_settings->setConstType(constType);
    m_widget->loadSettings();
    QCOMPARE(child<QComboBox>(QStringLiteral("cb_constCalc"))->currentIndex(), index);
}

void TestKorvaneSettingsWidget::saveSettingsAlwaysStoresVarType2AndDevType0()
{
    m_settings->setVarType(1);
    m_settings->setDevType(1);
    m_widget->saveSettings();
    QCOMPARE(m_settings->varType(), 2);
    QCOMPARE(m_settings->devType(), 0);
    QSettings file(iniPath(), QSettings::IniFormat);
    QCOMPARE(file.value(QStringLiteral("KorvaneCalculator/type")).toInt(), 2);
    QCOMPARE(file.value(QStringLiteral("KorvaneCalculator/devType")).toInt(), 0);
}

void TestKorvaneSettingsWidget::saveSettingsStoresTheControls()
{
    child<QComboBox>(QStringLiteral("cb_constCalc"))->setCurrentIndex(1);
    child<QSpinBox>(QStringLiteral("sb_calcDuration"))->setValue(7);
    m_widget->saveSettings();
    const auto restored = reread();
    QCOMPARE(restored->constType(), 0);
    QCOMPARE(restored->calcDuration(), 7);
    QCOMPARE(restored->manualFlag(), false);
    QCOMPARE(restored->manualInterval(), 140);
}

void TestKorvaneSettingsWidget::saveSettingsStoresManualPeriod()
{
    m_widget->setManual(50);
    m_widget->saveSettings();
    const auto restored = reread();
    QCOMPARE(restored->manualFlag(), true);
    QCOMPARE(restored->manualInterval(), 50);
    QCOMPARE(restored->calcDuration(), 2);
}

void TestKorvaneSettingsWidget::varCalculatorComboHiddenUntilOffered()
{
    m_widget->show();
    auto* combo = child<QComboBox>(QStringLiteral("cb_varCalc"));
    QVERIFY(!combo->isVisible());
    m_widget->offerVarCalculator(QStringLiteral("Talvi"), 2);
    QVERIFY(combo->isVisible());
    QCOMPARE(combo->count(), 1);
    QCOMPARE(combo->itemText(0), QStringLiteral("Talvi"));
    QCOMPARE(combo->itemData(0).toInt(), 2);
}

QTEST_MAIN(TestKorvaneSettingsWidget)
#include "tst_korvanesettingswidget.moc"
