#pragma once

#include "Views/OscillogramViewActions.h"

#include <QSharedPointer>
#include <QString>
#include <QTemporaryDir>

class AChanParListView;
class AChanPlotListView;
class CurrentTimePositionView;
class DChanParListView;
class DChanPlotListView;
class KorvaneSettings;
class OscillogramViewModel;
class QAction;
class QSplitter;
class QToolBar;
class QUndoStack;
class TimeLine;
class ViewCommands;

// The parts of an OscillogramView; the model comes first, as every child is given it.
struct OscillogramView::Private
{
    static constexpr int undoLimit = 500;
    static constexpr int leftMinimumWidth = 90;

    QSharedPointer<OscillogramViewModel> model;
    QSharedPointer<KorvaneSettings> settings;
    QToolBar* toolBar = nullptr;
    QAction* actions[ViewAction::Count] = {};
    QUndoStack* undoStack = nullptr;
    ViewCommands* commands = nullptr;
    TimeLine* timeLine = nullptr;
    CurrentTimePositionView* currentTimePosition = nullptr;
    AChanParListView* aChanParList = nullptr;
    DChanParListView* dChanParList = nullptr;
    AChanPlotListView* aChanPlotList = nullptr;
    DChanPlotListView* dChanPlotList = nullptr;
    QTemporaryDir temporaryDir;
    QString temporaryFilePath;
    QString name;
    QSplitter* listSplitter = nullptr;
    QSplitter* imageSplitter = nullptr;
    QSplitter* lrSplitter = nullptr;
    bool calcSettingsChanged = false;
    bool triggerChanged = false;
    int rightClickedChannel = -1;
};
