#include "Loaders/Wv2MetaDataReader.h"
#include "Model/Exception.h"
#include "Wv2FileWriter.h"

#include <QBuffer>
#include <QTest>

using namespace KorvaneTest;

namespace {
// Reads the bytes; the text of the failure, or an empty text on success.
QString readAll(const QByteArray& bytes, QSharedPointer<Wv2MetaData>* result = nullptr)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    Wv2MetaDataReader reader;
    reader.setIoDevice(&buffer);
    try {
        reader.read();
    } catch (LoadFailureException* e) {
        const QString text = e->message();
        delete e;
        return text;
    }
    if (result)
        *result = reader.metaData();
    return {};
}

QSharedPointer<Wv2MetaData> read(const QByteArray& bytes)
{
    QSharedPointer<Wv2MetaData> meta;
    const QString failure = readAll(bytes, &meta);
    if (!failure.isEmpty())
        qWarning("unexpected failure: %s", qPrintable(failure));
    return meta;
}

const QString blockFailure = QStringLiteral("Ошибка чтения блока метаданных");
const QString fieldFailure = QStringLiteral("Ошибка чтения строк метаданных");
const QString skipFailure = QStringLiteral("Ошибка пропуска строк метаданных");
const QString damaged = QStringLiteral("Ошибка чтения, осциллограмма повреждена!");
} // namespace

class TestWv2MetaDataReader : public QObject
{
    Q_OBJECT
private slots:
    void withoutDeviceTheMetaDataIsEmptied()
    {
        Wv2MetaDataReader reader;
        QBuffer buffer;
        buffer.setData(Wv2FileWriter().bytes());
        buffer.open(QIODevice::ReadOnly);
        reader.setIoDevice(&buffer);
        reader.read();
        QVERIFY(reader.metaData());
        reader.setIoDevice(nullptr);
        reader.read();
        QVERIFY(!reader.metaData());
    }

    void fileHeaderFields()
    {
        const auto meta = read(Wv2FileWriter(1200.0, 1551794829, 0.25).bytes());
        QVERIFY(meta);
        QCOMPARE(meta->header.bytes.size(), 39);
        QCOMPARE(meta->header.sampleRate, 1200.0);
        QCOMPARE(meta->header.startTime, 1551794829);
        QCOMPARE(meta->header.fraction, 0.25);
        QCOMPARE(meta->totalFrames, 0u);
        QCOMPARE(meta->preFailureFrames, 0u);
        QVERIFY(meta->analogChannels.isEmpty());
    }

    void everyKnownTag()
    {
        Wv2AnalogLayout analog;
        analog.shortName = "Ia";
        analog.offset = 6;
        analog.mask = 0x0FFF;
        Wv2DigitalLayout digital;
        digital.fullName = "Relay";
        digital.offset = 9;
        digital.mask = 0x04;
        Wv2LineLayout line;
        line.id = 3;
        line.name = "L3";
        line.voltage = 35.0;
        const auto meta = read(Wv2FileWriter()
                                   .source(7, "ID-1", "Recorder")
                                   .format(12)
                                   .analog(analog)
                                   .digital(digital)
                                   .line(line)
                                   .emergency(40, 5, 3, "Trip")
                                   .data(1, 2, QByteArray(24, '\0'))
                                   .data(0, 3, QByteArray(36, '\0'))
                                   .bytes());
        QVERIFY(meta);
        QCOMPARE(int(meta->source.orderNum), 7);
        QCOMPARE(meta->source.id, QByteArray("ID-1"));
        QCOMPARE(meta->source.name, QByteArray("Recorder"));
        QCOMPARE(int(meta->format.frameSize), 12);
        QCOMPARE(meta->analogChannels.size(), 1);
        QCOMPARE(meta->analogChannels[0].shortName, QByteArray("Ia"));
        QCOMPARE(int(meta->analogChannels[0].offset), 6);
        QCOMPARE(meta->analogChannels[0].mask, 0x0FFFu);
        QCOMPARE(meta->digitalChannels.size(), 1);
        QCOMPARE(meta->digitalChannels[0].fullName, QByteArray("Relay"));
        QCOMPARE(int(meta->digitalChannels[0].offset), 9);
        QCOMPARE(int(meta->digitalChannels[0].mask), 4);
        QCOMPARE(meta->lines.size(), 1);
        QCOMPARE(int(meta->lines[0].id), 3);
        QCOMPARE(meta->lines[0].voltage, 35.0);
        QCOMPARE(int(meta->lines[0].scale.power), 3);
        QCOMPARE(meta->emergencies.size(), 1);
        QCOMPARE(meta->emergencies[0].blockNumber, 40u);
        QCOMPARE(int(meta->emergencies[0].physNum), 5);
        QCOMPARE(int(meta->emergencies[0].lineId), 3);
        QCOMPARE(meta->emergencies[0].reason, QByteArray("Trip"));
        QCOMPARE(meta->totalFrames, 5u);
        QCOMPARE(meta->preFailureFrames, 2u);
    }

