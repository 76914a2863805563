#include "Views/Commands/ChangeTriggerCommand.h"

#include "Views/OscillogramViewModel.h"

#include <QCoreApplication>

ChangeTriggerCommand::ChangeTriggerCommand(
    const QSharedPointer<OscillogramViewModel>& model, int newSample, QUndoCommand* parent)
    : QUndoCommand(QCoreApplication::translate("UndoCommands", "Установить ноль времени"), parent)
    , m_model(model)
    , m_newSample(newSample)
    , m_oldSample(model && model->oscillogram() ? model->oscillogram()->countOfPreFailureSamples() : 0)
{
}

void ChangeTriggerCommand::undo()
{
    if (m_model)
        m_model->setTriggerTime(m_oldSample);
}

void ChangeTriggerCommand::redo()
{
    if (m_model)
        m_model->setTriggerTime(m_newSample);
}
