#include "Calc/CalcModule.h"
#include "CsvFixture.h"
#include "FixtureFiles.h"
#include "ModalDialogs.h"
#include "Model/RasObject.h"
#include "SaverFixture.h"
#include "Savers/ComtradeSaveSettings.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/CsvSaveSettings.h"
#include "Savers/CsvSaver.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

using namespace KorvaneTest;

namespace {
template<typename T> T* child(const QWidget& parent, const char* name)
{
    T* found = parent.findChild<T*>(QLatin1String(name));
    if (!found)
        qFatal("no child %s", name);
    return found;
}

QStringList itemTexts(const QComboBox& combo)
{
    QStringList texts;
    for (int i = 0; i < combo.count(); ++i)
        texts.append(combo.itemText(i));
    return texts;
}

QVariantList itemData(const QComboBox& combo)
{
    QVariantList data;
    for (int i = 0; i < combo.count(); ++i)
        data.append(combo.itemData(i));
    return data;
}

QStringList tabTexts(const QTabWidget& tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs.count(); ++i)
        texts.append(tabs.tabText(i));
    return texts;
}

// The keyboard moves a closed combo box one entry at a time, as a user's arrow keys do.
void chooseByKeys(QComboBox* combo, int index)
{
    combo->setFocus();
    while (combo->currentIndex() < index)
        QTest::keyClick(combo, Qt::Key_Down);
    while (combo->currentIndex() > index)
        QTest::keyClick(combo, Qt::Key_Up);
}

// One step of the arrow key, whatever the combo box does with it.
void stepDown(QComboBox* combo)
{
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
}

// The space bar ticks a focused check box wherever the dialog lies on the screen.
void tick(QCheckBox* box)
{
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Space);
}

// Types any text, Cyrillic included, as key presses carrying their characters.
void typeText(QWidget* widget, const QString& text)
{
    for (const QChar c : text)
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_A, QString(c), Qt::NoModifier);
}

void typePath(const QWidget& dialog, const QString& path)
{
    auto* edit = child<QLineEdit>(dialog, "le_path");
    edit->clear();
    QTest::keyClicks(edit, path);
}

void clickSave(const QWidget& dialog)
{
    QTest::mouseClick(child<QPushButton>(dialog, "pb_save"), Qt::LeftButton);
}

// Answers the next question box with the button and notes what it asked.
void answerNextQuestion(SeenBox& seen, QMessageBox::StandardButton button)
{
    whenModalOpens([&seen, button](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            seen = { box->windowTitle(), box->text(), box->icon() };
            box->button(button)->click();
        }
    });
}

SaveSource sourceOf(const QSharedPointer<Oscillogram>& record)
{
    SaveSource source;
    source.record = record;
    return source;
}

TableRecordDescription smallTable()
{
    TableRecordDescription d;
    d.analogNames = QStringList { QStringLiteral("Ia"), QStringLiteral("Ub") };
    d.analogRaw = { { 1.5, 12.0, 1.0005, -2.5 }, { 2.25, -3.0, 0.1, 7.0 } };
    d.digitalNames = QStringList { QStringLiteral("Пуск") };
    d.digitalBits = { { false, true, true, false } };
    d.triggerSample = 1;
    return d;
}
} // namespace

class TestSaveDialogs : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;