    void unknownTagsArePassedOver_data()
    {
        QTest::addColumn<quint32>("id");
        QTest::newRow("id 0") << 0u;
        QTest::newRow("id 7") << 7u;
        QTest::newRow("id 9") << 9u;
        QTest::newRow("id 0xFFFFFFFF") << 0xFFFFFFFFu;
    }

    void unknownTagsArePassedOver()
    {
        QFETCH(quint32, id);
        Wv2AnalogLayout analog;
        analog.shortName = "after";
        const auto meta = read(
            Wv2FileWriter().tag(id, 8 + 13, QByteArray(13, char(2))).tag(id, 8, {}).analog(analog).bytes());
        QVERIFY(meta);
        QCOMPARE(meta->analogChannels.size(), 1);
        QCOMPARE(meta->analogChannels[0].shortName, QByteArray("after"));
    }

    void bytesBeyondTheKnownLengthArePassedOver()
    {
        Wv2AnalogLayout analog;
        analog.shortName = "A";
        Wv2DigitalLayout digital;
        digital.shortName = "D";
        const auto meta = read(Wv2FileWriter()
                                   .source(1, "i", "n", 5)
                                   .format(4, 3)
                                   .analog(analog, 40)
                                   .digital(digital, 1)
                                   .line(Wv2LineLayout(), 9)
                                   .analog(analog)
                                   .bytes());
        QVERIFY(meta);
        QCOMPARE(meta->analogChannels.size(), 2);
        QCOMPARE(meta->digitalChannels.size(), 1);
        QCOMPARE(meta->lines.size(), 1);
        QCOMPARE(int(meta->format.frameSize), 4);
    }

    void tagOfExactlyItsFixedLengthSkipsNothing()
    {
        Wv2AnalogLayout first;
        first.shortName = "first";
        Wv2AnalogLayout second;
        second.shortName = "second";
        const QByteArray bytes = Wv2FileWriter().analog(first).analog(second).bytes();
        QCOMPARE(bytes.size(), 39 + 160 + 160);
        const auto meta = read(bytes);
        QVERIFY(meta);
        QCOMPARE(meta->analogChannels.size(), 2);
        QCOMPARE(meta->analogChannels[1].shortName, QByteArray("second"));
    }

    void textFieldsEndAtNulOrFieldEnd()
    {
        Wv2AnalogLayout analog;
        analog.shortName = "0123456789ABCDEF"; // the whole field
        analog.fullName = QByteArray("half") + '\0' + "hidden";
        const auto meta = read(Wv2FileWriter().analog(analog).bytes());
        QVERIFY(meta);
        QCOMPARE(meta->analogChannels[0].shortName, QByteArray("0123456789ABCDEF"));
        QCOMPARE(meta->analogChannels[0].fullName, QByteArray("half"));
    }

    void emergencyReasons_data()
    {
        QTest::addColumn<QByteArray>("reason");
        QTest::addColumn<bool>("terminate");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("tag of 24 bytes has no reason") << QByteArray() << false << QByteArray();
        QTest::newRow("ended by NUL") << QByteArray("Overcurrent") << true << QByteArray("Overcurrent");
        QTest::newRow("ended by the tag") << QByteArray("Earth fault") << false << QByteArray("Earth fault");
        QTest::newRow("text after NUL is dropped")
            << QByteArray("Trip\0junk", 9) << false << QByteArray("Trip");
    }

