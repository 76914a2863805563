#pragma once

#include "Savers/DiaSaveSettings.h"

// "Экспорт осциллограммы как CSV": the mode of the table, the column separator and the decimal
// point. A comma cannot serve as both.
class KORVANE_EXPORT CsvSaveSettings : public DiaSaveSettings
{
    Q_OBJECT
    Q_DISABLE_COPY(CsvSaveSettings)
public:
    explicit CsvSaveSettings(const SaveSource& source, QWidget* parent = nullptr);
    ~CsvSaveSettings() override;

    // The choices as the saver takes them: mode 0 to 2, separator 1 a comma, decimal 1 a point.
    int mode() const;
    int separatorChoice() const;
    int decimalChoice() const;

    std::unique_ptr<WaveSaver> createSaver() const override;

private slots:
    void slotCheckSeparators();

private:
    QComboBox* m_mode;
    QComboBox* m_separator;
    QComboBox* m_decimal;
};
