#include "CalcLib/DeviceDescription.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {
constexpr double kPi = 3.14159265358979323846;

class DescriptionFixture
{
public:
    std::string write(const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(QStringLiteral("device%1.ini").arg(m_count++));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write the fixture");
        return path.toStdString();
    }
    std::string path(const char* name) const
    {
        return m_dir.filePath(QString::fromLatin1(name)).toStdString();
    }

    static QByteArray readAll(const std::string& path)
    {
        QFile file(QString::fromStdString(path));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return file.readAll();
    }

private:
    QTemporaryDir m_dir;
    int m_count = 0;
};

DescriptionFile parsed(DescriptionFixture& fixture, const QByteArray& bytes)
{
    DescriptionFile file;
    if (!file.read(fixture.write(bytes)))
        qFatal("cannot read the fixture");
    return file;
}

std::string valueOf(const DescriptionFile& file, const char* section, const char* key)
{
    const DescriptionSection* s = file.section(section);
    if (!s)
        return "<no section>";
    const std::string* value = s->find(key);
    return value ? *value : "<no key>";
}
} // namespace

class TestDescriptionFile : public QObject
{
    Q_OBJECT
private slots:
    void read_sectionsAndEntries();
    void read_lineRules_data();
    void read_lineRules();
    void read_repeatedSectionDropsItsLines();
    void read_commentLines();
    void read_longLineArrivesInPieces();
    void read_missingFile();
    void write_format();
    void write_readBack();

    void device_linesAndChannels();
    void device_channelRules_data();
    void device_channelRules();
    void device_hugeCountsDoNotRunLong();
    void device_missingFile();
};

void TestDescriptionFile::read_sectionsAndEntries()
{
    DescriptionFixture fixture;
    const DescriptionFile file = parsed(fixture,
        "[main] ; the device\r\n"
        "  lnum = 2 ; lines\r\n"
        "anum=3\n"
        "[Line0]\n"
        "\tname =  Feeder 1  \n");
    QCOMPARE(int(file.sections().size()), 2);
    const DescriptionSection* main = file.section("main");
    QVERIFY(main);
    QCOMPARE(main->comment, std::string("the device"));
    QCOMPARE(valueOf(file, "main", "lnum"), std::string("2"));
    QCOMPARE(main->entries[0].comment, std::string("lines"));
    QCOMPARE(valueOf(file, "main", "anum"), std::string("3"));
    // Names are found without regard to case.
    QCOMPARE(valueOf(file, "line0", "NAME"), std::string("Feeder 1"));
    QVERIFY(!file.section("line1"));
}

void TestDescriptionFile::read_lineRules_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << QByteArray("id=5") << "id"
                           << "5";
    QTest::newRow("blanks trimmed") << QByteArray(" \t id \t=\t 5 \t") << "id"
                                    << "5";
    QTest::newRow("comment cut") << QByteArray("id=5;five") << "id"
                                 << "5";
    QTest::newRow("empty value") << QByteArray("id=") << "id"
                                 << "";
    QTest::newRow("value with equals") << QByteArray("id=a=b") << "id"
                                       << "a=b";
    // A first character "0" rejects the line, even where a key could stand.
    QTest::newRow("key starting with 0") << QByteArray("0id=5") << "0id"
                                         << "<no key>";
    QTest::newRow("blanks then 0") << QByteArray("   0id=5") << "0id"
                                   << "<no key>";
    QTest::newRow("no equals") << QByteArray("id 5") << "id 5"
                               << "<no key>";
    QTest::newRow("empty key") << QByteArray("=5") << ""
                               << "<no key>";
    QTest::newRow("control bytes are blanks") << QByteArray("\x01id\x1f=\x02 7\x7f") << "id"
                                              << "7\x7f";
}

void TestDescriptionFile::read_lineRules()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, key);
    QFETCH(QString, expected);
    DescriptionFixture fixture;
    const DescriptionFile file = parsed(fixture, "[s]\n" + line + "\n");
    QCOMPARE(QString::fromStdString(valueOf(file, "s", key.toLatin1().constData())), expected);
}

void TestDescriptionFile::read_repeatedSectionDropsItsLines()
{
    DescriptionFixture fixture;
    const DescriptionFile file = parsed(fixture,
        "before=1\n"
        "[a]\nx=1\nx=2\n"
        "[b]\ny=1\n"
        "[A]\nx=3\nz=4\n;dropped too\n"
        "[c]\nw=5\n"
        "[broken\nv=6\n"
        "[d] junk\nu=7\n");
    QCOMPARE(int(file.sections().size()), 3);
    // The first key wins; a repeated section opens nothing until the next new one.
    QCOMPARE(valueOf(file, "a", "x"), std::string("1"));
    QCOMPARE(valueOf(file, "a", "z"), std::string("<no key>"));
    QCOMPARE(int(file.section("a")->entries.size()), 1);
    // An entry before any section has nowhere to go; a line without "]" or with text behind
    // the bracket is no section, and its lines go to the open one.
    QCOMPARE(valueOf(file, "c", "w"), std::string("5"));
    QCOMPARE(valueOf(file, "c", "v"), std::string("6"));
    QCOMPARE(valueOf(file, "c", "u"), std::string("7"));
    QVERIFY(!file.section("d"));
}