private slots:
    // Date "yy.MM.dd", time "HH.mm.ss.zzz" and the local code "%1t", "+" before a positive one.
    void defaultFileName_data()
    {
        QTest::addColumn<int>("offsetHours");
        QTest::addColumn<QString>("expected");
        QTest::newRow("UTC+3") << 3 << "24.03.15,10.20.30.123,+3t";
        QTest::newRow("UTC") << 0 << "24.03.15,10.20.30.123,0t";
        QTest::newRow("UTC-5") << -5 << "24.03.15,10.20.30.123,-5t";
    }
    void defaultFileName()
    {
        QFETCH(int, offsetHours);
        QFETCH(QString, expected);
        const PreciseDateTime begin(2024, 3, 15, 10, 20, 30, 123456, offsetHours * 3600);
        QCOMPARE(DiaSaveSettings::defaultFileName(begin), expected);
    }

    // A record without a file on disk is saved to the home folder under the default name.
    void defaultPath()
    {
        const auto record = makeSaverRecord({});
        CsvSaveSettings csv(sourceOf(record));
        QCOMPARE(child<QLineEdit>(csv, "le_path")->text(),
            QDir::home().filePath(
                DiaSaveSettings::defaultFileName(record->beginTime()) + QStringLiteral(".csv")));
        ComtradeSaveSettings comtrade(sourceOf(record));
        QVERIFY(child<QLineEdit>(comtrade, "le_path")->text().endsWith(QStringLiteral(".zip")));
        QCOMPARE(comtrade.suffix(), QStringLiteral("zip"));
        QCOMPARE(csv.suffix(), QStringLiteral("csv"));
    }

    void frameControls()
    {
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        auto* hint = child<QLabel>(dialog, "l_hint");
        QCOMPARE(hint->styleSheet(),
            QStringLiteral("QLabel{background: rgba(255,255,127,255);border: 1px solid "
                           "rgba(127,127,127,255);border-radius: 4px;}"));
        QVERIFY(!hint->text().isEmpty());
        auto* encoding = child<QComboBox>(dialog, "cb_encoding");
        QCOMPARE(itemTexts(*encoding), QStringList({ "UTF-8 (рекомендуется)", "Windows-1251", "CP866" }));
        QCOMPARE(itemData(*encoding), QVariantList({ "UTF-8", "windows-1251", "CP866" }));
        QCOMPARE(child<QPushButton>(dialog, "pb_save")->text(), QStringLiteral("Сохранить"));
        QVERIFY(child<QPushButton>(dialog, "pb_browse"));
        QVERIFY(child<QCheckBox>(dialog, "cb_selectedChannels")->isEnabled());
        // Nothing marked on the view: no range to choose.
        QVERIFY(!child<QCheckBox>(dialog, "cb_timeRange")->isEnabled());
    }

    void emptyPathIsRefused()
    {
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        dialog.show();
        child<QLineEdit>(dialog, "le_path")->clear();
        SeenBox seen;
        closeNextMessageBox(seen);
        clickSave(dialog);
        QCOMPARE(seen.text, QStringLiteral("Ошибка сохранения: путь не указан"));
        QVERIFY(dialog.isVisible());
        QVERIFY(dialog.result() != QDialog::Accepted);
    }

    void pathWithoutSuffixGetsIt()
    {
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        typePath(dialog, m_dir.filePath(QStringLiteral("table")));
        QCOMPARE(dialog.path(), m_dir.filePath(QStringLiteral("table.csv")));
        typePath(dialog, m_dir.filePath(QStringLiteral("table.CSV")));
        QCOMPARE(dialog.path(), m_dir.filePath(QStringLiteral("table.CSV")));
    }

    // The browse button offers a file dialog of the suffix; the chosen file becomes the path.
    void browseChoosesThePath()
    {
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        const QString chosen = m_dir.filePath(QStringLiteral("chosen.csv"));
        QStringList filters;
        whenModalOpens([&filters, chosen](QWidget* modal) {
            auto* files = qobject_cast<QFileDialog*>(modal);
            if (!files)
                return;
            filters = files->nameFilters();
            files->selectFile(chosen);
            QMetaObject::invokeMethod(files, "accept");
        });
        QTest::mouseClick(child<QPushButton>(dialog, "pb_browse"), Qt::LeftButton);
        QCOMPARE(filters, QStringList({ "*.csv" }));
        QCOMPARE(dialog.path(), chosen);
    }

    void existingFileAsksBeforeOverwriting()
    {
        const QString path = m_dir.filePath(QStringLiteral("existing.csv"));
        QVERIFY(writeFile(path, "old"));
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        dialog.show();
        typePath(dialog, path);
        SeenBox seen;
        answerNextQuestion(seen, QMessageBox::No);
        clickSave(dialog);
        QCOMPARE(seen.title, QStringLiteral("Сохранение файла"));
        QCOMPARE(seen.text, QStringLiteral("Файл %1 существует, перезаписать?").arg(path));
        QVERIFY(dialog.isVisible());
        answerNextQuestion(seen, QMessageBox::Yes);
        clickSave(dialog);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    void csvControls()
    {
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Экспорт осциллограммы как CSV"));
        auto* mode = child<QComboBox>(dialog, "cb_mode");
        QCOMPARE(itemTexts(*mode), QStringList({ "Без обработки", "Режим ПА", "Режим Talvi" }));
        QCOMPARE(itemData(*mode), QVariantList({ 0, 1, 2 }));
        auto* separator = child<QComboBox>(dialog, "cb_separator");
        QCOMPARE(itemTexts(*separator), QStringList({ "Точка с запятой", "Запятая" }));
        QCOMPARE(itemData(*separator), QVariantList({ 0, 1 }));
        auto* decimal = child<QComboBox>(dialog, "cb_decimal");
        QCOMPARE(itemTexts(*decimal), QStringList({ "Точка", "Запятая" }));
        QCOMPARE(itemData(*decimal), QVariantList({ 1, 0 }));
    }

    void commaInBothPlacesIsRefused_data()
    {
        QTest::addColumn<bool>("separatorFirst");
        QTest::newRow("separator, then decimal") << true;
        QTest::newRow("decimal, then separator") << false;
    }
    void commaInBothPlacesIsRefused()
    {
        QFETCH(bool, separatorFirst);
        CsvSaveSettings dialog(sourceOf(makeSaverRecord({})));
        dialog.show();
        auto* separator = child<QComboBox>(dialog, "cb_separator");
        auto* decimal = child<QComboBox>(dialog, "cb_decimal");
        SeenBox seen;
        stepDown(separatorFirst ? separator : decimal);
        QCOMPARE(seen.text, QString());
        closeNextMessageBox(seen);
        stepDown(separatorFirst ? decimal : separator);
        QCOMPARE(seen.title, QStringLiteral("Ошибка"));
        QCOMPARE(seen.icon, QMessageBox::Critical);
        QCOMPARE(seen.text,
            QStringLiteral(
                "Одновременное использование <b>запятой</b> в качестве разделителя CSV и разделителя "
                "дробной части приведет к некорректному отображению и чтению данных"));
        QCOMPARE(separator->currentIndex(), 0);
        QCOMPARE(decimal->currentIndex(), 0);
        QCOMPARE(dialog.separatorChoice(), 0);
        QCOMPARE(dialog.decimalChoice(), 1);
    }

    // Every control of the CSV dialog reaches the saver, and the saver writes what they chose.
    void csvControlsBuildTheSaver()
    {
        const auto record = makeTableRecord(smallTable());
        record->analogChannel(1)->setIsSelected(true);
        record->digitalChannel(0)->setIsSelected(true);
        SaveSource source = sourceOf(record);
        source.calcModule = QSharedPointer<CalcModule>::create();
        source.calcModule->init(DevConfig());
        source.primSecMode = 1;
        source.timeRange = sampleRange(3, 1);
        CsvSaveSettings dialog(source);
        dialog.show();
        const QString path = m_dir.filePath(QStringLiteral("chosen.csv"));
        typePath(dialog, path);
        tick(child<QCheckBox>(dialog, "cb_selectedChannels"));
        tick(child<QCheckBox>(dialog, "cb_timeRange"));
        chooseByKeys(child<QComboBox>(dialog, "cb_encoding"), 1);
        chooseByKeys(child<QComboBox>(dialog, "cb_mode"), 2);
        chooseByKeys(child<QComboBox>(dialog, "cb_separator"), 1);
        clickSave(dialog);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        const std::unique_ptr<WaveSaver> saver = dialog.createSaver();
        auto* csv = dynamic_cast<CsvSaver*>(saver.get());
        QVERIFY(csv);
        QCOMPARE(csv->fileName(), path);
        QVERIFY(csv->onlySelectedChannels());
        QVERIFY(csv->useTimeRange());
        QCOMPARE(csv->timeRange().startSampleNumber(), 1);
        QCOMPARE(csv->timeRange().finishSampleNumber(), 3);
        QCOMPARE(csv->codec(), QTextCodec::codecForName("windows-1251"));
        QCOMPARE(csv->mode(), 2);
        QCOMPARE(csv->separator(), QChar(','));
        QCOMPARE(csv->numberLocale().decimalPoint(), QChar('.'));
        QCOMPARE(csv->primSecMode(), 1);
        // A module of the saver's own, made from the view's.
        QVERIFY(csv->calcModule());
        QVERIFY(csv->calcModule() != source.calcModule);
    }

    // Plain mode through the dialog: the file holds the chosen channels, range and separators.
    void csvDialogEndToEnd()
    {
        const auto record = makeTableRecord(smallTable());
        record->analogChannel(0)->setIsSelected(true);
        SaveSource source = sourceOf(record);
        source.timeRange = sampleRange(0, 3);
        CsvSaveSettings dialog(source);
        const QString path = m_dir.filePath(QStringLiteral("end.csv"));
        typePath(dialog, path);
        tick(child<QCheckBox>(dialog, "cb_selectedChannels"));
        tick(child<QCheckBox>(dialog, "cb_timeRange"));
        chooseByKeys(child<QComboBox>(dialog, "cb_separator"), 1);
        clickSave(dialog);
        const std::unique_ptr<WaveSaver> saver = dialog.createSaver();
        saver->saveProcess();
        QVERIFY(saver->isOk());
        QCOMPARE(readFile(path), QByteArray("step,time,Ia\n0,-0.001,1.5\n1,0,12\n2,0.001,1.001\n"));
    }

    void comtradeFormatsFollowTheStore_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QVariantList>("data");
        QTest::newRow("float store") << int(DT::Float) << QStringList({ "FLOAT32", "BINARY32", "ASCII" })
                                     << QVariantList({ 3, 2, 0 });
        QTest::newRow("16-bit store")
            << int(DT::Int16) << QStringList({ "FLOAT32", "BINARY32", "BINARY", "ASCII" })
            << QVariantList({ 3, 2, 1, 0 });
    }
    void comtradeFormatsFollowTheStore()
    {
        QFETCH(int, type);
        QFETCH(QStringList, texts);
        QFETCH(QVariantList, data);
        SaverRecordDescription d;
        d.type = DT::DataType(type);
        ComtradeSaveSettings dialog(sourceOf(makeSaverRecord(d)));
        auto* format = child<QComboBox>(dialog, "cb_format");
        QCOMPARE(itemTexts(*format), texts);
        QCOMPARE(itemData(*format), data);
    }

    void comtradeControls()
    {
        const auto record = makeSaverRecord({});
        ComtradeSaveSettings dialog(sourceOf(record));
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Сохранить осциллограмму как"));
        QCOMPARE(itemTexts(*child<QComboBox>(dialog, "cb_standard")), QStringList({ "2013", "2017" }));
        QCOMPARE(child<QLineEdit>(dialog, "le_revision")->text(), QStringLiteral("1.0"));
        auto* objects = child<QTabWidget>(dialog, "tw_objects");
        QCOMPARE(tabTexts(*objects), QStringList({ "Объект 1" }));
        QCOMPARE(tabTexts(*child<QTabWidget>(*objects, "tw_devices")), QStringList({ "Устройство 1" }));
        QCOMPARE(child<QLineEdit>(*objects, "le_company")->text(), QStringLiteral("ТестЭнерго"));
        QCOMPARE(child<QLineEdit>(*objects, "le_station")->text(), QStringLiteral("ПС Южная"));
        QCOMPARE(child<QLineEdit>(*objects, "le_serialNumber")->text(), QStringLiteral("SN-0042"));
        QCOMPARE(child<QGroupBox>(dialog, "gb_information")->title(),
            QStringLiteral("Информация об осциллограмме"));
    }

    // "+" before a non-negative offset, none before a negative one that carries its own sign.
    void timeZoneRows_data()
    {
        QTest::addColumn<int>("recordHours");
        QTest::addColumn<QString>("before");
        QTest::newRow("UTC+3") << 3 << "        До сохранения (UTC+3):";
        QTest::newRow("UTC") << 0 << "        До сохранения (UTC+0):";
        QTest::newRow("UTC-5") << -5 << "        До сохранения (UTC-5):";
    }
    void timeZoneRows()
    {
        QFETCH(int, recordHours);
        QFETCH(QString, before);
        TableRecordDescription d = smallTable();
        const auto record = makeTableRecord(d);
        PreciseDateTime trigger = record->triggerTime();
        trigger.recalcTimeZone(recordHours * 3600);
        record->setTriggerTime(trigger);
        ComtradeSaveSettings dialog(sourceOf(record));
        QCOMPARE(child<QLabel>(dialog, "l_tzBefore")->text(), before);
        auto* zone = child<QSpinBox>(dialog, "sb_timeZone");
        QCOMPARE(zone->value(), recordHours);
        QCOMPARE(child<QLabel>(dialog, "l_tzAfter")->text(), QString(before).replace("До", "После"));
        zone->setValue(-2);
        QCOMPARE(
            child<QLabel>(dialog, "l_tzAfter")->text(), QStringLiteral("        После сохранения (UTC-2):"));
        zone->setValue(7);
        QCOMPARE(
            child<QLabel>(dialog, "l_tzAfter")->text(), QStringLiteral("        После сохранения (UTC+7):"));
        // The begin time shown in each zone: 10:20:30 at UTC+3 is 14:20:30 at UTC+7.
        PreciseDateTime shifted = record->beginTime();
        shifted.recalcTimeZone(7 * 3600);
        QCOMPARE(child<QLabel>(dialog, "l_timeAfter")->text(), shifted.toString());
        QVERIFY(shifted.toString().contains(QStringLiteral("14:20:30")));
    }

    void comtradeControlsBuildTheSaver()
    {
        SaverRecordDescription d;
        d.type = DT::Int16;
        const auto record = makeSaverRecord(d);
        record->setHeaderFileContent(QStringLiteral("Заголовок записи"));
        SaveSource source = sourceOf(record);
        source.timeRange = sampleRange(10, 60);
        ComtradeSaveSettings dialog(source);
        dialog.show();
        const QString path = m_dir.filePath(QStringLiteral("set.zip"));
        typePath(dialog, path);
        chooseByKeys(child<QComboBox>(dialog, "cb_format"), 2);
        child<QSpinBox>(dialog, "sb_timeZone")->setValue(5);
        auto* company = child<QLineEdit>(dialog, "le_company");
        company->clear();
        typeText(company, QStringLiteral("Новая организация"));
        tick(child<QCheckBox>(dialog, "cb_timeRange"));
        clickSave(dialog);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        const std::unique_ptr<WaveSaver> saver = dialog.createSaver();
        auto* comtrade = dynamic_cast<ComtradeSaver*>(saver.get());
        QVERIFY(comtrade);
        QCOMPARE(comtrade->fileName(), path);
        QCOMPARE(comtrade->comtradeFormat(), 1);
        QCOMPARE(comtrade->localCodeHours(), 5);
        QCOMPARE(comtrade->timeCodeHours(), 5);
        QVERIFY(!comtrade->onlySelectedChannels());
        QVERIFY(comtrade->useTimeRange());
        QCOMPARE(comtrade->timeRange().startSampleNumber(), 10);
        QCOMPARE(comtrade->codec(), QTextCodec::codecForName("UTF-8"));
        QCOMPARE(comtrade->headerData(), QStringLiteral("Заголовок записи"));
        QCOMPARE(comtrade->objList().size(), 1);
        QCOMPARE(comtrade->objList().first().companyName, QStringLiteral("Новая организация"));
        QCOMPARE(comtrade->objList().first().stationName, QStringLiteral("ПС Южная"));
        QCOMPARE(comtrade->objList().first().devices.first().serialNumber, QStringLiteral("SN-0042"));
        comtrade->saveProcess();
        QVERIFY(comtrade->isOk());
        QVERIFY(QFileInfo(path).size() > 0);
    }

    // An empty organisation and an empty substation are each asked about; a refusal keeps the
    // dialog open.
    void emptyObjectFieldsAreAskedAbout()
    {
        const auto record = makeTableRecord(smallTable());
        ComtradeSaveSettings dialog(sourceOf(record));
        dialog.show();
        typePath(dialog, m_dir.filePath(QStringLiteral("blank.zip")));
        SeenBox seen;
        answerNextQuestion(seen, QMessageBox::No);
        clickSave(dialog);
        QCOMPARE(seen.title, QStringLiteral("Сохранение файла"));
        QCOMPARE(seen.text, QStringLiteral("Не указано наименование организации. Продолжить сохранение?"));
        QVERIFY(dialog.isVisible());

        SeenBox second;
        answerNextQuestion(seen, QMessageBox::Yes);
        QTimer::singleShot(300, [&second] { answerNextQuestion(second, QMessageBox::No); });
        clickSave(dialog);
        QCOMPARE(second.title, QStringLiteral("Сохранение файла"));
        QCOMPARE(second.text, QStringLiteral("Не указано наименование ПС или ЭС. Продолжить сохранение?"));
        QVERIFY(dialog.isVisible());

        typeText(child<QLineEdit>(dialog, "le_company"), QStringLiteral("Сети"));
        typeText(child<QLineEdit>(dialog, "le_station"), QStringLiteral("ПС Новая"));
        clickSave(dialog);
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }

    // A record without objects offers one blank object; left blank, none is written.
    void blankObjectIsNotWritten()
    {
        ComtradeSaveSettings dialog(sourceOf(makeTableRecord(smallTable())));
        QCOMPARE(tabTexts(*child<QTabWidget>(dialog, "tw_objects")), QStringList({ "Объект 1" }));
        auto saver = dialog.createSaver();
        QVERIFY(static_cast<ComtradeSaver*>(saver.get())->objList().isEmpty());
        typeText(child<QLineEdit>(dialog, "le_territory"), QStringLiteral("Юг"));
        saver = dialog.createSaver();
        QCOMPARE(static_cast<ComtradeSaver*>(saver.get())->objList().size(), 1);
        QCOMPARE(static_cast<ComtradeSaver*>(saver.get())->objList().first().territory, QStringLiteral("Юг"));
    }
};

QTEST_MAIN(TestSaveDialogs)
#include "tst_savedialogs.moc"
