#pragma once

#include "Views/ListHelpers.h"

#include <QObject>
#include <QUndoCommand>

// Carries a new order of rows to the parameter list and the plot list of one kind, which both
// listen to the relay of their view model.
class KORVANE_EXPORT RowOrderRelay : public QObject
{
    Q_OBJECT
public:
    // The relay of the model, made on first use and owned by the model.
    static RowOrderRelay* of(OscillogramViewModel* model);

    void setRows(int kind, const AListHelper::Rows& rows) { emit rowsRequested(kind, rows); }

signals:
    void rowsRequested(int kind, const AListHelper::Rows& rows);

private:
    explicit RowOrderRelay(QObject* parent);
};

// A move, a join or a split of rows, undone by the order that was before.
class KORVANE_EXPORT RowOrderCommand : public QUndoCommand
{
public:
    RowOrderCommand(const QSharedPointer<OscillogramViewModel>& model, int kind,
        const AListHelper::Rows& oldRows, const AListHelper::Rows& newRows);

    void undo() override;
    void redo() override;

private:
    QSharedPointer<OscillogramViewModel> m_model;
    int m_kind;
    AListHelper::Rows m_oldRows;
    AListHelper::Rows m_newRows;
};
