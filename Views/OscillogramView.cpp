#include "Views/OscillogramView.h"

#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewPrivate.h"

#include "Model/Oscillogram.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QFileInfo>
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
    d->listSplitter = new QSplitter(Qt::Vertical);
    d->listSplitter->setCursor(Qt::SizeHorCursor);
    d->imageSplitter = new QSplitter(Qt::Vertical);
    auto* left = new QWidget;
    auto* leftLayout = new QVBoxLayout(left);
    leftLayout->setSpacing(0);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->addWidget(d->listSplitter, 100);
    left->setMinimumWidth(Private::leftMinimumWidth);
    auto* right = new QWidget;
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setSpacing(0);
    rightLayout->setContentsMargins(0, 0, 0, 0);
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

void OscillogramView::connectModel()
{
    connect(d->model.data(), &OscillogramViewModel::sigWaveChanged, this, &OscillogramView::slotCheckWave);
    connect(d->model.data(), &OscillogramViewModel::sigRightMouseClicked, this,
        &OscillogramView::slotRightClicked);
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
