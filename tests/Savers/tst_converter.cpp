#include "FixtureFiles.h"
#include "Model/EasyLibKorvane.h"
#include "SaverFixture.h"
#include "Savers/Converter.h"
#include "ZipFixture.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>

using namespace KorvaneTest;

class TestConverter : public QObject
{
    Q_OBJECT
private:
    QTemporaryDir m_dir;
    QString m_source;

    QString path(const QString& name) const { return m_dir.filePath(name); }

private slots:
    void initTestCase()
    {
        EasyLibKorvane::initialize();
        QVERIFY(m_dir.isValid());
        m_source = writeSmallComtradeSet(m_dir.path(), QStringLiteral("source"));
    }

    void refusals_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("message");
        QTest::newRow("no arguments") << QStringList() << "Неверное количество аргументов";
        QTest::newRow("one argument") << QStringList { "a.cfg" } << "Неверное количество аргументов";
        QTest::newRow("three arguments") << QStringList { "a", "b", "c" } << "Неверное количество аргументов";
        QTest::newRow("missing source, named by its file name")
            << QStringList { "/nonexistent/folder/missing.cfg", "/nonexistent/out.zip" }
            << "Не существует осциллограммы missing.cfg";
        QTest::newRow("missing destination folder, told by the path as given") << QStringList { "@source",
            "/nonexistent/folder/out.zip" } << "Не существует такого пути /nonexistent/folder/out.zip";
        QTest::newRow("cfg destination is refused")
            << QStringList { "@source", "@out.cfg" } << "Невозможно конвертировать в данный формат cfg";
        QTest::newRow("destination without suffix: empty name of the format")
            << QStringList { "@source", "@out" } << "Невозможно конвертировать в данный формат ";
        QTest::newRow("unknown source format comes from the opening")
            << QStringList { "@notes.txt", "@out.zip" } << "Формат файла не поддерживается";
        QTest::newRow("a set that does not load")
            << QStringList { "@broken.cfg", "@out.zip" } << "Невозможно открыть файл broken.cfg";
    }
    void refusals()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, message);
        writeFile(path(QStringLiteral("notes.txt")), "text");
        writeFile(path(QStringLiteral("broken.cfg")), "not,a\nconfiguration\n");
        writeFile(path(QStringLiteral("broken.dat")), "");
        for (QString& arg : args) {
            if (arg == QLatin1String("@source"))
                arg = m_source;
            else if (arg.startsWith(QLatin1Char('@')))
                arg = path(arg.mid(1));
        }
        QString error;
        QVERIFY(!Converter::convertOsc(args, error));
        QCOMPARE(error, message);
        QVERIFY(!QFileInfo::exists(path(QStringLiteral("out.zip"))));
    }

    void convertsIntoAZipThatReadsBack_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("zip") << "converted.zip";
        QTest::newRow("upper-case ZIP") << "CONVERTED.ZIP";
        QTest::newRow("gdf is written as a zip under that name") << "converted.gdf";
    }
    void convertsIntoAZipThatReadsBack()
    {
        QFETCH(QString, target);
        QString error;
        QVERIFY(Converter::convertOsc({ m_source, path(target) }, error));
        QVERIFY(error.isEmpty());
        const QList<ZipEntryInfo> entries = readZip(path(target));
        QCOMPARE(entries.size(), 4);
        const QString base = QFileInfo(target).completeBaseName();
        QCOMPARE(entries[0].rawName, cp866(base + ".INF"));
        QCOMPARE(entries[3].rawName, cp866(base + ".DAT"));

        // The zip road of the loader only reads names ending in .zip.
        const QString copy = path(base + "-copy.zip");
        QFile::remove(copy);
        QVERIFY(QFile::copy(path(target), copy));
        const LoadedRecord loaded = loadComtrade(copy);
        QVERIFY2(loaded.record, qPrintable(loaded.error));
        const auto& record = *loaded.record;
        QCOMPARE(record.stationName(), QStringLiteral("Малая ПС"));
        QCOMPARE(record.countOfAnalogChannels(), 2);
        QCOMPARE(record.countOfDigitalChannels(), 1);
        QCOMPARE(record.countOfSamples(), smallSetSamples);
        QCOMPARE(record.analogChannel(1)->unit(), QStringLiteral("kV"));
        QCOMPARE(record.analogChannel(0)->multiplier(), 0.5);
        QCOMPARE(record.analogChannel(0)->offsetAdder(), 1.0);
        QCOMPARE(record.digitalChannel(0)->name(), QStringLiteral("Пуск"));
        for (int s = 0; s < smallSetSamples; ++s) {
            for (int c = 0; c < 2; ++c)
                QCOMPARE(record.analogChannel(c)->Channel::getValue(s, c), smallSetRaw(s, c));
            QCOMPARE(record.digitalChannel(0)->Channel::getValue(s, 0), smallSetBit(s) ? 1.0 : 0.0);
        }
    }

    void aConversionWritesUtf8()
    {
        QString error;
        const QString target = path(QStringLiteral("utf8.zip"));
        QVERIFY(Converter::convertOsc({ m_source, target }, error));
        const QList<ZipEntryInfo> entries = readZip(target);
        QCOMPARE(entries.size(), 4);
        QVERIFY(entries[2].data.startsWith(QStringLiteral("Малая ПС,Рег 1,2013\r\n").toUtf8()));
    }

    // A CSV destination gives the plain table in UTF-8 with the defaults of the CSV saver: primary
    // values, semicolons and a Russian comma. Ia is held secondary (raw 10s - 30, × 0.5 + 1) and
    // shown primary by × 600 / 5: 600s - 1680. Ub is s² × 0.01 kV. Times from the trigger at sample 5.
    void convertsIntoACsvTable()
    {
        QString error;
        const QString target = path(QStringLiteral("table.CSV"));
        QVERIFY(Converter::convertOsc({ m_source, target }, error));
        QString expected = QStringLiteral("step;time;Ia;Ub;Пуск\n");
        const QStringList ub
            = { "0", "0,01", "0,04", "0,09", "0,16", "0,25", "0,36", "0,49", "0,64", "0,81" };
        const QStringList times
            = { "-0,005", "-0,004", "-0,003", "-0,002", "-0,001", "0", "0,001", "0,002", "0,003", "0,004" };
        for (int s = 0; s < smallSetSamples; ++s)
            expected += QStringLiteral("%1;%2;%3;%4;%5\n")
                            .arg(s)
                            .arg(times.at(s))
                            .arg(600 * s - 1680)
                            .arg(ub.at(s))
                            .arg(smallSetBit(s) ? 1 : 0);
        QCOMPARE(QString::fromUtf8(readFile(target)), expected);
    }

    void anUnwritableDestinationIsOneMessage()
    {
        // A folder in the place of the target can't be replaced.
        const QString target = path(QStringLiteral("taken.zip"));
        QVERIFY(QDir().mkpath(target));
        QString error;
        QVERIFY(!Converter::convertOsc({ m_source, target }, error));
        QCOMPARE(error, QStringLiteral("Ошибка конвертации"));
        QVERIFY(QFileInfo(target).isDir());
    }

    void getTzFoldsLikeTheFactory()
    {
        qputenv("TZ", "XYZ-14");
        tzset();
        QCOMPARE(Converter::getTz(), 2);
        qputenv("TZ", "XYZ+13");
        tzset();
        QCOMPARE(Converter::getTz(), -1);
        qputenv("TZ", "UTC0");
        tzset();
    }
};

QTEST_GUILESS_MAIN(TestConverter)
#include "tst_converter.moc"
