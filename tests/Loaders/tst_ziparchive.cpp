#include "FixtureFiles.h"
#include "Loaders/ZipArchive.h"
#include "ZipFixture.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace KorvaneTest;

class TestZipArchive : public QObject
{
    Q_OBJECT
private slots:
    void namesAreDecodedAsCp866()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("set.zip"));
        const QString cyrillic = QStringLiteral("Авария 12.cfg");
        QVERIFY(writeZip(zip, { { cp866(cyrillic), "x" }, { "plain.dat", "y" } }));
        ZipArchive archive(zip);
        QVERIFY(archive.open(ZipArchive::ReadOnly));
        QCOMPARE(archive.entryNames(), (QStringList { cyrillic, QStringLiteral("plain.dat") }));
    }

    void extractionRenamesEveryMemberToWave()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("set.zip"));
        QVERIFY(writeZip(zip,
            { { cp866(QStringLiteral("Авария 12.cfg")), "config" }, { "nested/deeper/Record 1.DAT", "data" },
                { "folder/", "", true } }));
        const QString out = dir.filePath(QStringLiteral("out"));
        ZipArchive archive(zip);
        QVERIFY(archive.open(ZipArchive::ReadOnly));
        QVERIFY2(archive.extractTo(out), qPrintable(archive.errorString()));
        QCOMPARE(readFile(out + QStringLiteral("/Wave.cfg")), QByteArray("config"));
        // The slash is a refused character, so the member lands flat, beside the others.
        QCOMPARE(readFile(out + QStringLiteral("/Wave.DAT")), QByteArray("data"));
        QVERIFY(!QFileInfo::exists(out + QStringLiteral("/nested")));
    }

    void laterMemberOfSameSuffixWins()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("two.zip"));
        QVERIFY(writeZip(zip, { { "first.cfg", "one" }, { "second.cfg", "two" } }));
        ZipArchive archive(zip);
        QVERIFY(archive.open(ZipArchive::ReadOnly));
        QVERIFY(archive.extractTo(dir.path()));
        QCOMPARE(readFile(dir.filePath(QStringLiteral("Wave.cfg"))), QByteArray("two"));
    }

    void cleaning_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("cleaned");
        QTest::newRow("path flattens") << "a/b/c.cfg"
                                       << "a_b_c.cfg";
        QTest::newRow("blanks go") << "my record 1.dat"
                                   << "myrecord1.dat";
        QTest::newRow("every refused character")
            << QStringLiteral("~!?@<>{}:/\\#$%^&*=|`\"x") << QStringLiteral("_____________________x");
        QTest::newRow("dots and dashes stay") << "rec-1.2.hdr"
                                              << "rec-1.2.hdr";
    }

    void cleaning()
    {
        QFETCH(QString, name);
        QFETCH(QString, cleaned);
        QCOMPARE(ZipArchive::cleanEntryName(name), cleaned);
    }

    void openFailures()
    {
        ZipArchive unnamed;
        QVERIFY(!unnamed.open(ZipArchive::ReadOnly));
        QCOMPARE(unnamed.errorString(), QStringLiteral("Filename is not specified"));

        QTemporaryDir dir;
        const QString missing = dir.filePath(QStringLiteral("missing.zip"));
        ZipArchive absent(missing);
        QVERIFY(!absent.open(ZipArchive::ReadOnly));
        QCOMPARE(absent.errorString(), QStringLiteral("Can't open file %1").arg(missing));

        const QString zip = dir.filePath(QStringLiteral("ok.zip"));
        QVERIFY(writeZip(zip, { { "a.cfg", "1" } }));
        ZipArchive twice(zip);
        QVERIFY(twice.open(ZipArchive::ReadOnly));
        QVERIFY(!twice.open(ZipArchive::ReadOnly));
        QCOMPARE(twice.errorString(), QStringLiteral("Archive is already open!"));

        ZipArchive wrongMode(zip);
        QVERIFY(!wrongMode.open(ZipArchive::NotOpen));
        QCOMPARE(wrongMode.errorString(), QStringLiteral("Wrong open mode"));
    }

    void garbageIsNoArchive()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("garbage.zip"));
        QVERIFY(writeFile(path, QByteArray("this is not an archive at all").repeated(20)));
        ZipArchive archive(path);
        if (archive.open(ZipArchive::ReadOnly))
            QVERIFY(archive.entryNames().isEmpty());
        else
            QCOMPARE(archive.errorString(), QStringLiteral("Can't read buffer"));
    }

    void extractionRefusals()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("ok.zip"));
        QVERIFY(writeZip(zip, { { "a.cfg", "1" } }));
        ZipArchive closed(zip);
        QVERIFY(!closed.extractTo(dir.filePath(QStringLiteral("out"))));
        QCOMPARE(closed.errorString(), QStringLiteral("Archive is not open"));
        ZipArchive opened(zip);
        QVERIFY(opened.open(ZipArchive::ReadOnly));
        QVERIFY(!opened.extractTo(zip));
        QCOMPARE(opened.errorString(), QStringLiteral("Destination is file"));
    }

    void memberLimit_data()
    {
        QTest::addColumn<qint64>("archive");
        QTest::addColumn<qint64>("limit");
        constexpr qint64 mib = qint64(1) << 20;
        QTest::newRow("tiny archive: the 16 MiB floor") << qint64(1000) << 16 * mib;
        QTest::newRow("1 MB archive: 100 times") << qint64(1000000) << qint64(100000000);
        QTest::newRow("100 MB archive: the 4 GiB ceiling") << qint64(100000000) << 4096 * mib;
        QTest::newRow("1 TB archive: the ceiling, without overflow") << (qint64(1) << 40) << 4096 * mib;
    }

    void memberLimit()
    {
        QFETCH(qint64, archive);
        QFETCH(qint64, limit);
        QCOMPARE(ZipArchive::memberLimit(archive), limit);
    }

    // The bytes written count, not only the size the header declares: the member stops at the
    // limit and its partial file is removed.
    void memberBeyondTheLimitIsRefused()
    {
        QTemporaryDir dir;
        const QString zip = dir.filePath(QStringLiteral("bomb.zip"));
        QVERIFY(writeZip(zip, { { "a.cfg", "1" }, { "a.dat", QByteArray((16 << 20) + 1, 'x') } }));
        ZipArchive archive(zip);
        QVERIFY(archive.open(ZipArchive::ReadOnly));
        const QString out = dir.filePath(QStringLiteral("out"));
        QVERIFY(!archive.extractTo(out));
        QVERIFY(archive.tooLarge());
        QVERIFY(archive.errorString().startsWith(QStringLiteral("Member a.dat is larger than")));
        QCOMPARE(QDir(out).entryList(QDir::Files), QStringList { QStringLiteral("Wave.cfg") });
    }

    void writerStoresCp866NamesAndMode644()
    {
        QTemporaryDir dir;
        const QString source = dir.filePath(QStringLiteral("src.bin"));
        QByteArray payload;
        for (int i = 0; i < 3 * 1024 * 1024 + 17; ++i)
            payload.append(char(i * 31 % 251));
        QVERIFY(writeFile(source, payload));
        const QString zip = dir.filePath(QStringLiteral("out.zip"));
        {
            ZipArchive archive(zip);
            QVERIFY(archive.open(ZipArchive::WriteOnly));
            QVERIFY(archive.addFile(QStringLiteral("Запись.DAT"), source));
            QVERIFY(archive.addFile(QStringLiteral("missing.HDR"), dir.filePath(QStringLiteral("none"))));
        }
        const QList<ZipEntryInfo> entries = readZip(zip);
        QCOMPARE(entries.size(), 2);
        QCOMPARE(entries[0].rawName, cp866(QStringLiteral("Запись.DAT")));
        QCOMPARE(entries[0].permissions, 0644);
        QVERIFY(entries[0].isRegularFile);
        QCOMPARE(entries[0].data, payload);
        QCOMPARE(entries[1].rawName, QByteArray("missing.HDR"));
        QVERIFY(entries[1].data.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestZipArchive)
#include "tst_ziparchive.moc"
