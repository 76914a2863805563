// Feeds arbitrary bytes to the COMTRADE readers as a .CFG and as an .INF, and checks that an
// .INF that was read once reads back the same after saving.
#include "CalcLib/Comtrade.h"
#include "CalcLib/IniFile.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {
// A file of its own for each run of the fuzzer, removed when the process ends.
class ScratchFile
{
public:
    ScratchFile()
    {
        char name[] = "/tmp/korvane_fuzz_comtrade_XXXXXX";
        const int fd = mkstemp(name);
        if (fd < 0)
            std::abort();
        close(fd);
        m_path = name;
    }
    ~ScratchFile() { std::remove(m_path.c_str()); }
    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

const std::string& inputPath()
{
    static const ScratchFile file;
    return file.path();
}

const std::string& savedPath()
{
    static const ScratchFile file;
    return file.path();
}

void writeInput(const uint8_t* data, size_t size)
{
    std::FILE* file = std::fopen(inputPath().c_str(), "wb");
    if (!file)
        std::abort();
    if (size != 0)
        std::fwrite(data, 1, size, file);
    std::fclose(file);
}

bool sameContent(const IniFile& a, const IniFile& b)
{
    if (a.sections().size() != b.sections().size())
        return false;
    auto other = b.sections().begin();
    for (const IniFile::Section& section : a.sections()) {
        if (section.name != other->name || section.comment != other->comment
            || section.keys.size() != other->keys.size())
            return false;
        auto otherKey = other->keys.begin();
        for (const IniFile::Key& key : section.keys) {
            if (key.name != otherKey->name || key.value != otherKey->value
                || key.comment != otherKey->comment)
                return false;
            ++otherKey;
        }
        ++other;
    }
    return true;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    writeInput(data, size);
    COMTRADE comtrade;
    ComtradeAnalogList analogs;
    ComtradeDigitalList digitals;
    if (comtrade.readCfg(analogs, digitals, inputPath()) != 0)
        std::abort();
    if (analogs.size() > 100000 || digitals.size() > 100000)
        std::abort();

    ComtradeFaultList faults;
    RasDescription ras;
    CMR_USER_SETTINGS settings;
    analogs.resize(8);
    digitals.resize(8);
    if (comtrade.readInf(analogs, digitals, faults, ras, inputPath(), &settings) != 0)
        std::abort();
    ComtradeMergedWaveList waves;
    if (comtrade.readMergedWaves(waves, inputPath()) != 0)
        std::abort();

    // Short inputs only: a saved line may grow past the reader's 4095-byte pieces.
    if (size < 3000) {
        IniFile first;
        first.load(inputPath());
        if (!first.save(savedPath()))
            std::abort();
        IniFile second;
        second.load(savedPath());
        if (!sameContent(first, second))
            std::abort();
    }
    return 0;
}
