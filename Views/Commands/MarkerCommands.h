#pragma once

#include "Views/Painters/Markers.h"
#include "korvane_export.h"

#include <QList>
#include <QSharedPointer>
#include <QUndoCommand>

class OscillogramViewModel;

// Sets a marker at the current sample. The item, with the parameter values of every analogue
// row, is made when the command is made, so that it holds the values of the moment of the click.
class KORVANE_EXPORT AppendMarkerCommand : public QUndoCommand
{
public:
    explicit AppendMarkerCommand(
        const QSharedPointer<OscillogramViewModel>& model, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

    const Markers::Item& item() const { return m_item; }

private:
    QSharedPointer<OscillogramViewModel> m_model;
    Markers::Item m_item;
};

// Removes every marker; undo puts the same items back.
class KORVANE_EXPORT ClearMarkersCommand : public QUndoCommand
{
public:
    explicit ClearMarkersCommand(
        const QSharedPointer<OscillogramViewModel>& model, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    QList<Markers::Item> m_items;
};
