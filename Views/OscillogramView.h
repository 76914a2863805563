#pragma once

#include "korvane_export.h"

#include <QScopedPointer>
#include <QSharedPointer>
#include <QWidget>

class AChanParListView;
class AChanPlotListView;
class DChanParListView;
class DChanPlotListView;
class KorvaneSettings;
class Oscillogram;
class OscillogramViewModel;
class QAction;
class QSplitter;
class QToolBar;
class QUndoStack;
class TimeLine;

// The widget that shows one record: the tool bar on top, the analogue and discrete rows with their
// parameter panels on the left and the time line above the plots. It owns the view model, which it
// hands to every child, and the undo stack through which every change of looks goes.
class KORVANE_EXPORT OscillogramView : public QWidget
{
    Q_OBJECT
    Q_DISABLE_COPY(OscillogramView)
public:
    // Arguments of slotSaveAs.
    enum FORMATS { COMTRADE = 0, CSV = 1, HODOGRAPH_CSV = 2, HODOGRAPH_GDF = 3 };

    OscillogramView(QSharedPointer<KorvaneSettings>& settings, QWidget* parent = nullptr);
    ~OscillogramView() override;

    void setOscillogram(QSharedPointer<Oscillogram> oscillogram);
    void initByDefault();
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const;
    void setOscillogramViewName(const QString& name);
    QString oscillogramViewName() const;
    // Where a save of the record goes first: a file of the record's name in the view's own
    // temporary folder.
    QString temporaryFilePath() const;
    void showToolbar();
    void hideToolbar();
    QToolBar* toolBar() const;
    TimeLine* timeLine() const;
    AChanParListView* aChanParList() const;
    AChanPlotListView* aChanPlotList() const;
    DChanParListView* dChanParList() const;
    DChanPlotListView* dChanPlotList() const;
    // The splitter between the parameter panels on the left and the plots on the right.
    QSplitter* lrSplitter() const;
    QUndoStack* undoStack() const;
    // The model's flag, or a command pushed since the last save.
    bool isModified() const;
    void setIsModified(bool modified);
    void resetModified();
    void setCalcSettingsChanged(bool changed);
    bool calcSettingsChanged() const;
    bool triggerChanged() const;
    // The actions of the context menu of an analogue row, in menu order.
    QList<QAction*> analogActionList() const;
    int rightClickedChannel() const;
    // The action of a ViewAction::Id, or null when its tool does not exist.
    QAction* action(int id) const;

    // The sample the trigger moves to from "В начало секунды": the first sample of the second that
    // holds the sample before the trigger.
    static int previousSecondSample(const Oscillogram& record);
    // The sample the trigger moves to from "В конец секунды": the last sample of the second that
    // holds the sample after the trigger.
    static int nextSecondSample(const Oscillogram& record);
    // Heights of the analogue and the discrete part in a splitter of the given height, for lists
    // whose contents are a and d pixels high. The discrete part gets 30 % unless the analogue rows
    // need more and the discrete ones fit in less; when everything fits, the analogue part takes
    // its content and the discrete one the rest.
    static QList<int> areaSizes(int splitterHeight, int analogHeight, int digitalHeight);

signals:
    void sigFocusRequested();
    void sigSettingsChanged();
    void sigPanelParametersChanged();
    void sigPrimSecModeChanged(int mode);

public slots:
    void slotCheckWave();
    void slotPrimaryTriggered();
    void slotSecondaryTriggered();
    void primSecChanged();
    void slotFitXScaleTriggered();
    void slotIncreaseXScaleTriggered();
    void slotDecreaseXScaleTriggered();
    void slotSetTriggerTimeTriggered();
    void slotSetTriggerTime(int sample);
    void slotSetPrevSecond();
    void slotSetNextSecond();
    void slotRightClicked(int channel);
    void slotSelectColorAction();
    void slotClearColorAction();
    void slotSettingsTriggered();
    void slotOpenMarkersTable();
    void slotAppendMarker();
    void slotClearMarkers();
    void slotShowSelectedChannelsTriggered();
    // The panels take the width their parameters need, the plots the rest.
    void slotWidthForPanelChanged();
    void slotCompactModeTriggered();
    void slotFullModeTriggered();
    // Shares the height between the analogue and the discrete rows, and hides a kind the record
    // does not have.
    void resizeArea();
    void slotLRSplitterMoved(int position, int index);
    void slotADSplitterMoved(const QList<int>& sizes);
    void slotListADSMoved(int position, int index);
    void slotImageADSMoved(int position, int index);
    void slotSaveOscillogram();
    void slotSaveAs(int format);

    // The tools, one file each (OscillogramView<Tool>.cpp); an action whose tool is not built yet
    // stays out of the bars, so its slot is never reached.
    // Record information and the failure list.
    void slotShowHdrActionTriggered();
    void slotFailListTriggered();
    // Printing.
    void slotPrint();
    // Channel selection and the discretes that changed.
    void slotAdvancedChannelSelectionTriggered();
    void slotSelectDiscretesTriggered();
    // Signal shapes and offsets of the analogue channels.
    void slotSetShapeFormTriggered();
    void slotMDifferenceTriggered();
    // Hodograph.
    void slotHodograph();
    // Computed signals.
    void slotShowSignalsCalculator();
    void slotCalculatedWaveRepopulate(int countOfNewAnalogChannels);
    // Merging.
    void slotMergeOscillograms();
signals:
    // A merge started from this view has put its record into Oscillograms under this name. With
    // no one listening, the view shows the record in a window of its own.
    void sigOscillogramMerged(QString name);
public slots:
    // Vector diagrams and the spectrum.
    void slotLineVectorDiagram();
    void slotSelectedVectorDiagram();
    void slotSpectrumTriggered();
    // Behaviour of a signal.
    void slotChannelBehavior();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Private;

    void buildLayout();
    void connectModel();
    void createLists();
    // Row heights of the compact mode (two text lines a panel) or the full one, in the model and
    // both analogue lists.
    void setRowMode(bool compact);
    void connectLists();
    void createToolBar();
    void createToolBarActions();
    void connectToolBarActions();
    void fillToolBar();
    QAction* makeAction(int id);
    void createIconForActions(const QString& plain, const QString& active, QAction* action);
    bool saveTo(const QString& path);
    // Writes the hodograph of the record as CSV or GDF (FORMATS).
    void saveHodograph(int format);

    QScopedPointer<Private> d;
};
