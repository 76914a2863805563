#include "Views/OscillogramView.h"

#include "Views/OscillogramViewActions.h"
#include "Views/OscillogramViewPrivate.h"

#include "Model/AnalogChannel.h"
#include "Model/Oscillogram.h"
#include "Model/SimpleOscillogram.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/SaverRunner.h"
#include "Settings/SettingsDialog.h"
#include "Views/AChanParListView.h"
#include "Views/AChanPlotListView.h"
#include "Views/Commands/ViewCommands.h"
#include "Views/DChanParListView.h"
#include "Views/DChanPlotListView.h"
#include "Views/DiaMarkersTable.h"
#include "Views/OscillogramSaveAs.h"
#include "Views/OscillogramViewModel.h"

#include <QAction>
#include <QColorDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSplitter>

using namespace ViewAction;

// Primary and secondary values

void OscillogramView::slotPrimaryTriggered()
{
    d->model->setPrimSecMode(AnalogChannel::Primary);
    emit sigPrimSecModeChanged(AnalogChannel::Primary);
    primSecChanged();
}

void OscillogramView::slotSecondaryTriggered()
{
    d->model->setPrimSecMode(AnalogChannel::Secondary);
    emit sigPrimSecModeChanged(AnalogChannel::Secondary);
    primSecChanged();
}

void OscillogramView::primSecChanged()
{
    if (d->model->isClcOscillogram())
        return;
    const int mode = d->model->primSecMode();
    if (mode != AnalogChannel::Primary && mode != AnalogChannel::Secondary) {
        d->model->setPrimSecMode(AnalogChannel::Primary);
        primSecChanged();
        return;
    }
    emit d->model->sigSetPrimSecMode(AnalogChannel::PrimaryOrSecondary(mode));
    const bool primary = mode == AnalogChannel::Primary;
    // The mode in force is checked and cannot be chosen again; the other one can.
    d->actions[Primary]->setEnabled(!primary);
    d->actions[Secondary]->setEnabled(primary);
    d->actions[Primary]->setChecked(primary);
    d->actions[Secondary]->setChecked(!primary);
}

// Scale

void OscillogramView::slotFitXScaleTriggered()
{
    if (d->model->oscillogram())
        d->model->setFitXScaleForWidth(d->model->plotWidth());
}

void OscillogramView::slotIncreaseXScaleTriggered()
{
    d->model->scaleUp();
}

void OscillogramView::slotDecreaseXScaleTriggered()
{
    d->model->scaleDown();
}

// Trigger

void OscillogramView::slotSetTriggerTimeTriggered()
{
    slotSetTriggerTime(d->model->currentSample());
}

int OscillogramView::previousSecondSample(const Oscillogram& record)
{
    int sample = qMax(0, record.countOfPreFailureSamples() - 1);
    const int second = record.dateTime(sample).toDateTime().time().second();
    while (sample > 0 && record.dateTime(sample - 1).toDateTime().time().second() == second)
        --sample;
    return sample;
}

int OscillogramView::nextSecondSample(const Oscillogram& record)
{
    const int last = record.countOfSamples() - 1;
    int sample = qMin(last, record.countOfPreFailureSamples() + 1);
    const int second = record.dateTime(sample).toDateTime().time().second();
    while (sample < last && record.dateTime(sample + 1).toDateTime().time().second() == second)
        ++sample;
    return sample;
}

void OscillogramView::slotSetPrevSecond()
{
    if (const auto record = d->model->oscillogram())
        slotSetTriggerTime(previousSecondSample(*record));
}

void OscillogramView::slotSetNextSecond()
{
    if (const auto record = d->model->oscillogram())
        slotSetTriggerTime(nextSecondSample(*record));
}

// Layout

QList<int> OscillogramView::areaSizes(int splitterHeight, int analogHeight, int digitalHeight)
{
    const int whole = splitterHeight;
    int digital = int(0.3 * whole);
    int analog = whole - digital;
    if (analog < analogHeight && whole < analogHeight + digitalHeight) {
        if (digitalHeight <= digital) {
            digital = digitalHeight;
            analog = whole - digitalHeight;
        }
    } else {
        analog = analogHeight;
        digital = whole - analogHeight;
    }
    return { analog, digital };
}

void OscillogramView::resizeArea()
{
    const auto record = d->model->oscillogram();
    const bool analogs = record && record->countOfAnalogChannels() > 0;
    const bool digitals = record && record->countOfDigitalChannels() > 0;
    d->aChanParList->setVisible(analogs);
    d->aChanPlotList->setVisible(analogs);
    d->dChanParList->setVisible(digitals);
    d->dChanPlotList->setVisible(digitals);
    if (!analogs || !digitals)
        return;
    // The height the two lists share, without the handle between them.
    const int height = d->imageSplitter->height() - d->imageSplitter->handleWidth();
    const QList<int> sizes
        = areaSizes(height, d->aChanPlotList->contentHeight(), d->dChanPlotList->contentHeight());
    d->listSplitter->setSizes(sizes);
    d->imageSplitter->setSizes(sizes);
}

void OscillogramView::slotWidthForPanelChanged()
{
    const int panel = d->model->splitterSize();
    const int whole = d->lrSplitter->width() - d->lrSplitter->handleWidth();
    d->lrSplitter->setSizes({ panel, qMax(0, whole - panel) });
}

// Compact and full modes

void OscillogramView::slotCompactModeTriggered()
{
    setRowMode(true);
}

