// Writes the seed files of the .wv2 and .clc fuzz targets into fuzz/corpus/<target>/ under the
// folder given on the command line. Run it by hand when the formats' writers change.
#include "ClcFileWriter.h"
#include "FixtureFiles.h"
#include "Wv2FileWriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QMap>

using namespace KorvaneTest;

namespace {
Wv2FileWriter wv2Record()
{
    Wv2AnalogSpec a0;
    a0.shortName = "Ua";
    a0.fullName = "Phase A";
    a0.lineBitMask = 1;
    a0.typeCode = 100;
    a0.phaseNumber = 1;
    a0.unit = 1;
    a0.power = 3;
    Wv2AnalogSpec a1 = a0;
    a1.shortName = "Ib";
    a1.offset = 2;
    a1.mask = 0x0FFF;
    a1.lineBitMask = 3;
    Wv2DigitalSpec d0;
    d0.fullName = "Breaker";
    d0.offset = 4;
    d0.mask = 0x81;
    Wv2LineSpec line;
    line.id = 1;
    line.name = "L1";
    line.voltage = 110.0;
    QList<Wv2Frame> frames;
    for (int i = 0; i < 6; ++i)
        frames.append(Wv2Frame(6).word(0, quint16(i * 1000)).word(2, quint16(0xF000 + i)).byte(4, quint8(i)));
    Wv2FileWriter writer(1000.0, 1551794829, 0.5);
    writer.source(1, "ID", "Device")
        .format(6)
        .line(line)
        .analog(a0)
        .analog(a1, 4)
        .digital(d0)
        .data(1, frames.mid(0, 2))
        .tag(7, 12, "abcd")
        .data(0, frames.mid(2));
    return writer;
}

QMap<QString, QByteArray> wv2Seeds()
{
    QMap<QString, QByteArray> seeds;
    seeds["record"] = wv2Record().bytes();
    seeds["record-with-emergencies"]
        = wv2Record().emergency(3, 1, 1, "Trip").emergency(1, 2, 1, {}, false).bytes();
    seeds["header-only"] = Wv2FileWriter().bytes();
    seeds["cut"] = wv2Record().bytes().left(300);
    seeds["short-tag"] = Wv2FileWriter().tag(2, 40, Wv2FileWriter::analogBody(Wv2AnalogSpec())).bytes();
    // Large counts, so that the search starts near the size checks: many channels whose offsets
    // lie outside a one-byte frame, and a block that declares more frames than an int counts.
    Wv2FileWriter outside;
    outside.format(1);
    for (int a = 0; a < 64; ++a) {
        Wv2AnalogSpec spec;
        spec.offset = qint16(a * 3);
        outside.analog(spec);
    }
    seeds["many-tags-outside-frame"] = outside.data(0, 4000, QByteArray(4000, '\x33')).bytes();
    seeds["frames-beyond-int"] = Wv2FileWriter()
                                     .format(2)
                                     .analog(Wv2AnalogSpec())
                                     .data(0, 0x80000001u, QByteArray(16, '\0'))
                                     .bytes();
    return seeds;
}

QMap<QString, QByteArray> clcSeeds()
{
    ClcFileWriter archive;
    archive.header("Recorder", "Archive", 1577934245, 1, 1, 2).channel("U", 1, 0).channel("I", 2, -3);
    for (int r = 0; r < 3; ++r)
        archive.row({ r + 0.5, -1.0 * r, 2.0, 3.0, 4.0, r * 1e3 });
    QMap<QString, QByteArray> seeds;
    seeds["archive"] = archive.bytes();
    seeds["archive-cut"] = ClcFileWriter(archive).cut(30).bytes();
    seeds["no-channels"] = ClcFileWriter().header("R", "A", 0, 0, 0, 0).row({}).row({}).bytes();
    seeds["bad-signature"] = ClcFileWriter().header("R", "A", 0, 0, 0, 0, "CLC_1").bytes();
    return seeds;
}

bool writeAll(const QString& folder, const QMap<QString, QByteArray>& seeds)
{
    for (auto seed = seeds.begin(); seed != seeds.end(); ++seed) {
        if (!writeFile(QDir(folder).filePath(seed.key()), seed.value()))
            return false;
    }
    return true;
}
} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 2) {
        qWarning("usage: write_fuzz_seeds <project root>");
        return 2;
    }
    const QDir corpus(QDir(QString::fromLocal8Bit(argv[1])).filePath(QStringLiteral("fuzz/corpus")));
    const bool ok = writeAll(corpus.filePath(QStringLiteral("wv2_loader")), wv2Seeds())
        && writeAll(corpus.filePath(QStringLiteral("clc_loader")), clcSeeds());
    return ok ? 0 : 1;
}
