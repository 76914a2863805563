#pragma once

#include "korvane_export.h"

#include <QSharedPointer>
#include <QUndoCommand>

class OscillogramViewModel;

// Moves the trigger of the record to a sample; undo returns it to the sample it stood at when the
// command was made.
class KORVANE_EXPORT ChangeTriggerCommand : public QUndoCommand
{
public:
    ChangeTriggerCommand(
        const QSharedPointer<OscillogramViewModel>& model, int newSample, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    int m_newSample;
    int m_oldSample;
};