void OscillogramView::slotFullModeTriggered()
{
    setRowMode(false);
}

void OscillogramView::setRowMode(bool compact)
{
    d->model->setIsCompactMode(compact);
    for (int channel : d->model->channelRowHeights().keys()) {
        const int panels = d->aChanParList->countPanelsInChannel(channel);
        if (panels <= 0)
            continue;
        const int height
            = compact ? AChanParListView::compactRowHeight(panels) : AChanParListView::fullRowHeight(panels);
        d->model->setChanRowMinHeight(channel, height);
        d->model->setChanRowHeight(channel, height);
        if (compact)
            d->aChanParList->setCompactMode(channel);
        else
            d->aChanParList->setFullMode(channel);
        d->aChanParList->updateHeight(channel, height);
        d->aChanPlotList->updateHeight(channel, height);
    }
}

// Colours

void OscillogramView::slotSelectColorAction()
{
    const auto record = d->model->oscillogram();
    if (!record || d->rightClickedChannel < 0 || d->rightClickedChannel >= record->countOfChannels())
        return;
    const auto channel = record->channel(d->rightClickedChannel);
    QColorDialog dialog(channel->getCustomColor().value_or(Qt::black), this);
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowFlags(Qt::SubWindow);
    if (dialog.exec() != QDialog::Accepted)
        return;
    channel->setCustomColor(dialog.selectedColor());
    emit d->model->repaintWave();
}

void OscillogramView::slotClearColorAction()
{
    const auto record = d->model->oscillogram();
    if (!record || d->rightClickedChannel < 0 || d->rightClickedChannel >= record->countOfChannels())
        return;
    record->channel(d->rightClickedChannel)->removeCustomColor();
    emit d->model->repaintWave();
}

// Tools

void OscillogramView::slotSettingsTriggered()
{
    SettingsDialog dialog(d->settings, this);
    if (dialog.exec() == QDialog::Accepted)
        emit sigSettingsChanged();
}

void OscillogramView::slotOpenMarkersTable()
{
    DiaMarkersTable::showMarkers(d->model->markers(), this);
}

void OscillogramView::slotShowSelectedChannelsTriggered()
{
    const auto record = d->model->oscillogram();
    int selected = 0;
    for (int c = 0; record && c < record->countOfChannels(); ++c)
        selected += d->model->isChannelSelected(c) ? 1 : 0;
    if (selected == 0) {
        QMessageBox::information(this, tr("Сигналы"), tr("Ни один сигнал не выбран"));
        return;
    }
    d->model->makeOnlySelectedChannelsVisible();
}

// Saving

void OscillogramView::slotSaveOscillogram()
{
    const auto record = d->model->oscillogram();
    if (!record)
        return;
    // An open archive is written over in place; a record of another kind is saved as a new one.
    if (QFileInfo(record->filename()).suffix().compare(QLatin1String("zip"), Qt::CaseInsensitive) == 0)
        saveTo(record->filename());
    else
        slotSaveAs(COMTRADE);
}

void OscillogramView::slotSaveAs(int format)
{
    if (format == HODOGRAPH_CSV || format == HODOGRAPH_GDF) {
        saveHodograph(format);
        return;
    }
    // A COMTRADE set written elsewhere holds the record as it stands, so the view counts as saved;
    // a CSV table does not.
    if (OscillogramSaveAs::run(format, *d->model, this) && format == COMTRADE)
        resetModified();
}

bool OscillogramView::saveTo(const QString& path)
{
    const auto record = d->model->oscillogram();
    ComtradeSaver saver(path, record, false, false);
    if (const auto simple = record.dynamicCast<SimpleOscillogram>())
        saver.setObjList(simple->rasObjects());
    saver.setHeaderData(record->headerContent());
    saver.setNewTz(record->beginTime().toDateTime().offsetFromUtc() / 3600);
    saver.setCodec(QStringLiteral("UTF-8"));
    saver.setComtradeFormat(3);
    const bool ok = SaverRunner::run(saver, this) == SaverRunner::Saved;
    if (ok) {
        resetModified();
        QMessageBox::information(
            this, tr("Сохранение осциллограммы"), tr("Осциллограмма сохранена в %1").arg(path));
    } else {
        QMessageBox::warning(
            this, tr("Сохранение осциллограммы"), tr("Осциллограмма не сохранена в %1").arg(path));
    }
    return ok;
}

// Changes that go through the undo stack

void OscillogramView::slotSetTriggerTime(int sample)
{
    d->commands->slotSetTriggerTime(sample);
    d->triggerChanged = true;
}

void OscillogramView::slotAppendMarker()
{
    d->commands->slotAppendMarker();
}

void OscillogramView::slotClearMarkers()
{
    d->commands->slotClearMarkers();
}

void OscillogramView::slotLRSplitterMoved(int, int)
{
    d->commands->slotLRSplitterMoved(d->lrSplitter);
}

void OscillogramView::slotADSplitterMoved(const QList<int>& sizes)
{
    d->commands->slotADSplitterMoved(d->listSplitter, d->imageSplitter, sizes);
}

// The parameter lists and the plots keep one border between analogue and discrete rows: a move of
// either splitter is set on both, through one command.
void OscillogramView::slotListADSMoved(int, int)
{
    slotADSplitterMoved(d->listSplitter->sizes());
}

void OscillogramView::slotImageADSMoved(int, int)
{
    slotADSplitterMoved(d->imageSplitter->sizes());
}