void TestDescriptionFile::read_commentLines()
{
    DescriptionFixture fixture;
    const DescriptionFile file = parsed(fixture, "; device file\n  ;second\n[s]\n;inside\nk=v\n");
    QCOMPARE(int(file.leadingComments().size()), 2);
    QCOMPARE(file.leadingComments()[0], std::string("device file"));
    QCOMPARE(file.leadingComments()[1], std::string("second"));
    const DescriptionSection* s = file.section("s");
    QCOMPARE(int(s->entries.size()), 2);
    QVERIFY(s->entries[0].isCommentLine());
    QCOMPARE(s->entries[0].comment, std::string("inside"));
    QCOMPARE(valueOf(file, "s", "k"), std::string("v"));
}

void TestDescriptionFile::read_longLineArrivesInPieces()
{
    // 4095 bytes a piece: "a=" and 4093 bytes of value, then the rest alone, without "=".
    DescriptionFixture fixture;
    const QByteArray line = "a=" + QByteArray(5000, 'x');
    const DescriptionFile file = parsed(fixture, "[s]\n" + line + "\nb=2\n");
    QCOMPARE(valueOf(file, "s", "a").size(), size_t(4093));
    QCOMPARE(int(file.section("s")->entries.size()), 2);
    QCOMPARE(valueOf(file, "s", "b"), std::string("2"));
}

void TestDescriptionFile::read_missingFile()
{
    DescriptionFixture fixture;
    DescriptionFile file;
    QVERIFY(!file.read(fixture.path("absent.ini")));
    QVERIFY(file.sections().empty());
}

void TestDescriptionFile::write_format()
{
    DescriptionFixture fixture;
    const DescriptionFile file
        = parsed(fixture, ";top\n[main];c1\nlnum=1;n\n;note\nanum=0\n[line0]\nname=L\n");
    const std::string out = fixture.path("out.ini");
    QVERIFY(file.write(out));
    QCOMPARE(DescriptionFixture::readAll(out),
        QByteArray(";top\n"
                   "[main] ;c1\n"
                   "\tlnum=1 \t;n\n"
                   "\t;note\n"
                   "\tanum=0 \n"
                   "\n"
                   "[line0] \n"
                   "\tname=L \n"
                   "\n"));
}

void TestDescriptionFile::write_readBack()
{
    DescriptionFixture fixture;
    const DescriptionFile file
        = parsed(fixture, ";top\n[main];c1\nlnum=1;n\n;note\nanum=0\n[line0]\nname=L\n");
    const std::string out = fixture.path("out.ini");
    QVERIFY(file.write(out));
    DescriptionFile again;
    QVERIFY(again.read(out));
    QCOMPARE(again.leadingComments(), file.leadingComments());
    QCOMPARE(again.sections().size(), file.sections().size());
    for (size_t i = 0; i < file.sections().size(); ++i) {
        const DescriptionSection& a = file.sections()[i];
        const DescriptionSection& b = again.sections()[i];
        QCOMPARE(b.name, a.name);
        QCOMPARE(b.comment, a.comment);
        QCOMPARE(b.entries.size(), a.entries.size());
        for (size_t j = 0; j < a.entries.size(); ++j) {
            QCOMPARE(b.entries[j].key, a.entries[j].key);
            QCOMPARE(b.entries[j].value, a.entries[j].value);
            QCOMPARE(b.entries[j].comment, a.entries[j].comment);
        }
    }
    QVERIFY(!file.write(fixture.path("no/such/folder/out.ini")));
}

void TestDescriptionFile::device_linesAndChannels()
{
    DescriptionFixture fixture;
    const std::string path = fixture.write("[main]\nlnum=3\nanum=5\n"
                                           "[line0]\nname=L1\nid=1\ncm=0x\ntype=2\n"
                                           "[line1]\nname=L2\nid=2\ntype=7\n"
                                           "[line2]\nname=no id\n"
                                           "[line3]\nname=beyond lnum\nid=4\n"
                                           "[achan0]\nid=1\nname=Ua\nlinemask=3\ntype=3\n"
                                           "[achan1]\nid=2\nname=Ub\nlinemask=2\ntype=4\n"
                                           "[achan2]\nid=3\nname=dropped\ntype=1\n"
                                           "[achan3]\nname=no id\n"
                                           "[achan4]\nid=5\nname=Ia\nlinemask=1\ntype=6\n"
                                           "[achan5]\nid=6\nname=beyond anum\n");
    DeviceDescription device;
    DeviceDescription::PhasorSetup setup;
    setup.sampleRate = 1000.0;
    setup.scale = 0.5;
    QVERIFY(device.read(path, setup));
    QCOMPARE(int(device.lines().size()), 2);
    const DeviceLine& first = device.lines()[0];
    QCOMPARE(first.name, std::string("L1"));
    QCOMPARE(first.mask, 1u);
    QVERIFY(first.cmFlag);
    QCOMPARE(first.type, 2);
    const DeviceLine& second = device.lines()[1];
    QCOMPARE(second.mask, 2u);
    QVERIFY(!second.cmFlag);
    QCOMPARE(second.type, 0);

    QCOMPARE(device.channelCount(), 3);
    QCOMPARE(device.channel(0).name(), std::string("Ua"));
    QCOMPARE(device.channel(1).name(), std::string("Ub"));
    QCOMPARE(device.channel(2).name(), std::string("Ia"));
    QCOMPARE(device.channel(2).delay(), 2.5);
    // Type 3 is the first phase place, of every line in the mask.
    QCOMPARE(first.phasePlaces[0], 0);
    QCOMPARE(second.phasePlaces[0], 0);
    QCOMPARE(second.phasePlaces[1], 1);
    QCOMPARE(first.phasePlaces[1], -1);
    QCOMPARE(first.phasePlaces[3], 2);
    QCOMPARE(second.phasePlaces[3], -1);
}

