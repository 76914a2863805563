#include "Views/Commands/MarkerCommands.h"

#include "Views/OscillogramViewModel.h"

#include <QCoreApplication>

AppendMarkerCommand::AppendMarkerCommand(
    const QSharedPointer<OscillogramViewModel>& model, QUndoCommand* parent)
    : QUndoCommand(QCoreApplication::translate("UndoCommands", "Установить маркер"), parent), m_model(model)
{
    if (m_model)
        m_item = m_model->makeMarkerItem();
}

void AppendMarkerCommand::undo()
{
    if (m_model)
        m_model->removeMarker(m_item);
}

void AppendMarkerCommand::redo()
{
    if (m_model)
        m_model->appendMarker(m_item);
}

ClearMarkersCommand::ClearMarkersCommand(
    const QSharedPointer<OscillogramViewModel>& model, QUndoCommand* parent)
    : QUndoCommand(QCoreApplication::translate("UndoCommands", "Сбросить все маркеры"), parent)
    , m_model(model)
    , m_items(model ? model->markers()->items() : QList<Markers::Item>())
{
}

void ClearMarkersCommand::undo()
{
    if (m_model)
        m_model->setMarkers(m_items);
}

void ClearMarkersCommand::redo()
{
    if (m_model)
        m_model->clearMarkers();
}
