#include "ClcFileWriter.h"
#include "FixtureFiles.h"
#include "Loaders/ClcLoader.h"
#include "Model/EasyLibKorvane.h"
#include "Model/OscillogramData.h"
#include "Model/OscillogramLoaderFactory.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

using namespace KorvaneTest;

namespace {
QByteArray cp1251(const QString& text)
{
    return QTextCodec::codecForName("CP1251")->fromUnicode(text);
}

// 2020-01-02 03:04:05 UTC.
constexpr qint32 archiveTime = 1577934245;

// The three values of channel c in row r.
QVector<double> rowValues(int row, int channels)
{
    QVector<double> values;
    for (int c = 0; c < channels; ++c)
        values << row * 100.0 + c * 10.0 + 0.25 << -(row + c + 0.5) << (row + 1) * (c + 1) * 1e-3;
    return values;
}

ClcFileWriter archive(int channels, int rows)
{
    ClcFileWriter writer;
    writer.header(cp1251(QStringLiteral("Регистратор ПС-1")), cp1251(QStringLiteral("Архив за январь")),
        archiveTime, 20200102u, 1, channels);
    for (int c = 0; c < channels; ++c)
        writer.channel(cp1251(QStringLiteral("Канал %1").arg(c + 1)), quint16(10 + c), -c);
    for (int r = 0; r < rows; ++r)
        writer.row(rowValues(r, channels));
    return writer;
}

struct Outcome
{
    QSharedPointer<ClcOscillogram> record;
    QString failure;
};

} // namespace

