#include "Savers/UserSettingsJson.h"

#include <QTest>

namespace {
MeasureItem measure(int start, int finish, bool complete, bool saved)
{
    MeasureItem item;
    item.setStartSampleNumber(start);
    item.setFinishSampleNumber(finish);
    item.setComplete(complete);
    item.setSaved(saved);
    return item;
}

UserSettingsJson sample()
{
    UserSettingsJson json;
    json.analogSignalOrder = { { 0, 2 }, { 1 } };
    json.discreteSignalOrder = { 4, 3 };
    json.selectedSignals = { true, false, true };
    json.customColors = { {}, { 65535, 0, 32768, 65535 } };
    json.measures = { measure(10, 40, true, true), measure(70, 5, false, false) };
    json.markers = { 12, 99 };
    return json;
}
} // namespace

class TestUserSettingsJson : public QObject
{
    Q_OBJECT
private slots:
    void compactJsonOfEachPiece()
    {
        const CMR_USER_SETTINGS settings = sample().toSettings();
        QCOMPARE(settings.version, 1);
        QCOMPARE(settings.analogSignalOrder, std::string("[[0,2],[1]]"));
        QCOMPARE(settings.discreteSignalOrder, std::string("[4,3]"));
        QCOMPARE(settings.selectedSignals, std::string("[true,false,true]"));
        QCOMPARE(settings.customColors, std::string("[[],[65535,0,32768,65535]]"));
        QCOMPARE(settings.measures,
            std::string("[{\"complete\":true,\"finish\":40,\"saved\":true,\"start\":10},"
                        "{\"complete\":false,\"finish\":5,\"saved\":false,\"start\":70}]"));
        QCOMPARE(settings.markers, std::string("[12,99]"));
    }

    void emptyViewGivesEmptyArrays()
    {
        const CMR_USER_SETTINGS settings = UserSettingsJson().toSettings();
        QCOMPARE(settings.version, 1);
        for (const std::string* piece : { &settings.analogSignalOrder, &settings.discreteSignalOrder,
                 &settings.selectedSignals, &settings.customColors, &settings.measures, &settings.markers })
            QCOMPARE(*piece, std::string("[]"));
    }

    void readsBackWhatItWrote()
    {
        const UserSettingsJson original = sample();
        const UserSettingsJson read = UserSettingsJson::fromSettings(original.toSettings());
        QCOMPARE(read.analogSignalOrder, original.analogSignalOrder);
        QCOMPARE(read.discreteSignalOrder, original.discreteSignalOrder);
        QVERIFY(read.selectedSignals == original.selectedSignals);
        QVERIFY(read.customColors == original.customColors);
        QCOMPARE(read.measures, original.measures);
        QCOMPARE(read.markers, original.markers);
    }

    void brokenPiecesReadAsEmpty()
    {
        CMR_USER_SETTINGS settings;
        settings.analogSignalOrder = "not json";
        settings.markers = "{\"a\":1}";
        const UserSettingsJson read = UserSettingsJson::fromSettings(settings);
        QVERIFY(read.analogSignalOrder.isEmpty());
        QVERIFY(read.markers.isEmpty());
        QVERIFY(read.measures.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestUserSettingsJson)
#include "tst_usersettingsjson.moc"
