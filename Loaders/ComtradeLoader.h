#pragma once

#include "CalcLib/Comtrade.h"
#include "Model/ComtradeOscillogram.h"
#include "Model/OscillogramLoader.h"

#include <QRegularExpression>

class CsvParser;
class CsvStringParser;
class QFile;
class QTextCodec;

// Reads a COMTRADE set (.cfg, .dat, and the optional .hdr and .inf), loose or in a .zip, into a
// ComtradeOscillogram. The years 1991, 1999 and 2013 share one reader that branches on the year.
class KORVANE_EXPORT ComtradeLoader : public OscillogramLoader
{
    Q_OBJECT
public:
    ComtradeLoader(const QString& filename, QObject* parent);

    // True when the folder of a .cfg, or the member list of a .zip, holds names ending in cfg
    // and dat; names are not matched with each other.
    static bool isComtrade(const QString& filename);

protected:
    LoaderResult work() override;

private:
    void loadUnzipped(const QString& cfgName);
    void loadZipped(const QString& path);
    void unzip(const QString& archive, const QString& destination);

    void readConfigFile(const QString& path);
    void parseConfigFile(CsvParser& parser);
    QList<QSharedPointer<ComtradeAnalogChannel>> readAnalogChannels(
        CsvParser& parser, int analogs, int total);
    QList<QSharedPointer<ComtradeDigitalChannel>> readDigitalChannels(
        CsvParser& parser, int analogs, int total);
    void readSampleRate(CsvParser& parser);
    // dd/mm/yyyy,hh:mm:ss.ffffff from the next two tokens; the fraction goes in as written.
    static PreciseDateTime readTimeStamp(CsvStringParser& line);
    int parseTimeCode(const QString& text);

    void readDataFile(const QString& path);
    void readBinaryDataFile(const QString& path);
    void readAsciiDataFile(const QString& path);
    void readAsciiDataStream(QFile& file, OscillogramDataBuilder& builder);
    // False at the line that ends the data.
    bool readAsciiRecord(CsvStringParser& parser, OscillogramDataBuilder& builder, int sample);
    void attachStore(OscillogramDataBuilder& builder, int samples);
    // A data file that would need more store than it can fill, or than one block can hold.
    [[noreturn]] static void failStoreTooLarge();

    void readHeaderFile(const QString& path);
    void readInfoFile(const QString& path);
    void applyInfoChannels();
    void readMergedWaves(const QString& path);
    QList<RAS_OBJECT> convertRasObjects(QList<QSharedPointer<Line>>& lines) const;
    void createEmptyObjects();
    QString decode(const std::string& text) const;

    QSharedPointer<ComtradeOscillogram> m_oscillogram;
    std::string m_rasVersion;
    std::string m_rasRevision;
    RasDescription m_ras;
    ComtradeAnalogList m_analogs;
    ComtradeDigitalList m_digitals;
    ComtradeFaultList m_faults;
    CMR_USER_SETTINGS m_userSettings;
    COMTRADE m_comtrade;
    QRegularExpression m_timeCodeRegExp;
    QTextCodec* m_codec;
};
