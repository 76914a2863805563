// Loading a large .wv2 record against a plain read of the same file's bytes in the same run:
// 1,000,000 frames of 32 analogue and 32 digital channels, in blocks of 1000 frames.

#include "Loaders/Wv2Loader.h"
#include "Model/OscillogramData.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {
constexpr int frames = 1000000;
constexpr int framesPerBlock = 1000;
constexpr int analogChannels = 32;
constexpr int digitalChannels = 32;
constexpr int frameSize = analogChannels * 2 + digitalChannels / 8;

class Bytes
{
public:
    template<typename T> Bytes& number(T value)
    {
        char raw[sizeof(T)];
        qToLittleEndian<T>(value, raw);
        m_bytes.append(raw, int(sizeof(T)));
        return *this;
    }
    Bytes& real(double value)
    {
        quint64 bits;
        std::memcpy(&bits, &value, sizeof bits);
        return number<quint64>(bits);
    }
    Bytes& fill(int count, char value = '\0')
    {
        m_bytes.append(QByteArray(count, value));
        return *this;
    }
    Bytes& bytes(const QByteArray& value)
    {
        m_bytes.append(value);
        return *this;
    }
    Bytes& tag(quint32 id, const QByteArray& body)
    {
        return number<quint32>(id).number<quint32>(quint32(8 + body.size())).bytes(body);
    }
    const QByteArray& result() const { return m_bytes; }

private:
    QByteArray m_bytes;
};

QByteArray analogTag(int index)
{
    QByteArray name = QByteArray("U") + QByteArray::number(index);
    Bytes body;
    body.number<qint16>(qint16(index + 1)).number<quint16>(1).fill(2).number<qint16>(0);
    body.bytes(name.leftJustified(16, '\0')).bytes(name.leftJustified(32, '\0'));
    body.number<qint16>(qint16(2 * index)).number<quint32>(0xFFFF).number<qint16>(qint16(index % 3 + 1));
    body.number<qint16>(100).number<quint16>(1).number<qint16>(3).fill(2);
    body.real(0.01).real(0.0).fill(40).real(0.0).real(110000.0).real(100.0);
    return body.result();
}

QByteArray digitalTag(int index)
{
    QByteArray name = QByteArray("D") + QByteArray::number(index);
    Bytes body;
    body.number<qint16>(qint16(index + 1)).fill(4).number<quint16>(0);
    body.bytes(name.leftJustified(16, '\0')).bytes(name.leftJustified(32, '\0'));
    body.number<qint16>(qint16(analogChannels * 2 + index / 8))
        .number<quint8>(quint8(1u << (index % 8)))
        .fill(4);
    return body.result();
}

QByteArray dataBlock(int firstFrame)
{
    QByteArray block(18 + framesPerBlock * frameSize, '\0');
    char* out = block.data();
    qToLittleEndian<quint32>(4, out);
    qToLittleEndian<quint32>(quint32(block.size()), out + 4);
    qToLittleEndian<quint16>(firstFrame < frames / 10 ? 1 : 0, out + 10);
    qToLittleEndian<quint32>(framesPerBlock, out + 14);
    char* frame = out + 18;
    for (int f = firstFrame; f < firstFrame + framesPerBlock; ++f, frame += frameSize) {
        for (int c = 0; c < analogChannels; ++c) {
            const double phase = 2 * M_PI * (f / 20.0 + c / 3.0);
            qToLittleEndian<qint16>(qint16(std::lround(20000 * std::sin(phase))), frame + 2 * c);
        }
        qToLittleEndian<quint32>(quint32(f * 2654435761u), frame + analogChannels * 2);
    }
    return block;
}

QString writeRecord(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    Bytes head;
    head.fill(17).real(1000.0).number<qint32>(1551794829).real(0.5).fill(2);
    head.tag(
        1, Bytes().number<quint16>(1).bytes(QByteArray("BENCH").leftJustified(8, '\0')).fill(64).result());
    head.tag(5, Bytes().number<quint16>(0).number<quint16>(frameSize).result());
    head.tag(6,
        Bytes()
            .number<quint16>(1)
            .fill(62)
            .fill(18)
            .real(110.0)
            .number<quint16>(1)
            .number<qint16>(3)
            .result());
    for (int c = 0; c < analogChannels; ++c)
        head.tag(2, analogTag(c));
    for (int c = 0; c < digitalChannels; ++c)
        head.tag(3, digitalTag(c));
    file.write(head.result());
    for (int f = 0; f < frames; f += framesPerBlock)
        file.write(dataBlock(f));
    return path;
}

const QString& recordPath()
{
    static QTemporaryDir dir;
    static const QString path = writeRecord(dir.filePath(QStringLiteral("bench.wv2")));
    return path;
}

qint64 recordSize()
{
    return QFile(recordPath()).size();
}

double plainSeconds = 0;
double loadSeconds = 0;

double seconds(std::chrono::steady_clock::duration duration)
{
    return std::chrono::duration<double>(duration).count();
}

void PlainRead(benchmark::State& state)
{
    QByteArray buffer(1 << 20, Qt::Uninitialized);
    std::chrono::steady_clock::duration total {};
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        QFile file(recordPath());
        file.open(QIODevice::ReadOnly);
        quint64 sum = 0;
        while (const qint64 got = file.read(buffer.data(), buffer.size())) {
            if (got < 0)
                break;
            sum += quint8(buffer[int(got - 1)]);
        }
        benchmark::DoNotOptimize(sum);
        total += std::chrono::steady_clock::now() - start;
    }
    plainSeconds = seconds(total) / double(state.iterations());
    state.SetBytesProcessed(state.iterations() * recordSize());
}
BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void Wv2Load(benchmark::State& state)
{
    std::chrono::steady_clock::duration total {};
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        Wv2Loader loader(recordPath(), nullptr);
        loader.run();
        const auto record = loader.result().oscillogram;
        if (!record || record->countOfSamples() != frames)
            state.SkipWithError("the record did not load");
        benchmark::DoNotOptimize(record);
        total += std::chrono::steady_clock::now() - start;
    }
    loadSeconds = seconds(total) / double(state.iterations());
    state.SetBytesProcessed(state.iterations() * recordSize());
}
BENCHMARK(Wv2Load)->Unit(benchmark::kMillisecond)->MinTime(2.0);
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    recordPath();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (plainSeconds > 0 && loadSeconds > 0) {
        const double megabytes = double(recordSize()) / 1e6;
        std::printf("file %.1f MB: plain read %.0f MB/s, load %.0f MB/s, load/plain time ratio %.2f\n",
            megabytes, megabytes / plainSeconds, megabytes / loadSeconds, loadSeconds / plainSeconds);
    }
    return 0;
}
