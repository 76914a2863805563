#include "SaverFixture.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/CsvSaver.h"
#include "Savers/OscSaverFactory.h"

#include <QTest>

#include <ctime>
#include <memory>

namespace {
// Stands in for the CSV saver where a test needs one.
class StandInCsvSaver : public WaveSaver
{
public:
    using WaveSaver::WaveSaver;

protected:
    void saveOsc() override { }
};

// POSIX zone strings count west of Greenwich as positive: "XYZ-14" is UTC+14.
void setZone(const QByteArray& zone)
{
    qputenv("TZ", zone);
    tzset();
}
} // namespace

class TestOscSaverFactory : public QObject
{
    Q_OBJECT
private slots:
    // First, while no test has replaced the CSV maker yet.
    void csvGivesACsvSaverFromTheStart()
    {
        QVERIFY(OscSaverFactory::canSave(QStringLiteral("a.csv")));
        QVERIFY(OscSaverFactory::canSave(QStringLiteral("a.CSV")));
        const auto record = KorvaneTest::makeSaverRecord({});
        std::unique_ptr<WaveSaver> saver(
            OscSaverFactory::createSaverForOsc(QStringLiteral("/tmp/x.CSV"), record));
        auto* csv = dynamic_cast<CsvSaver*>(saver.get());
        QVERIFY(csv);
        QCOMPARE(csv->fileName(), QStringLiteral("/tmp/x.CSV"));
        QVERIFY(!csv->onlySelectedChannels());
        QVERIFY(!csv->useTimeRange());
    }

    void cleanup()
    {
        OscSaverFactory::setCsvSaverMaker(nullptr);
        setZone("UTC0");
    }

    void suffixList() { QCOMPARE(OscSaverFactory::savableSuffixes(), QStringList({ "zip", "csv", "gdf" })); }

    void canSave_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<bool>("expected");
        QTest::newRow("zip") << "/tmp/a.zip" << true;
        QTest::newRow("upper-case ZIP") << "/tmp/a.ZIP" << true;
        QTest::newRow("gdf") << "a.gdf" << true;
        QTest::newRow("cfg is not in the list") << "a.cfg" << false;
        QTest::newRow("no suffix") << "/tmp/record" << false;
        QTest::newRow("only the last suffix counts") << "a.zip.txt" << false;
        QTest::newRow("csv without a CSV saver") << "a.csv" << false;
        QTest::newRow("upper-case CSV without a CSV saver") << "a.CSV" << false;
    }
    void canSave()
    {
        QFETCH(QString, path);
        QFETCH(bool, expected);
        QCOMPARE(OscSaverFactory::canSave(path), expected);
    }

    void csvIsSavableOnceItsSaverIsThere()
    {
        QSharedPointer<Oscillogram> seen;
        OscSaverFactory::setCsvSaverMaker([&seen](const QString& path, QSharedPointer<Oscillogram> record) {
            seen = record;
            return new StandInCsvSaver(path, record, false, false);
        });
        QVERIFY(OscSaverFactory::canSave(QStringLiteral("a.csv")));
        QVERIFY(OscSaverFactory::canSave(QStringLiteral("a.CSV")));
        const auto record = KorvaneTest::makeSaverRecord({});
        std::unique_ptr<WaveSaver> saver(
            OscSaverFactory::createSaverForOsc(QStringLiteral("/tmp/x.CSV"), record));
        QVERIFY(dynamic_cast<StandInCsvSaver*>(saver.get()));
        QCOMPARE(seen, QSharedPointer<Oscillogram>(record));
        QVERIFY(!saver->onlySelectedChannels());
        QVERIFY(!saver->useTimeRange());
    }

    void csvWithoutItsSaverGivesNone()
    {
        std::unique_ptr<WaveSaver> saver(
            OscSaverFactory::createSaverForOsc(QStringLiteral("x.csv"), KorvaneTest::makeSaverRecord({})));
        QVERIFY(!saver);
    }

    void everyOtherSuffixGivesAComtradeSaverInTheSystemZone_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("zip") << "/tmp/x.zip";
        QTest::newRow("upper-case ZIP") << "/tmp/x.ZIP";
        QTest::newRow("gdf") << "/tmp/x.gdf";
        QTest::newRow("cfg") << "/tmp/x.cfg";
    }
    void everyOtherSuffixGivesAComtradeSaverInTheSystemZone()
    {
        QFETCH(QString, path);
        setZone("XYZ-3");
        std::unique_ptr<WaveSaver> saver(
            OscSaverFactory::createSaverForOsc(path, KorvaneTest::makeSaverRecord({})));
        auto* comtrade = dynamic_cast<ComtradeSaver*>(saver.get());
        QVERIFY(comtrade);
        QCOMPARE(comtrade->fileName(), path);
        QCOMPARE(comtrade->timeCodeHours(), 3);
        QCOMPARE(comtrade->localCodeHours(), 3);
        QVERIFY(!comtrade->onlySelectedChannels());
        QVERIFY(!comtrade->useTimeRange());
    }

    void getTz_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<int>("expected");
        QTest::newRow("UTC") << QByteArray("UTC0") << 0;
        QTest::newRow("UTC+3") << QByteArray("XYZ-3") << 3;
        QTest::newRow("UTC+5:30 truncates") << QByteArray("XYZ-5:30") << 5;
        QTest::newRow("UTC-3:30 truncates toward zero") << QByteArray("XYZ+3:30") << -3;
        QTest::newRow("UTC+12 stays") << QByteArray("XYZ-12") << 12;
        QTest::newRow("UTC-12 stays") << QByteArray("XYZ+12") << -12;
        QTest::newRow("UTC+13 folds") << QByteArray("XYZ-13") << 1;
        QTest::newRow("UTC+14 folds") << QByteArray("XYZ-14") << 2;
        QTest::newRow("UTC-13 folds") << QByteArray("XYZ+13") << -1;
    }
    void getTz()
    {
        QFETCH(QByteArray, zone);
        QFETCH(int, expected);
        setZone(zone);
        QCOMPARE(OscSaverFactory::getTz(), expected);
    }
};

QTEST_GUILESS_MAIN(TestOscSaverFactory)
#include "tst_oscsaverfactory.moc"
