#include "Views/Commands/ViewCommands.h"

#include "Views/Commands/ChangeTriggerCommand.h"
#include "Views/Commands/ChannelCommands.h"
#include "Views/Commands/MarkerCommands.h"
#include "Views/Commands/SplitterCommands.h"
#include "Views/OscillogramViewModel.h"

#include <QUndoStack>

ViewCommands::ViewCommands(QUndoStack* stack, QObject* parent) : QObject(parent), m_stack(stack)
{
}

void ViewCommands::slotIncMag(int channel)
{
    m_stack->push(new SetChanMagCommand(m_model, channel, magnifyFactor));
}

void ViewCommands::slotDecMag(int channel)
{
    m_stack->push(new SetChanMagCommand(m_model, channel, reduceFactor));
}

void ViewCommands::slotIncH(int channel)
{
    m_stack->push(new SetChanHCommand(m_model, channel, 0, reduceFactor));
}

void ViewCommands::slotDecH(int channel)
{
    m_stack->push(new SetChanHCommand(m_model, channel, 0, magnifyFactor));
}

void ViewCommands::slotChannelHeight(int channel, int delta)
{
    m_stack->push(new SetChanHCommand(m_model, channel, delta, 1.0));
}

void ViewCommands::slotFitMag(int channel)
{
    m_stack->push(new FitChanMagCommand(m_model, channel));
}

void ViewCommands::slotReset(int channel)
{
    m_stack->push(new ResetChanCommand(m_model, channel));
}

void ViewCommands::slotHide(int channel)
{
    m_stack->push(new HideChanCommand(m_model, channel));
}

void ViewCommands::slotSetTriggerTime(int sample)
{
    m_stack->push(new ChangeTriggerCommand(m_model, sample));
}

void ViewCommands::slotAppendMarker()
{
    if (m_model && m_model->markers()->contains(m_model->currentSample()))
        return;
    m_stack->push(new AppendMarkerCommand(m_model));
}

void ViewCommands::slotClearMarkers()
{
    m_stack->push(new ClearMarkersCommand(m_model));
}

void ViewCommands::slotLRSplitterMoved(QSplitter* splitter)
{
    m_stack->push(new LRSplitterCommand(splitter));
}

void ViewCommands::slotADSplitterMoved(
    QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes)
{
    m_stack->push(new ADSplitterCommand(listSplitter, imageSplitter, sizes));
}
