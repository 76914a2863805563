#pragma once

#include "korvane_export.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QUndoStack>

class OscillogramViewModel;
class QSplitter;

// What the user does to the looks of a record, turned into undo commands: each slot builds one
// command and pushes it on the view's stack, which runs it. The record view's slots of the same
// names forward here, so that the choice of command and arguments is made in one place.
class KORVANE_EXPORT ViewCommands : public QObject
{
    Q_OBJECT
public:
    // The amplitude and height steps of the row tool bars.
    static constexpr double magnifyFactor = 1.3333333333333333;
    static constexpr double reduceFactor = 0.75;

    explicit ViewCommands(QUndoStack* stack, QObject* parent = nullptr);

    void setOscillogramViewModel(const QSharedPointer<OscillogramViewModel>& model) { m_model = model; }
    QSharedPointer<OscillogramViewModel> oscillogramViewModel() const { return m_model; }
    QUndoStack* undoStack() const { return m_stack; }

public slots:
    void slotIncMag(int channel);
    void slotDecMag(int channel);
    // The height buttons are opposite in sense to the amplitude ones: "increase" lowers the row,
    // as the tool tips of the buttons say.
    void slotIncH(int channel);
    void slotDecH(int channel);
    void slotChannelHeight(int channel, int delta);
    void slotFitMag(int channel);
    void slotReset(int channel);
    void slotHide(int channel);
    void slotSetTriggerTime(int sample);
    // Nothing when a marker already stands at the current sample.
    void slotAppendMarker();
    void slotClearMarkers();
    void slotLRSplitterMoved(QSplitter* splitter);
    void slotADSplitterMoved(QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes);

private:
    QPointer<QUndoStack> m_stack;
    QSharedPointer<OscillogramViewModel> m_model;
};
