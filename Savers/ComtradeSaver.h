#pragma once

#include "CalcLib/Comtrade.h"
#include "Model/RasObject.h"
#include "Savers/WaveSaver.h"

#include <QStringList>
#include <QTemporaryDir>

#include <string>
#include <vector>

// Writes a record as one COMTRADE set (.INF, .HDR, .CFG, .DAT) packed into a zip archive. The set
// is written into a temporary folder, the .DAT block by block so that long records stay within a
// bounded amount of memory, and the target is replaced only once the archive is complete.
class KORVANE_EXPORT ComtradeSaver : public WaveSaver
{
    Q_OBJECT
public:
    // The memory of one block of samples.
    static constexpr int blockBudgetBytes = 0xA00000;

    ComtradeSaver(const QString& path, QSharedPointer<Oscillogram> oscillogram, bool onlySelectedChannels,
        bool useTimeRange);
    ~ComtradeSaver() override;

    void setComtradeFormat(int format) { m_format = format; }
    int comtradeFormat() const { return m_format; }
    void setLocalCode(int hours) { m_localCodeHours = hours; }
    // The time code follows the hours unless the record's own times are already UTC.
    void setNewTz(int hours);
    int timeCodeHours() const { return m_timeCodeHours; }
    int localCodeHours() const { return m_localCodeHours; }
    void setHeaderData(const QString& text) { m_headerData = text; }
    QString headerData() const { return m_headerData; }
    void setAdditionalHeaderInfo(const QStringList& lines);
    std::vector<std::string> additionalHeaderInfo() const { return m_additionalHeaderInfo; }
    void setObjList(const QList<RAS_OBJECT>& objects) { m_rasObjects = objects; }
    QList<RAS_OBJECT> objList() const { return m_rasObjects; }
    void setUserSettings(const CMR_USER_SETTINGS& settings) { m_userSettings = settings; }
    // Every member of the archive is deflated. Level 2 ran as fast as level 1 and made a smaller
    // archive (bench_comtrade_saver's zipLevel table); higher levels only got slower. Storing the
    // .DAT as it is trades an archive several times larger for a faster save; it is off unless
    // asked for.
    static constexpr int zipLevel = 2;
    void setStoreSamples(bool store) { m_storeSamples = store; }
    bool storesSamples() const { return m_storeSamples; }

    // The steps of saveOsc(): 0 on success, non-zero on failure or cancellation.
    int initComtradeBasics();
    int writeComtradeBasics();
    int initComtradeData(int block);
    int writeComtradeData();
    int zipFiles();

    // True when a selected channel takes part in the line.
    bool isLineUsed(QSharedPointer<Line> line);
    // Cuts the line's connections to unselected channels; the numbers of the others stay.
    void prepareLine(QSharedPointer<Line> line);

    QString getPhase(int phaseNumber) const;
    // The last sample number stated by the .CFG: one less than the samples written.
    int sampleEnd() const;
    float adcDelayToMicroSec(double delay) const;
    bool isOscTimeSetToUtc() const;

    int blockCount() const { return m_blockCount; }
    int firstSampleOfBlock() const { return m_firstSampleOfBlock; }
    const ComtradeDataBuffer& dataBuffer() const { return m_dataBuffer; }
    const COMTRADE& comtrade() const { return m_comtrade; }
    // The folder of the loose set and the archive; it goes with the saver.
    QString temporaryPath() const { return m_tempDir.path(); }

    // Where the values of one written channel are read from.
    struct ColumnSource;

protected:
    void saveOsc() override;

private:
    std::string encode(const QString& text) const;
    bool isWritten(const Channel& channel) const;
    ComtradeAnalogInfo analogInfo(const AnalogChannel& channel) const;
    ComtradeDigitalInfo digitalInfo(const DigitalChannel& channel) const;
    RasEquipment equipmentOf(QSharedPointer<Line> line);
    void fillRasDescription();
    void fillFaults();
    void fillMergedWaves();
    int writeHeader() const;
    QString tempFilePath(const QString& name) const;
    std::vector<ColumnSource> analogSources() const;
    std::vector<ColumnSource> digitalSources() const;
    bool hasBufferFor(int samples) const;
    int fillSample(ComtradeSample& sample, int recordSample, const std::vector<ColumnSource>& analogs,
        const std::vector<ColumnSource>& digitals) const;

    int m_timeCodeHours = 0;
    int m_localCodeHours = 0;
    QString m_zipName = QStringLiteral("NewWave.zip");
    COMTRADE m_comtrade;
    int m_format = 3;
    bool m_storeSamples = false;
    ComtradeAnalogList m_analogs;
    ComtradeDigitalList m_digitals;
    ComtradeFaultList m_faults;
    ComtradeMergedWaveList m_mergedWaves;
    CMR_USER_SETTINGS m_userSettings;
    QList<RAS_OBJECT> m_rasObjects;
    RasDescription m_rasDescription;
    ComtradeDataBuffer m_dataBuffer;
    QTemporaryDir m_tempDir;
    QString m_headerData;
    std::vector<std::string> m_additionalHeaderInfo;
    int m_blockCount = 1;
    int m_firstSampleOfBlock = 0;
    std::string m_zipPath;
    std::string m_cfgPath;
    std::string m_datPath;
    std::string m_infPath;
    std::string m_hdrPath;
};