void TestDescriptionFile::device_channelRules_data()
{
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<int>("type");
    QTest::addColumn<double>("addPhaseDegrees");
    QTest::addColumn<double>("spBlock");
    QTest::addColumn<double>("power10factor");
    QTest::newRow("defaults") << QByteArray() << 2 << 0.0 << 0.0 << 1.0;
    QTest::newRow("type 9 becomes 2") << QByteArray("type=9\n") << 2 << 0.0 << 0.0 << 1.0;
    QTest::newRow("type 8 stays") << QByteArray("type=8\n") << 8 << 0.0 << 0.0 << 1.0;
    QTest::newRow("type 0 stays") << QByteArray("type=0\n") << 0 << 0.0 << 0.0 << 1.0;
    QTest::newRow("350 degrees is -10") << QByteArray("add_ph=350\n") << 2 << -10.0 << 0.0 << 1.0;
    QTest::newRow("-180 degrees is 180") << QByteArray("add_ph=-180\n") << 2 << 180.0 << 0.0 << 1.0;
    QTest::newRow("180 degrees stays") << QByteArray("add_ph=180\n") << 2 << 180.0 << 0.0 << 1.0;
    QTest::newRow("999 degrees: no turns removed") << QByteArray("add_ph=999\n") << 2 << -81.0 << 0.0 << 1.0;
    QTest::newRow("-1270 degrees") << QByteArray("add_ph=-1270\n") << 2 << 170.0 << 0.0 << 1.0;
    QTest::newRow("negative sp_block is 0") << QByteArray("sp_block=-2\n") << 2 << 0.0 << 0.0 << 1.0;
    QTest::newRow("sp_block") << QByteArray("sp_block=2.5\n") << 2 << 0.0 << 2.5 << 1.0;
    QTest::newRow("power10 of 2") << QByteArray("power10=2\n") << 2 << 0.0 << 0.0 << 100.0;
}

void TestDescriptionFile::device_channelRules()
{
    QFETCH(QByteArray, keys);
    QFETCH(int, type);
    QFETCH(double, addPhaseDegrees);
    QFETCH(double, spBlock);
    QFETCH(double, power10factor);
    DescriptionFixture fixture;
    DeviceDescription device;
    QVERIFY(device.read(fixture.write("[main]\nanum=1\n[achan0]\nid=1\nname=U\n" + keys), {}));
    QCOMPARE(device.channelCount(), 1);
    const CPhasor& channel = device.channel(0);
    QCOMPARE(int(channel.type()), type);
    QVERIFY(std::fabs(channel.addPhase() - addPhaseDegrees * kPi / 180.0) < 1e-12);
    QCOMPARE(channel.spBlock(), spBlock);
    QVERIFY(std::fabs(channel.power10factor() - power10factor) < 1e-12);
    QCOMPARE(channel.ktmul(), 1.0);
    QCOMPARE(channel.ktdiv(), 1.0);
}

void TestDescriptionFile::device_hugeCountsDoNotRunLong()
{
    DescriptionFixture fixture;
    DeviceDescription device;
    QVERIFY(device.read(
        fixture.write("[main]\nlnum=2000000000\nanum=2147483647\n"
                      "[achan7]\nid=1\nname=U\n[achan007]\nid=2\nname=V\n[achan-1]\nid=3\nname=W\n"),
        {}));
    QCOMPARE(device.channelCount(), 1);
    QCOMPARE(device.channel(0).name(), std::string("U"));
}

void TestDescriptionFile::device_missingFile()
{
    DescriptionFixture fixture;
    DeviceDescription device;
    QVERIFY(!device.read(fixture.path("absent.ini"), {}));
    QCOMPARE(device.channelCount(), 0);
}

QTEST_GUILESS_MAIN(TestDescriptionFile)
#include "tst_descriptionfile.moc"