class TestClcLoader : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        qRegisterMetaType<QSharedPointer<Exception>>("QSharedPointer<Exception>");
        QVERIFY(m_dir.isValid());
    }

    void archiveDescription()
    {
        const Outcome outcome = load(archive(3, 4).bytes());
        QVERIFY2(outcome.record, qPrintable(outcome.failure));
        const auto& record = outcome.record;
        QCOMPARE(record->registrator(), QStringLiteral("Регистратор ПС-1"));
        QCOMPARE(record->deviceName(), QStringLiteral("Регистратор ПС-1"));
        QCOMPARE(record->arcName(), QStringLiteral("Архив за январь"));
        QCOMPARE(record->time(), archiveTime);
        QCOMPARE(record->moddate(), 20200102u);
        QVERIFY(record->isLine());
        QVERIFY(record->stationName().isEmpty());
        QCOMPARE(record->waveType(), 0);
        QCOMPARE(record->sampleRate(), 1.0);
        QCOMPARE(record->countOfPreFailureSamples(), 0);
        QCOMPARE(record->countOfPostFailureSamples(), 4);
        QCOMPARE(record->countOfLines(), 0);
        QVERIFY(record->failures().isEmpty());
        QVERIFY(record->headerContent().isEmpty());
    }

    void channels()
    {
        const auto record = load(archive(3, 1).bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfAnalogChannels(), 3);
        QCOMPARE(record->countOfDigitalChannels(), 0);
        QCOMPARE(record->countOfChannels(), 3);
        for (int c = 0; c < 3; ++c) {
            const auto channel = record->analogChannels().at(c);
            QCOMPARE(channel->name(), QStringLiteral("Канал %1").arg(c + 1));
            QCOMPARE(int(channel->dataType()), int(DT::Double));
            QCOMPARE(channel->dataOffset(), 3 * c);
            QCOMPARE(channel->dataCount(), 3);
            QCOMPARE(int(channel->type()), 10 + c);
            QCOMPARE(channel->power(), -c);
            QCOMPARE(channel->physNum(), c + 1);
            QVERIFY(channel->data() == record->data());
            QVERIFY(record->channel(c) == record->analogChannel(c));
        }
        QVERIFY(record->isValidAnalogChannel(2));
        QVERIFY(!record->isValidAnalogChannel(3));
        QVERIFY(!record->isValidDigitalChannel(0));
        QVERIFY(!record->digitalChannel(0));
        QVERIFY(!record->channel(-1));
        QVERIFY(!record->channel(3));
    }

    void rowsAreThreeDoublesAChannel()
    {
        const auto record = load(archive(3, 4).bytes()).record;
        QVERIFY(record);
        const auto data = record->data();
        QCOMPARE(record->countOfSamples(), 4);
        QCOMPARE(data->countOfDoubleAnalogChannels(), 9);
        for (int r = 0; r < 4; ++r) {
            const QVector<double> expected = rowValues(r, 3);
            for (int column = 0; column < 9; ++column)
                QCOMPARE(data->doubleChannelValue(r, column), expected[column]);
            QCOMPARE(record->analogChannel(1)->getValue(r), expected[3]);
        }
    }

    void timeIsUtcSecondsAndOneRowASecond()
    {
        const auto record = load(archive(1, 5).bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->triggerTime().toString(), QStringLiteral("02.01.2020 03:04:05.000000"));
        QCOMPARE(record->triggerTime().offsetFromUtc(), 0);
        QVERIFY(record->beginTime() == record->triggerTime());
        QCOMPARE(record->endTime().toString(), QStringLiteral("02.01.2020 03:04:10.000000"));
        QCOMPARE(record->dateTime(2).toString(), QStringLiteral("02.01.2020 03:04:07.000000"));
    }

    void validHeaderWithoutRowsHasNoSamples()
    {
        const auto record = load(archive(2, 0).bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfAnalogChannels(), 2);
        QCOMPARE(record->countOfSamples(), 0);
        QCOMPARE(record->countOfPostFailureSamples(), 0);
    }

    void cutLastRowIsNotCounted_data()
    {
        QTest::addColumn<int>("cut");
        QTest::newRow("one byte of the last value") << 1;
        QTest::newRow("the last channel") << 24;
        QTest::newRow("all but the passed-over bytes") << 2 * 24;
        QTest::newRow("into the passed-over bytes") << 2 * 24 + 2;
    }

    void cutLastRowIsNotCounted()
    {
        QFETCH(int, cut);
        const auto record = load(archive(2, 3).cut(cut).bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfSamples(), 2);
        QCOMPARE(record->data()->doubleChannelValue(1, 5), rowValues(1, 2)[5]);
        // Beyond the whole rows the store reads 0.
        QCOMPARE(record->data()->doubleChannelValue(2, 0), 0.0);
    }

    void withoutChannelsEachRowIsItsFourBytes()
    {
        ClcFileWriter writer = archive(0, 0);
        writer.row({}).row({}).row({});
        const auto record = load(writer.bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfChannels(), 0);
        QCOMPARE(record->countOfSamples(), 3);
        QCOMPARE(load(writer.cut(1).bytes()).record->countOfSamples(), 2);
    }

    void cutChannelRecordsAreNamedReadError()
    {
        ClcFileWriter writer;
        writer.header("R", "A", archiveTime, 0, 0, 3).channel("first", 1, 2).channel("second", 3, 4).cut(262);
        const auto record = load(writer.bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfAnalogChannels(), 3);
        QCOMPARE(record->analogChannel(0)->name(), QStringLiteral("first"));
        QCOMPARE(record->analogChannel(1)->name(), QStringLiteral("READ_ERROR"));
        QCOMPARE(record->analogChannel(2)->name(), QStringLiteral("READ_ERROR"));
        QCOMPARE(record->countOfSamples(), 0);
    }

    void partlyReadChannelRecordKeepsWhatWasRead()
    {
        ClcFileWriter writer;
        writer.header("R", "A", archiveTime, 0, 0, 1).channel("Uab", 5, 6).cut(262 - 20);
        const auto record = load(writer.bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->analogChannel(0)->name(), QStringLiteral("Uab"));
    }

    void negativeChannelCountMeansNone()
    {
        ClcFileWriter writer;
        writer.header("R", "A", archiveTime, 0, 0, -5).row({});
        const auto record = load(writer.bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfChannels(), 0);
        QCOMPARE(record->countOfSamples(), 1);
    }

    void channelCountBeyondSixteenBitsIsCut()
    {
        ClcFileWriter writer;
        writer.header("R", "A", archiveTime, 0, 0, 0x7FFFFFFF).channel("one", 1, 1);
        const auto record = load(writer.bytes()).record;
        QVERIFY(record);
        QCOMPARE(record->countOfAnalogChannels(), 65535);
        QCOMPARE(record->analogChannel(0)->name(), QStringLiteral("one"));
        QCOMPARE(record->analogChannel(65534)->name(), QStringLiteral("READ_ERROR"));
        QCOMPARE(record->analogChannel(65534)->dataOffset(), 3 * 65534);
        QCOMPARE(record->countOfSamples(), 0);
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        const QString notArchive = QStringLiteral("Ошибка чтения: файл не является файлом архивов");
        const QByteArray good = archive(1, 1).bytes();
        QTest::newRow("empty file") << QByteArray() << QStringLiteral("Не удалось прочитать заголовок файла");
        QTest::newRow("header of 277 bytes")
            << good.left(277) << QStringLiteral("Не удалось прочитать заголовок файла");
        QTest::newRow("signature CLC_1")
            << ClcFileWriter().header("R", "A", 0, 0, 0, 0, "CLC_1").bytes() << notArchive;
        QTest::newRow("signature in lower case")
            << ClcFileWriter().header("R", "A", 0, 0, 0, 0, "clc_2").bytes() << notArchive;
        QByteArray noPadding = good;
        noPadding[7] = 'x';
        QTest::newRow("signature padding not NUL") << noPadding << notArchive;
    }

    void refusals()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        QCOMPARE(load(bytes).failure, text);
    }

    void fileThatCannotBeOpened()
    {
        ClcLoader loader(m_dir.filePath(QStringLiteral("missing.clc")), nullptr);
        QCOMPARE(run(loader).failure, QStringLiteral("Не удалось октрыть файл"));
    }

    void progressStages()
    {
        ClcLoader loader(writeArchive(QStringLiteral("progress.clc"), archive(2, 3).bytes()), nullptr);
        QSignalSpy progress(&loader, &TaskBase::progressChanged);
        QVERIFY(run(loader).record);
        QCOMPARE(progress.size(), 2);
        QCOMPARE(progress[0].at(0).toString(), QStringLiteral("Чтение информации о каналах"));
        QCOMPARE(progress[0].at(1).toDouble(), 51.0);
        QCOMPARE(progress[1].at(0).toString(), QStringLiteral("Чтение данных"));
        QCOMPARE(progress[1].at(1).toDouble(), 25.0);
    }

    void cancelledLoad()
    {
        ClcLoader loader(writeArchive(QStringLiteral("cancel.clc"), archive(2, 3).bytes()), nullptr);
        loader.cancel();
        QSignalSpy errors(&loader, &TaskBase::error);
        loader.run();
        QCOMPARE(errors.size(), 1);
        QVERIFY(errors[0][0].value<QSharedPointer<Exception>>().dynamicCast<CancelledException>());
    }

    void factoryAndEntry_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("lower case") << "archive.clc";
        QTest::newRow("upper case") << "ARCHIVE.CLC";
    }

    void factoryAndEntry()
    {
        QFETCH(QString, name);
        const QString path = writeArchive(name, archive(2, 2).bytes());
        QVERIFY(OscillogramLoaderFactory::isWave(path));
        QVERIFY(EasyLibKorvane::isWave(path));
        std::unique_ptr<OscillogramLoader> loader(OscillogramLoaderFactory::createLoaderForFile(path));
        QVERIFY(qobject_cast<ClcLoader*>(loader.get()));
        QString errorText;
        const auto record = EasyLibKorvane::open(path, errorText).dynamicCast<ClcOscillogram>();
        QVERIFY(record);
        QCOMPARE(record->countOfSamples(), 2);
        QCOMPARE(record->data()->doubleChannelValue(1, 4), rowValues(1, 2)[4]);
        QVERIFY(errorText.isEmpty());
    }

    void entryRefusesBadSignatureWithNullRecord()
    {
        const QString path = writeArchive(
            QStringLiteral("bad.clc"), ClcFileWriter().header("R", "A", 0, 0, 0, 0, "CLC_1").bytes());
        QString errorText = QStringLiteral("untouched");
        QVERIFY(!EasyLibKorvane::open(path, errorText));
        QCOMPARE(errorText, QStringLiteral("untouched"));
    }

private:
    QString writeArchive(const QString& name, const QByteArray& bytes)
    {
        const QString path = m_dir.filePath(name);
        return writeFile(path, bytes) ? path : QString();
    }

    Outcome run(ClcLoader& loader)
    {
        QSignalSpy errors(&loader, &TaskBase::error);
        QSignalSpy completions(&loader, &TaskBase::completed);
        loader.run();
        Outcome outcome;
        if (completions.size() == 1)
            outcome.record = loader.result().oscillogram.dynamicCast<ClcOscillogram>();
        if (errors.size() == 1) {
            const auto e = errors[0][0].value<QSharedPointer<Exception>>();
            outcome.failure
                = e.dynamicCast<LoadFailureException>() ? e->message() : QStringLiteral("other failure");
        }
        return outcome;
    }

    Outcome load(const QByteArray& bytes)
    {
        ClcLoader loader(writeArchive(QStringLiteral("archive%1.clc").arg(++m_count), bytes), nullptr);
        return run(loader);
    }

    QTemporaryDir m_dir;
    int m_count = 0;
};

QTEST_GUILESS_MAIN(TestClcLoader)
#include "tst_clcloader.moc"
