#pragma once

#include "Savers/WaveSaver.h"

#include <QChar>
#include <QLocale>

class CalcModule;
class CsvNumberFormat;
class QSaveFile;
class QSaveFile;
class QTextStream;

// Writes a record as one text table: a header line with the channel names, then a row a sample
// (mode 0) or a row a calculation step with the measured values (mode 1, protection-automation
// steps of 8 ms; mode 2, Talvi steps of 4 ms). The table reaches the target only when it is whole.
class KORVANE_EXPORT CsvSaver : public WaveSaver
{
    Q_OBJECT
public:
    enum Mode : int { WithoutProcessing = 0, ProtectionAutomation = 1, Talvi = 2 };

    CsvSaver(const QString& path, QSharedPointer<Oscillogram> oscillogram, bool onlySelectedChannels,
        bool useTimeRange);
    ~CsvSaver() override;

    // A module of the saver's own: the save runs on another thread than the view's module.
    void setCalcModule(const QSharedPointer<CalcModule>& module) { m_calcModule = module; }
    QSharedPointer<CalcModule> calcModule() const { return m_calcModule; }
    void setMode(int mode) { m_mode = mode; }
    int mode() const { return m_mode; }
    // 0 primary values, 1 secondary.
    void setPrimSecMode(int mode) { m_primSecMode = mode; }
    int primSecMode() const { return m_primSecMode; }
    // 1 a comma, anything else a semicolon.
    void setSeparator(int choice);
    QChar separator() const { return m_separator; }
    // 1 a point (the C locale), anything else a comma (Russian).
    void setDecimalPoint(int choice);
    QLocale numberLocale() const { return m_numberLocale; }
    // Samples from row to row; the calculation modes set it from the sample rate.
    int rowStep() const { return m_rowStep; }

    // Settles the mode and the row step before the rows: without a module the table is plain.
    void prepareCalcModule();

protected:
    void saveOsc() override;

private:
    struct Columns;
    enum class RowsResult { Written, Cancelled, Failed };

    Columns shownColumns() const;
    QString headerLine(const Columns& columns) const;
    RowsResult writeRows(QSaveFile& file, QTextStream& stream, const Columns& columns);
    char* writeRow(
        char* out, int rowNumber, int sample, const Columns& columns, const CsvNumberFormat& format);
    double analogValue(const QSharedPointer<AnalogChannel>& channel, int sample);
    double toChosenSide(const AnalogChannel& channel, double value) const;

    QSharedPointer<CalcModule> m_calcModule;
    int m_mode = WithoutProcessing;
    int m_rowStep = 1;
    int m_primSecMode = 0;
    QChar m_separator = QLatin1Char(';');
    QLocale m_numberLocale;
};
