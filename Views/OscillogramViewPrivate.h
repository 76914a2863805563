#pragma once

#include "Views/OscillogramViewActions.h"

#include <QSharedPointer>
#include <QString>
#include <QTemporaryDir>

class KorvaneSettings;
class OscillogramViewModel;
class QAction;
class QSplitter;
class QToolBar;
class QUndoStack;

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