    void emergencyReasons()
    {
        QFETCH(QByteArray, reason);
        QFETCH(bool, terminate);
        QFETCH(QByteArray, expected);
        const auto meta = read(Wv2FileWriter().emergency(9, 1, 1, reason, terminate).format(2).bytes());
        QVERIFY(meta);
        QCOMPARE(meta->emergencies.size(), 1);
        QCOMPARE(meta->emergencies[0].reason, expected);
        QCOMPARE(int(meta->format.frameSize), 2);
    }

    void failures_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const QByteArray header = Wv2FileWriter().bytes();
        const QByteArray analog = Wv2FileWriter::analogBody(Wv2AnalogLayout());

        QTest::newRow("empty file") << QByteArray() << blockFailure;
        QTest::newRow("header of 38 bytes") << header.left(38) << blockFailure;
        QTest::newRow("tag head cut") << header + QByteArray(5, '\1') << blockFailure;
        QTest::newRow("analog body cut")
            << Wv2FileWriter().tag(2, 160, analog.left(100)).bytes() << fieldFailure;
        QTest::newRow("source below its length")
            << Wv2FileWriter().tag(1, 8 + 70, Wv2FileWriter::sourceBody(1, "a", "b")).bytes() << skipFailure;
        QTest::newRow("analog below its length")
            << Wv2FileWriter().tag(2, 8 + 151, analog).bytes() << skipFailure;
        QTest::newRow("analog beyond the file")
            << Wv2FileWriter().tag(2, 8 + 153, analog).bytes() << skipFailure;
        QTest::newRow("digital below its length")
            << Wv2FileWriter().tag(3, 8, Wv2FileWriter::digitalBody(Wv2DigitalLayout())).bytes()
            << skipFailure;
        QTest::newRow("format below its length")
            << Wv2FileWriter().tag(5, 11, Wv2FileWriter::formatBody(4)).bytes() << skipFailure;
        QTest::newRow("line below its length")
            << Wv2FileWriter().tag(6, 0, Wv2FileWriter::lineBody(Wv2LineLayout())).bytes() << skipFailure;
        QTest::newRow("format body cut") << Wv2FileWriter().tag(5, 12, "ab").bytes() << fieldFailure;
        QTest::newRow("data header cut") << Wv2FileWriter().tag(4, 18, "abcd").bytes() << damaged;
        QTest::newRow("data below its header")
            << Wv2FileWriter().tag(4, 17, QByteArray(10, '\0')).bytes() << damaged;
        QTest::newRow("data frames beyond the file")
            << Wv2FileWriter().tag(4, 18 + 4, QByteArray(12, '\0')).bytes() << damaged;
        QTest::newRow("unknown tag below its head") << Wv2FileWriter().tag(7, 7, {}).bytes() << damaged;
        QTest::newRow("unknown tag beyond the file") << Wv2FileWriter().tag(9, 100, "x").bytes() << damaged;
        QTest::newRow("emergency below 24 bytes")
            << Wv2FileWriter().tag(8, 23, QByteArray(16, '\0')).bytes() << fieldFailure;
        QTest::newRow("emergency fixed part cut")
            << Wv2FileWriter().tag(8, 24, QByteArray(10, '\0')).bytes() << fieldFailure;
        QTest::newRow("emergency reason beyond the file")
            << Wv2FileWriter().tag(8, 40, QByteArray(20, '\0')).bytes() << fieldFailure;
        QTest::newRow("emergency of 4 GB")
            << Wv2FileWriter().tag(8, 0xFFFFFFFF, QByteArray(20, '\0')).bytes() << fieldFailure;
    }

    void failures()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(readAll(bytes), text);
    }
};

QTEST_GUILESS_MAIN(TestWv2MetaDataReader)
#include "tst_wv2metadatareader.moc"
