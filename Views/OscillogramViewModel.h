#pragma once

#include "Model/AnalogChannel.h"
#include "Model/Anomaly.h"
#include "Model/MeasureItem.h"
#include "Model/Oscillogram.h"
#include "Views/DropInfo.h"
#include "Views/Painters/Markers.h"
#include "Views/PlotDrawInfo.h"
#include "Views/XScale.h"
#include "korvane_export.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QVector>

class AChanParModel;
class CalcModule;
class KorvaneSettings;
class QAction;
class SimpleOscillogram;
class TimeMeasureMode;

// How one record is shown: samples, scale, rows, selection, markers and measures. Every widget of
// the record view holds it, reads it and changes it through its slots; it also renders the
// pictures of channels.
class KORVANE_EXPORT OscillogramViewModel : public QObject
{
    Q_OBJECT
public:
    struct RowHeight
    {
        int height = 0;
        int minHeight = 0;
    };

    explicit OscillogramViewModel(QObject* parent = nullptr);
    ~OscillogramViewModel() override;

    static int defaultRowHeight();
    static int defaultRowMinHeight();

    QSharedPointer<Oscillogram> oscillogram() const { return m_oscillogram; }
    QSharedPointer<SimpleOscillogram> simpleOscillogram() const;
    int currentSample() const { return m_currentSample; }
    double xScale() const { return m_xScale->value(); }
    XScale* xScaleObject() const { return m_xScale; }
    int startSampleNumber() const { return m_startSampleNumber; }
    bool hasFocus() const { return m_hasFocus; }
    void setPlotWidth(int width) { m_plotWidth = width; }
    int plotWidth() const { return m_plotWidth; }
    void setAllSettings(const QSharedPointer<KorvaneSettings>& settings) { m_allSettings = settings; }
    QSharedPointer<KorvaneSettings> allSettings() const { return m_allSettings; }
    QString analogChannelUnit(int channel) const;
    void setPrimSecMode(int mode);
    int primSecMode() const { return m_primSecMode; }
    QVector<bool> channelRowsFilter() const { return m_channelRowsFilter; }
    bool isChannelVisible(int channel) const;
    int chanRowHeight(int channel) const;
    int chanRowMinHeight(int channel) const;
    QMap<int, RowHeight> channelRowHeights() const { return m_rowHeights; }
    double chanMag(int channel) const;
    bool isChannelSelected(int channel) const;
    bool isClcOscillogram() const;
    bool isAnalogChannel(int channel) const;
    bool isDigitalChannel(int channel) const;
    bool isModified() const { return m_isModified; }
    void setIsModified(bool modified) { m_isModified = modified; }
    bool isCompactMode() const { return m_isCompactMode; }
    void setIsCompactMode(bool compact) { m_isCompactMode = compact; }
    QSharedPointer<CalcModule> calcModule() const { return m_calcModule; }
    QSharedPointer<Markers> markers() const { return m_markers; }
    TimeMeasureMode* timeMeasureMode() const { return m_timeMeasureMode; }
    QList<MeasureItem> getTimeMeasures() const;
    void setTimeMeasures(const QList<MeasureItem>& measures);
    // The start sample of the measure in progress, or -1.
    int startMeasureSample() const;
    void setAnomalyPaint(bool paint);
    bool anomalyPaint() const { return m_anomalyPaint; }
    void setAnomalyChannels(const QHash<int, Anomaly>& anomalies);
    void setAnomalyHash(const QHash<int, Anomaly>& anomalies) { m_anomalies = anomalies; }
    QHash<int, Anomaly> getAnomalyHash() const { return m_anomalies; }
    void deleteChannel(int a, int b);
    void addChannel(int a, int b, int c);
    QList<AChanParModel*> aParModels() const { return m_aParModels; }
    void setAParModels(const QList<AChanParModel*>& models) { m_aParModels = models; }
    QList<int> parSplitterConfig() const { return m_parSplitterConfig; }
    void setParSplitterConfig(const QList<int>& config) { m_parSplitterConfig = config; }
    void deleteRowHeight(int channel) { m_rowHeights.remove(channel); }
    Markers::Item makeMarkerItem() const;
    Markers::Item makeMarkerItem(int sample) const;
    QString getTimePosition(int sample) const;
    int splitterSize() const;
    QString makeAnomalyReportHead(int channel) const;
    QString makeAnomalyReportData(int from, int to, const QString& text) const;

