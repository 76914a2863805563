#pragma once

#include "Savers/SaveSource.h"
#include "korvane_export.h"

#include <QDialog>

#include <memory>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;
class WaveSaver;

// The frame of the save dialogs: the target path with a browse button, the choice of selected
// channels and of the marked time range, the text encoding, a hint, and "Сохранить". Accepting
// checks the target; the derived dialog adds its options and makes the saver of the choices.
class KORVANE_EXPORT DiaSaveSettings : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(DiaSaveSettings)
public:
    DiaSaveSettings(const SaveSource& source, const QString& suffix, QWidget* parent = nullptr);
    ~DiaSaveSettings() override;

    // The record's begin time as "yy.MM.dd,HH.mm.ss.zzz,+3t", without a suffix.
    static QString defaultFileName(const PreciseDateTime& begin);

    QString suffix() const { return m_suffix; }
    // The path as the user gave it, with the suffix added when it has another.
    QString path() const;
    void setPath(const QString& path);
    bool onlySelectedChannels() const;
    bool useTimeRange() const;
    // The name a saver's setCodec takes.
    QString codecName() const;

    // The saver of the chosen settings, owned by the caller.
    virtual std::unique_ptr<WaveSaver> createSaver() const = 0;

public slots:
    void accept() override;
    void slotBrowse();

protected:
    const SaveSource& source() const { return m_source; }
    // The derived dialog's options go here, between the path and the common choices.
    QVBoxLayout* optionsLayout() const { return m_options; }
    void setHint(const QString& text);
    // What every saver takes from the frame: the encoding and the time range.
    void configureSaver(WaveSaver& saver) const;
    // Asks under "Сохранение файла"; true to go on.
    bool askToContinue(const QString& text);
    // The checks of the derived dialog after those of the path; false keeps the dialog open.
    virtual bool confirmOptions() { return true; }

private:
    QWidget* buildPathRow();
    QWidget* buildCommonChoices();
    QWidget* buildButtons();
    QString defaultPath() const;

    SaveSource m_source;
    QString m_suffix;
    QLabel* m_hint;
    QLineEdit* m_path;
    QPushButton* m_browse;
    QVBoxLayout* m_options;
    QCheckBox* m_selectedChannels;
    QCheckBox* m_timeRange;
    QComboBox* m_encoding;
    QPushButton* m_save;
};
