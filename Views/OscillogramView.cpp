#include "Views/OscillogramView.h"

#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewPrivate.h"

#include "Model/Oscillogram.h"
#include "Settings/KorvaneSettings.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/Commands/ViewCommands.h"
#include "Views/CurrentTimePositionView.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/PlotGestures.h"
#include "Views/TimeLine.h"

#include <QAction>
#include <QFileInfo>
#include <QScrollBar>
#include <QSplitter>
#include <QTimer>
#include <QToolBar>
#include <QUndoStack>
#include <QVBoxLayout>

OscillogramView::OscillogramView(QSharedPointer<KorvaneSettings>& settings, QWidget* parent)
    : QWidget(parent), d(new Private)
{
    resize(700, 700);
    setUpdatesEnabled(false);
    d->model = QSharedPointer<OscillogramViewModel>::create();
    d->model->setAllSettings(settings);
    d->settings = settings;
    d->undoStack = new QUndoStack(this);
    d->undoStack->setUndoLimit(Private::undoLimit);
    QAction* undo = d->undoStack->createUndoAction(this, tr("&Undo"));
    undo->setShortcut(QKeySequence::Undo);
    QAction* redo = d->undoStack->createRedoAction(this, tr("&Redo"));
    redo->setShortcut(QKeySequence::Redo);
    addAction(undo);
    addAction(redo);
    d->commands = new ViewCommands(d->undoStack, this);
    d->commands->setOscillogramViewModel(d->model);
    createToolBar();
    d->toolBar->hide();
    buildLayout();
    connectModel();
    QTimer::singleShot(0, this, [this]() {
        setUpdatesEnabled(true);
        resize(size());
    });
}

OscillogramView::~OscillogramView() = default;

void OscillogramView::buildLayout()
{
    createLists();
    d->listSplitter = new QSplitter(Qt::Vertical);
    d->listSplitter->setCursor(Qt::SizeHorCursor);
    d->listSplitter->addWidget(d->aChanParList);
    d->listSplitter->addWidget(d->dChanParList);
    d->imageSplitter = new QSplitter(Qt::Vertical);
    d->imageSplitter->addWidget(d->aChanPlotList);
    d->imageSplitter->addWidget(d->dChanPlotList);
    for (QSplitter* splitter : { d->listSplitter, d->imageSplitter })
        splitter->setChildrenCollapsible(false);
    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setSpacing(0);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    d->currentTimePosition = new CurrentTimePositionView;
    leftLayout->addWidget(d->currentTimePosition);
    leftLayout->addWidget(d->listSplitter, 100);
    left->setMinimumWidth(Private::leftMinimumWidth);
    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setSpacing(0);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    d->timeLine = new TimeLine;
    // The label above the panels (two lines: the time and the distance from the trigger) and the
    // ruler above the plots are as high as the higher of the two, so that the rows on both sides
    // start at the same height.
    const int label = 2 * d->currentTimePosition->fontMetrics().lineSpacing() + 2;
    const int header = qMax(d->timeLine->minimumHeight(), label);
    d->currentTimePosition->setFixedHeight(header);
    d->timeLine->setFixedHeight(header);
    rightLayout->addWidget(d->timeLine);
    rightLayout->addWidget(d->imageSplitter, 100);
    d->lrSplitter = new QSplitter(Qt::Horizontal);
    d->lrSplitter->setChildrenCollapsible(false);
    d->lrSplitter->addWidget(left);
    d->lrSplitter->addWidget(right);
    d->lrSplitter->setStretchFactor(0, 0);
    d->lrSplitter->setStretchFactor(1, 100);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(3, 0, 3, 0);
    layout->addWidget(d->toolBar);
    layout->addWidget(d->lrSplitter, 100);
}