    int startSampleNumberOption(int startSample) const;
    double xScaleOption(double xScale) const;
    QRgb backgroundColorOption(long long color) const;
    bool isDrawMarkers(const PlotDrawInfo& info, const QList<int>& channels) const;
    // The picture of the channels, one over the other, with the layers the info asks for, drawn by
    // a ChannelRenderer from the state of this model. The image owns the pixels the painters
    // wrote; nothing is copied.
    QImage channelPlot(
        const QList<int>& channels, int width, int height, const PlotDrawInfo& info = PlotDrawInfo()) const;

signals:
    void sigWaveChanged(const QSharedPointer<Oscillogram>& oscillogram);
    void sigRepopulateCalculatedWave(int countOfNewAnalogChannels);
    void currentSampleChanged(int sample);
    void xScaleChanged(double xScale);
    void startSampleNumberChanged(int sample);
    void hasFocusChanged(bool hasFocus);
    void measuresChanged();
    void analogVerticalScrollValueChanged(int value);
    void digitalVerticalScrollValueChanged(int value);
    void channelRowsFilterChanged(const QVector<bool>& filter);
    void channelRowHeightChanged(int channelNumber, int rowHeight);
    void chanMagChanged(int channelNumber, double amplitude);
    void channelSelectionChanged(int channelNumber, bool isSelected);
    void repopulateRequested();
    void triggerTimeChanged();
    void sigPrimSecModeChanged(int mode);
    void sigRightMouseClicked(int chNum);
    void sigStartTimeMeasureChanged(int sample);
    void repaintWave();
    void sigAnomalyReport(const QString& report);
    void sigSetPrimSecMode(AnalogChannel::PrimaryOrSecondary mode);
    void sigDropSignal(const DropInfo& drop);
    void sigDropSignalFromTypeModel(int beginRow, int endRow, int type);
    void sigDragSelectedChannel(int chan, bool isSelected, DRAG_POS pos);
    void sigDragFinish();
    void sigDeleteChannel(int, int);
    void sigAddChannel(int, int, int);
    void sigAddSignalInChannelPlot(int, int);
    void sigRemoveSignalInChannelPlot(int, int);
    void sigSetVisibleToolBar(bool isVisible, int chanNum);
    void sigSplitterMoved(int, int);
    void sigResetChannelSelectionTableModels();
    void sigPanelParametersWidthChanged(int width);
    void sigDisplayAllSignals();
    void sigSelectionChanVisible();

public slots:
    void setOscillogram(const QSharedPointer<Oscillogram>& oscillogram);
    void resetOscillogram();
    void setCalcOscillogram(const QSharedPointer<Oscillogram>& oscillogram);
    void setMathOscillogram(const QSharedPointer<Oscillogram>& oscillogram);
    void initCalcModule();

    void setCurrentSample(int sample);
    void resetCurrentSample();
    void resetXScale();
    void scaleUp();
    void scaleDown();
    void setFitXScaleForWidth(int width);
    void setStartSampleNumber(int sample);
    void resetStartSampleNumber();
    void setHasFocus(bool hasFocus);
    void resetHasFocus();

    void setAnalogVerticalScrollValue(int value);
    void resetAnalogVerticalScrollValue();
    void setDigitalVerticalScrollValue(int value);
    void resetDigitalVerticalScrollValue();
    int analogVerticalScrollValue() const { return m_analogVerticalScrollValue; }
    int digitalVerticalScrollValue() const { return m_digitalVerticalScrollValue; }

    void setChannelRowsFilter(const QVector<bool>& filter);
    void setChannelVisible(int channel, bool visible);
    void resetChannelRowsFilter();
    void setChanRowHeight(int channel, int height);
    void setChanRowMinHeight(int channel, int minHeight);
    void increaseChannelRowHeightByValue(int channel, int delta);
    void resetChannelRowHeight(int channel);
    void resetAllChannelRowHeights();

    void setChanMag(int channel, double amplitude);
    void resetChanMag(int channel);
    void resetAllChanMag();
    void resetChannel(int channel);

    void setChannelSelected(int channel, bool selected);
    void toggleChannelSelection(int channel);
    void resetChannelSelection(int channel);
    void resetAllChannelSelections();
    void selectAllChannels();
    void makeOnlySelectedChannelsVisible();

    void startTimeMeasure();
    void finishTimeMeasure();
    void saveLatestTimeMeasure();
    void removeLatestTimeMeasure();
    void removeAllTimeMeasures();

    void appendMarker(const Markers::Item& item);
    void removeMarker(const Markers::Item& item);
    void setMarkers(const QList<Markers::Item>& items);
    void clearMarkers();

    void setAnalogActionList(const QList<QAction*>& actions) { m_analogActionList = actions; }
    QList<QAction*> analogActionList() const { return m_analogActionList; }
    void setTriggerTime(int sample);
    void slotAnomalyReport(const QString& report);
    void slotSplitterMoved(int a, int b);
    void slotPanelParametersChanged();

private:
    int countOfSamples() const;
    int countOfAnalogChannels() const;
    int countOfChannels() const;
    QSharedPointer<Channel> channelAt(int channel) const;
    void resetPositionAndRows();
    void resetMarkers();
    int calculaterWindowInSamples() const;

    bool m_isModified = false;
    QSharedPointer<Oscillogram> m_oscillogram;
    int m_currentSample = 0;
    int m_startSampleNumber = 0;
    XScale* m_xScale = nullptr;
    bool m_hasFocus = false;
    int m_plotWidth = 0;
    int m_analogVerticalScrollValue = 0;
    int m_digitalVerticalScrollValue = 0;
    QVector<bool> m_channelRowsFilter;
    QMap<int, RowHeight> m_rowHeights;
    QVector<double> m_amplitudes;
    int m_primSecMode = 0;
    bool m_anomalyPaint = true;
    QHash<int, Anomaly> m_anomalies;
    bool m_isCompactMode = false;
    QList<QAction*> m_analogActionList;
    TimeMeasureMode* m_timeMeasureMode = nullptr;
    QSharedPointer<KorvaneSettings> m_allSettings;
    QSharedPointer<Markers> m_markers;
    QSharedPointer<CalcModule> m_calcModule;
    QList<AChanParModel*> m_aParModels;
    QList<int> m_parSplitterConfig;
};
