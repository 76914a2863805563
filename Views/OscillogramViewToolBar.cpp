#include "Views/OscillogramView.h"

#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewPrivate.h"

#include "Model/ComtradeOscillogram.h"
#include "Model/Oscillogram.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {
using namespace ViewAction;

// Actions that a Clc record turns off, since its samples are not a waveform to analyse.
const Id analysisActions[] = { ShapeForm, SignalOffset, SelectedVectorDiagram, ChannelBehavior, Spectrum,
    SetTrigger, ChangingDiscretes, Primary, Secondary, FailList, Info };
// Actions that need a continuous record: neither Clc nor event-triggered.
const Id continuousRecordActions[] = { ExportCsv, CalculatedSignals, ExportHodographGdf, ExportHodographCsv };
// The rows of the context menu of an analogue row.
const Id analogMenuActions[]
    = { Merge, LineVectorDiagram, SelectedVectorDiagram, Spectrum, ChannelBehavior, SelectColor, ClearColor };

bool isEventTriggered(const Oscillogram& record)
{
    const auto* comtrade = dynamic_cast<const ComtradeOscillogram*>(&record);
    return comtrade && comtrade->isEventTriggeredOsc();
}
} // namespace

void OscillogramView::createIconForActions(const QString& plain, const QString& active, QAction* action)
{
    QIcon icon(QStringLiteral(":/icons/%1.svg").arg(plain));
    icon.addFile(QStringLiteral(":/icons/%1.svg").arg(active), QSize(), QIcon::Active);
    action->setIcon(icon);
}

QAction* OscillogramView::makeAction(int id)
{
    const Description& row = description(Id(id));
    auto* action = new QAction(tr(row.text), this);
    action->setToolTip(row.toolTip ? tr(row.toolTip) : action->text());
    if (row.shortcut) {
        action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
        // Each open record has its own view with the same keys; only the one holding the focus acts.
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
    }
    if (row.icon) {
        const QString plain = QLatin1String(row.icon);
        createIconForActions(
            plain, row.activeIcon ? QLatin1String(row.activeIcon) : plain + QStringLiteral("_2"), action);
    }
    action->setCheckable(row.checkable);
    return action;
}

void OscillogramView::createToolBarActions()
{
    for (int id = 0; id < Count; ++id)
        if (description(Id(id)).available)
            d->actions[id] = makeAction(id);
    QList<QAction*> menu;
    for (Id id : analogMenuActions)
        if (d->actions[id])
            menu << d->actions[id];
    d->model->setAnalogActionList(menu);
}