void OscillogramView::createLists()
{
    d->aChanParList = new AChanParListView;
    d->dChanParList = new DChanParListView;
    d->aChanPlotList = new AChanPlotListView;
    d->dChanPlotList = new DChanPlotListView;
    // Only the lowest list shows the time scroll bar; both plot lists follow the start sample.
    d->aChanPlotList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    d->dChanPlotList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void OscillogramView::connectLists()
{
    for (ScrollArea* list :
        QList<ScrollArea*> { d->aChanParList, d->dChanParList, d->aChanPlotList, d->dChanPlotList }) {
        list->setUndoStack(d->undoStack);
        connect(list, &ScrollArea::sigChannelHeight, d->commands, &ViewCommands::slotChannelHeight);
        connect(list, &ScrollArea::sigChannelMinHeight, d->model.data(),
            &OscillogramViewModel::setChanRowMinHeight);
        connect(list, &ScrollArea::sigIncMag, d->commands, &ViewCommands::slotIncMag);
        connect(list, &ScrollArea::sigDecMag, d->commands, &ViewCommands::slotDecMag);
        connect(list, &ScrollArea::sigIncH, d->commands, &ViewCommands::slotIncH);
        connect(list, &ScrollArea::sigDecH, d->commands, &ViewCommands::slotDecH);
        connect(list, &ScrollArea::sigFitMag, d->commands, &ViewCommands::slotFitMag);
        connect(list, &ScrollArea::sigReset, d->commands, &ViewCommands::slotReset);
        connect(list, &ScrollArea::sigHide, d->commands, &ViewCommands::slotHide);
        connect(list, &ScrollArea::sigFocusRequested, this, &OscillogramView::sigFocusRequested);
    }
    d->aChanParList->setOscillogramViewModel(d->model);
    d->dChanParList->setOscillogramViewModel(d->model);
    for (BasePlotView* plots : QList<BasePlotView*> { d->aChanPlotList, d->dChanPlotList }) {
        plots->setOscillogramViewModel(d->model);
        auto* gestures = new PlotGestures(
            plots->viewport(), d->dChanPlotList->horizontalScrollBar(), plots->verticalScrollBar(), plots);
        gestures->setOscillogramViewModel(d->model);
    }
}

void OscillogramView::connectModel()
{
    connectLists();
    connect(d->timeLine, &TimeLine::sigSetTrigger, this, &OscillogramView::slotSetTriggerTime);
    connect(d->lrSplitter, &QSplitter::splitterMoved, this, &OscillogramView::slotLRSplitterMoved);
    connect(d->listSplitter, &QSplitter::splitterMoved, this, &OscillogramView::slotListADSMoved);
    connect(d->imageSplitter, &QSplitter::splitterMoved, this, &OscillogramView::slotImageADSMoved);
    d->timeLine->setOscillogramViewModel(d->model);
    d->currentTimePosition->setOscillogramViewModel(d->model);
    connect(d->model.data(), &OscillogramViewModel::sigWaveChanged, this, &OscillogramView::slotCheckWave);
    connect(d->model.data(), &OscillogramViewModel::sigRepopulateCalculatedWave, this,
        &OscillogramView::slotCalculatedWaveRepopulate);
    connect(d->model.data(), &OscillogramViewModel::sigRightMouseClicked, this,
        &OscillogramView::slotRightClicked);
    connect(this, &OscillogramView::sigSettingsChanged, this, &OscillogramView::slotWidthForPanelChanged);
    connect(d->model.data(), &OscillogramViewModel::sigPanelParametersWidthChanged, this,
        &OscillogramView::slotWidthForPanelChanged);
    connect(this, &OscillogramView::sigPanelParametersChanged, d->model.data(),
        &OscillogramViewModel::slotPanelParametersChanged);
}

void OscillogramView::setOscillogram(QSharedPointer<Oscillogram> oscillogram)
{
    d->model->setOscillogram(oscillogram);
    const QString name = oscillogram ? QFileInfo(oscillogram->filename()).fileName() : QString();
    setOscillogramViewName(name);
    d->temporaryFilePath = d->temporaryDir.path() + QStringLiteral("/") + name;
}

void OscillogramView::initByDefault()
{
    d->model->resetMarkers();
    slotWidthForPanelChanged();
    resizeArea();
}

void OscillogramView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    resizeArea();
}

QSharedPointer<OscillogramViewModel> OscillogramView::oscillogramViewModel() const
{
    return d->model;
}

void OscillogramView::setOscillogramViewName(const QString& name)
{
    d->name = name;
    setWindowTitle(name);
}

QString OscillogramView::oscillogramViewName() const
{
    return d->name;
}

QString OscillogramView::temporaryFilePath() const
{
    return d->temporaryFilePath;
}

void OscillogramView::showToolbar()
{
    d->toolBar->show();
}

void OscillogramView::hideToolbar()
{
    d->toolBar->hide();
}

TimeLine* OscillogramView::timeLine() const
{
    return d->timeLine;
}

AChanParListView* OscillogramView::aChanParList() const
{
    return d->aChanParList;
}

AChanPlotListView* OscillogramView::aChanPlotList() const
{
    return d->aChanPlotList;
}

DChanParListView* OscillogramView::dChanParList() const
{
    return d->dChanParList;
}

DChanPlotListView* OscillogramView::dChanPlotList() const
{
    return d->dChanPlotList;
}

QSplitter* OscillogramView::lrSplitter() const
{
    return d->lrSplitter;
}

QToolBar* OscillogramView::toolBar() const
{
    return d->toolBar;
}

QUndoStack* OscillogramView::undoStack() const
{
    return d->undoStack;
}

bool OscillogramView::isModified() const
{
    return d->model->isModified() || !d->undoStack->isClean();
}

void OscillogramView::setIsModified(bool modified)
{
    d->model->setIsModified(modified);
}

void OscillogramView::resetModified()
{
    d->model->setIsModified(false);
    d->undoStack->setClean();
}

void OscillogramView::setCalcSettingsChanged(bool changed)
{
    d->calcSettingsChanged = changed;
}

bool OscillogramView::calcSettingsChanged() const
{
    return d->calcSettingsChanged;
}

bool OscillogramView::triggerChanged() const
{
    return d->triggerChanged;
}

int OscillogramView::rightClickedChannel() const
{
    return d->rightClickedChannel;
}

void OscillogramView::slotRightClicked(int channel)
{
    d->rightClickedChannel = channel;
}
