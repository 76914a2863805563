#include "Views/RowOrderCommand.h"

#include "Views/OscillogramViewModel.h"

RowOrderRelay::RowOrderRelay(QObject* parent) : QObject(parent)
{
}

RowOrderRelay* RowOrderRelay::of(OscillogramViewModel* model)
{
    auto* relay = model->findChild<RowOrderRelay*>(QString(), Qt::FindDirectChildrenOnly);
    return relay ? relay : new RowOrderRelay(model);
}

RowOrderCommand::RowOrderCommand(const QSharedPointer<OscillogramViewModel>& model, int kind,
    const AListHelper::Rows& oldRows, const AListHelper::Rows& newRows)
    : m_model(model), m_kind(kind), m_oldRows(oldRows), m_newRows(newRows)
{
}

void RowOrderCommand::undo()
{
    RowOrderRelay::of(m_model.data())->setRows(m_kind, m_oldRows);
}

void RowOrderCommand::redo()
{
    RowOrderRelay::of(m_model.data())->setRows(m_kind, m_newRows);
}
