#include "FixtureFiles.h"
#include "Loaders/EncodingDetector.h"

#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

namespace {
// Long enough for the detector to be sure; the outcomes were checked with the library of this
// machine: it names each of the four encodings correctly, and pure ASCII as "ASCII".
const QString cyrillicText = QStringLiteral(
    "Подстанция Северная, фидер 10 кВ, ток фазы А, напряжение фазы В, осциллограмма аварийного "
    "отключения\r\n1,Ua,A,,кВ,0.1,0,0,-32767,32767\r\n");

QByteArray encoded(const char* codec)
{
    return QTextCodec::codecForName(codec)->fromUnicode(cyrillicText);
}
} // namespace

class TestEncodingDetector : public QObject
{
    Q_OBJECT
private slots:
    void detection_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("codec");
        QTest::newRow("UTF-8 is believed") << encoded("UTF-8") << QByteArray("UTF-8");
        QTest::newRow("windows-1251 is believed") << encoded("CP1251") << QByteArray("windows-1251");
        QTest::newRow("IBM866 is believed") << encoded("IBM866") << QByteArray("IBM866");
        QTest::newRow("KOI8-R is read as CP1251") << encoded("KOI8-R") << QByteArray("windows-1251");
        QTest::newRow("ASCII is read as CP1251")
            << QByteArray("STATION,DEV,1999\r\n") << QByteArray("windows-1251");
        QTest::newRow("empty is read as CP1251") << QByteArray() << QByteArray("windows-1251");
        QTest::newRow("bytes after a zero byte are not seen") << QByteArray("STATION,DEV\r\n", 13)
                + QByteArray(1, '\0') + encoded("UTF-8") << QByteArray("windows-1251");
    }

    void detection()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, codec);
        QTextCodec* detected = EncodingDetector::codecForText(bytes);
        QVERIFY(detected);
        QCOMPARE(detected->name(), codec);
    }

    void filesAreJoinedAndUnreadableOnesSkipped()
    {
        QTemporaryDir dir;
        const QString first = dir.filePath(QStringLiteral("a.cfg"));
        const QString second = dir.filePath(QStringLiteral("a.hdr"));
        QVERIFY(KorvaneTest::writeFile(first, encoded("UTF-8").left(60)));
        QVERIFY(KorvaneTest::writeFile(second, encoded("UTF-8").mid(60)));
        QTextCodec* codec
            = EncodingDetector::codecForFiles({ first, dir.filePath(QStringLiteral("none")), second });
        QVERIFY(codec);
        QCOMPARE(codec->name(), QByteArray("UTF-8"));
    }
};

QTEST_GUILESS_MAIN(TestEncodingDetector)
#include "tst_encodingdetector.moc"