void OscillogramView::connectToolBarActions()
{
    OscillogramViewModel* model = d->model.data();
    const auto on = [this](Id id, auto receiver, auto slot) {
        if (d->actions[id])
            connect(d->actions[id], &QAction::triggered, receiver, slot);
    };
    on(Save, this, &OscillogramView::slotSaveOscillogram);
    on(SaveAs, this, [this]() { slotSaveAs(COMTRADE); });
    on(ExportCsv, this, [this]() { slotSaveAs(CSV); });
    on(Settings, this, &OscillogramView::slotSettingsTriggered);
    // The names cross over on purpose: "Растянуть по времени" gives fewer pixels per sample.
    on(ScaleDown, model, &OscillogramViewModel::scaleDown);
    on(ScaleUp, model, &OscillogramViewModel::scaleUp);
    on(FitXScale, this, &OscillogramView::slotFitXScaleTriggered);
    on(CompactMode, this, &OscillogramView::slotCompactModeTriggered);
    on(FullMode, this, &OscillogramView::slotFullModeTriggered);
    on(Primary, this, &OscillogramView::slotPrimaryTriggered);
    on(Secondary, this, &OscillogramView::slotSecondaryTriggered);
    on(MeasureStart, model, &OscillogramViewModel::startTimeMeasure);
    on(MeasureFinish, model, [model]() {
        model->finishTimeMeasure();
        model->saveLatestTimeMeasure();
    });
    on(MeasureRemoveLatest, model, &OscillogramViewModel::removeLatestTimeMeasure);
    on(MeasureRemoveAll, model, &OscillogramViewModel::removeAllTimeMeasures);
    on(MarkerAdd, this, &OscillogramView::slotAppendMarker);
    on(MarkersClear, this, &OscillogramView::slotClearMarkers);
    on(MarkersTable, this, &OscillogramView::slotOpenMarkersTable);
    on(SelectedChannels, model, &OscillogramViewModel::makeOnlySelectedChannelsVisible);
    on(AllChannels, model, &OscillogramViewModel::resetChannelRowsFilter);
    on(ClearSelection, model, &OscillogramViewModel::resetAllChannelSelections);
    on(SetTrigger, this, &OscillogramView::slotSetTriggerTimeTriggered);
    on(PrevSecond, this, &OscillogramView::slotSetPrevSecond);
    on(NextSecond, this, &OscillogramView::slotSetNextSecond);
    on(SelectColor, this, &OscillogramView::slotSelectColorAction);
    on(Info, this, &OscillogramView::slotShowHdrActionTriggered);
    on(Print, this, &OscillogramView::slotPrint);
    on(ChannelList, this, &OscillogramView::slotAdvancedChannelSelectionTriggered);
    on(ChangingDiscretes, this, &OscillogramView::slotSelectDiscretesTriggered);
    on(FailList, this, &OscillogramView::slotFailListTriggered);
    on(ShapeForm, this, &OscillogramView::slotSetShapeFormTriggered);
    on(SignalOffset, this, &OscillogramView::slotMDifferenceTriggered);
    on(Hodograph, this, &OscillogramView::slotHodograph);
    on(ExportHodographGdf, this, [this]() { slotSaveAs(HODOGRAPH_GDF); });
    on(ExportHodographCsv, this, [this]() { slotSaveAs(HODOGRAPH_CSV); });
    on(CalculatedSignals, this, &OscillogramView::slotShowSignalsCalculator);
    on(Merge, this, &OscillogramView::slotMergeOscillograms);
    on(LineVectorDiagram, this, &OscillogramView::slotLineVectorDiagram);
    on(SelectedVectorDiagram, this, &OscillogramView::slotSelectedVectorDiagram);
    on(Spectrum, this, &OscillogramView::slotSpectrumTriggered);
    on(ChannelBehavior, this, &OscillogramView::slotChannelBehavior);
    on(ClearColor, this, &OscillogramView::slotClearColorAction);
}

void OscillogramView::fillToolBar()
{
    auto* saveButton = new QToolButton(d->toolBar);
    saveButton->setObjectName(QStringLiteral("pb_save"));
    saveButton->setPopupMode(QToolButton::MenuButtonPopup);
    saveButton->setDefaultAction(d->actions[Save]);
    auto* saveMenu = new QMenu(saveButton);
    for (Id id : { SaveAs, ExportCsv })
        if (d->actions[id])
            saveMenu->addAction(d->actions[id]);
    saveButton->setMenu(saveMenu);
    d->toolBar->addWidget(saveButton);
    bool separatorPending = false;
    for (int id = ExportCsv + 1; id <= Merge; ++id) {
        separatorPending = separatorPending || description(Id(id)).separatorBefore;
        if (!d->actions[id])
            continue;
        if (separatorPending)
            d->toolBar->addSeparator();
        separatorPending = false;
        d->toolBar->addAction(d->actions[id]);
    }
}

void OscillogramView::createToolBar()
{
    createToolBarActions();
    connectToolBarActions();
    d->toolBar = new QToolBar(this);
    d->toolBar->setObjectName(QStringLiteral("oscillogramToolBar"));
    d->toolBar->setIconSize(QSize(24, 24));
    fillToolBar();
}

QList<QAction*> OscillogramView::analogActionList() const
{
    return d->model->analogActionList();
}

QAction* OscillogramView::action(int id) const
{
    return id >= 0 && id < Count ? d->actions[id] : nullptr;
}

void OscillogramView::slotCheckWave()
{
    const auto record = d->model->oscillogram();
    const bool analysable = record && record->waveType() != 0;
    for (Id id : analysisActions)
        if (d->actions[id])
            d->actions[id]->setEnabled(analysable);
    const bool continuous = analysable && !isEventTriggered(*record);
    for (Id id : continuousRecordActions)
        if (d->actions[id])
            d->actions[id]->setEnabled(continuous);
    primSecChanged();
}
