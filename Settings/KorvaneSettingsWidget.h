#pragma once

#include "korvane_export.h"

#include <QSharedPointer>
#include <QWidget>

class KorvaneSettings;
class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

// The calculator page: calculator of constant signals, the calculation interval as a number of
// 20 ms periods or as a period set by hand.
class KORVANE_EXPORT KorvaneSettingsWidget : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(KorvaneSettingsWidget)
public:
    static constexpr int periodMs = 20;
    static constexpr int minManualInterval = 20;
    static constexpr int maxManualInterval = 80;

    KorvaneSettingsWidget(QSharedPointer<KorvaneSettings>& settings, QWidget* parent = nullptr);

    // Offers a calculator of varying signals in its combo; the page shows the combo once it has one.
    void offerVarCalculator(const QString& name, int varType);

    // The interval in ms that the page would store.
    int interval() const { return m_interval; }
    bool isManual() const { return m_manual; }

    void saveSettings();
    void loadSettings();
    void updatePeriod();

public slots:
    void slotIntervalChanged(int periods);
    void setManual(int ms);
    void slotManualInterval();

protected:
    // A click on the period count that a manual period has disabled goes back to whole periods.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildForm();
    void leaveManual();

    QSharedPointer<KorvaneSettings> m_settings;
    QLabel* m_varCalcLabel;
    QComboBox* m_varCalc;
    QComboBox* m_constCalc;
    QSpinBox* m_calcDuration;
    QLabel* m_period;
    QPushButton* m_manualButton;
    int m_interval = 40;
    bool m_manual = false;
};
