#include "Calc/CalcModule.h"
#include "CsvFixture.h"
#include "FixtureFiles.h"
#include "ModalDialogs.h"
#include "Savers/ComtradeSaveSettings.h"
#include "Savers/CsvSaveSettings.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramSaveAs.h"
#include "Views/OscillogramViewModel.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

using namespace KorvaneTest;

namespace {
TableRecordDescription smallTable()
{
    TableRecordDescription d;
    d.analogNames = QStringList { QStringLiteral("Ia") };
    d.analogRaw = { { 1.5, 12.0, -2.25 } };
    d.digitalNames = QStringList { QStringLiteral("Пуск") };
    d.digitalBits = { { false, true, true } };
    d.triggerSample = 1;
    return d;
}

// Types the path into the save dialog that opens next and presses "Сохранить".
void saveInNextDialog(const QString& path, QString& dialogClass)
{
    whenModalOpens([path, &dialogClass](QWidget* modal) {
        dialogClass = QString::fromLatin1(modal->metaObject()->className());
        auto* edit = modal->findChild<QLineEdit*>(QStringLiteral("le_path"));
        auto* save = modal->findChild<QPushButton*>(QStringLiteral("pb_save"));
        if (!edit || !save)
            return;
        edit->setText(path);
        // A COMTRADE set names its organisation and substation, so that nothing is asked.
        for (const char* name : { "le_company", "le_station" }) {
            if (auto* field = modal->findChild<QLineEdit*>(QLatin1String(name)))
                field->setText(QStringLiteral("Сети"));
        }
        QTest::mouseClick(save, Qt::LeftButton);
    });
}
} // namespace

class TestOscillogramSaveAs : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    std::unique_ptr<QSettings> m_ini;
    QSharedPointer<KorvaneSettings> m_settings;

private slots:
    void initTestCase()
    {
        m_ini = std::make_unique<QSettings>(
            m_dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat);
        m_settings = QSharedPointer<KorvaneSettings>::create(m_ini.get());
    }

    // The record, the view's module and side of values, and the last completed measure.
    void sourceOfTheView()
    {
        OscillogramViewModel model;
        model.setAllSettings(m_settings);
        const auto record = makeTableRecord(smallTable());
        model.setOscillogram(record);
        model.setPrimSecMode(1);
        MeasureItem first;
        first.setStartSampleNumber(0);
        first.setFinishSampleNumber(2);
        first.setComplete(true);
        MeasureItem unfinished;
        unfinished.setStartSampleNumber(1);
        model.setTimeMeasures({ first, unfinished });
        const SaveSource source = OscillogramSaveAs::sourceOf(model);
        QCOMPARE(source.record, QSharedPointer<Oscillogram>(record));
        QVERIFY(source.calcModule);
        QCOMPARE(source.calcModule, model.calcModule());
        QCOMPARE(source.primSecMode, 1);
        QVERIFY(source.timeRange.has_value());
        QCOMPARE(*source.timeRange, first);
        model.setTimeMeasures({ unfinished });
        QVERIFY(!OscillogramSaveAs::sourceOf(model).timeRange.has_value());
    }

    void dialogOfEachFormat()
    {
        SaveSource source;
        source.record = makeTableRecord(smallTable());
        QVERIFY(dynamic_cast<ComtradeSaveSettings*>(
            OscillogramSaveAs::createDialog(OscillogramSaveAs::Comtrade, source, nullptr).get()));
        QVERIFY(dynamic_cast<CsvSaveSettings*>(
            OscillogramSaveAs::createDialog(OscillogramSaveAs::Csv, source, nullptr).get()));
        // The hodograph exports have dialogs of their own.
        QVERIFY(!OscillogramSaveAs::createDialog(2, source, nullptr));
    }

    void eachFormatWritesItsFile_data()
    {
        QTest::addColumn<int>("format");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("dialogClass");
        // The dialog's defaults: UTF-8, semicolons and a point.
        QTest::addColumn<QByteArray>("beginning");
        QTest::newRow("CSV")
            << int(OscillogramSaveAs::Csv) << "view.csv"
            << "CsvSaveSettings"
            << QStringLiteral("step;time;Ia;Пуск\n0;-0.001;1.5;0\n1;0;12;1\n2;0.001;-2.25;1\n").toUtf8();
        QTest::newRow("COMTRADE") << int(OscillogramSaveAs::Comtrade) << "view.zip"
                                  << "ComtradeSaveSettings" << QByteArray("PK\x03\x04");
    }
    void eachFormatWritesItsFile()
    {
        QFETCH(int, format);
        QFETCH(QString, name);
        QFETCH(QString, dialogClass);
        QFETCH(QByteArray, beginning);
        OscillogramViewModel model;
        model.setAllSettings(m_settings);
        model.setOscillogram(makeTableRecord(smallTable()));
        const QString path = m_dir.filePath(name);
        QString seenDialog;
        saveInNextDialog(path, seenDialog);
        SeenBox seen;
        closeNextMessageBox(seen);
        QVERIFY(OscillogramSaveAs::run(format, model, nullptr));
        QCOMPARE(seenDialog, dialogClass);
        QCOMPARE(seen.text, QStringLiteral("Осциллограмма сохранена"));
        QVERIFY(readFile(path).startsWith(beginning));
        // The table is all there is; an archive goes on beyond its signature.
        if (format == OscillogramSaveAs::Csv)
            QCOMPARE(readFile(path), beginning);
    }

    void closingTheDialogWritesNothing()
    {
        OscillogramViewModel model;
        model.setAllSettings(m_settings);
        model.setOscillogram(makeTableRecord(smallTable()));
        whenModalOpens([](QWidget* modal) { static_cast<QDialog*>(modal)->reject(); });
        QVERIFY(!OscillogramSaveAs::run(OscillogramSaveAs::Csv, model, nullptr));
    }
};

QTEST_MAIN(TestOscillogramSaveAs)
#include "tst_oscillogramsaveas.moc"
