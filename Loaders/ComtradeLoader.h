#pragma once

#include "CalcLib/Comtrade.h"
#include "Loaders/ComtradeCompatibility.h"
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

    // Compatible reading also opens what real devices write beside the standard (other revision
    // years, month-first dates, several rates, Mac archive members, other encodings, .cff files);
    // strict reading follows the standard alone. New loaders take the process-wide default,
    // which is strict until a host sets it.
    void setCompatible(bool compatible) { m_compatible = compatible; }
    bool isCompatible() const { return m_compatible; }
    static void setDefaultCompatible(bool compatible);
    static bool defaultCompatible();

protected:
    LoaderResult work() override;

private:
    void loadUnzipped(const QString& cfgName);
    void loadZipped(const QString& path);
    void loadSingleFile(const QString& path);
    void noteCompatibility(const QString& reason);
    void unzip(const QString& archive, const QString& destination);

    void readConfigFile(const QString& path);
    void lookAtChannelShapes(const QString& path);
    ComtradeVersion readVersion(CsvParser& parser);
    void parseConfigFile(CsvParser& parser);
    QList<QSharedPointer<ComtradeAnalogChannel>> readAnalogChannels(
        CsvParser& parser, int analogs, int total);
    QList<QSharedPointer<ComtradeDigitalChannel>> readDigitalChannels(
        CsvParser& parser, int analogs, int total);
    void readSampleRate(CsvParser& parser);
    // The fields of a date and time, in the order written: day or month first.
    struct DateFields
    {
        long long first = 0;
        long long second = 0;
        long long year = 0;
        long long hours = 0;
        long long minutes = 0;
        long long seconds = 0;
        long long fraction = 0;
        PreciseDateTime toDateTime(bool monthFirst) const;
    };
    static DateFields readDateFields(CsvStringParser& line);
    static long long readLastSample(CsvParser& parser);
    void readDigitalFields(CsvParser& parser, ComtradeDigitalChannel& channel, ComtradeVersion version);
    void setTimesFromRates();
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
    bool m_compatible;
    // Field counts of the first analogue and digital lines, looked at ahead by compatible reading.
    int m_firstAnalogFields = 0;
    int m_firstDigitalFields = 0;
    QList<ComtradeCompatibility::RateSegment> m_rates;
    QStringList m_compatibilityNotes;
};
