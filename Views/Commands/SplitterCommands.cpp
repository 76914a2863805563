#include "Views/Commands/SplitterCommands.h"

#include "Views/Commands/CommandIds.h"

#include <QCoreApplication>

namespace {
QString movedText()
{
    return QCoreApplication::translate("UndoCommands", "Переместить разделитель");
}

void setSizes(QSplitter* splitter, const QList<int>& sizes)
{
    if (splitter)
        splitter->setSizes(sizes);
}
} // namespace

LRSplitterCommand::LRSplitterCommand(QSplitter* splitter, QUndoCommand* parent)
    : QUndoCommand(movedText(), parent)
    , m_splitter(splitter)
    , m_oldSizes(splitter ? splitter->sizes() : QList<int>())
    , m_newSizes(m_oldSizes)
{
}

void LRSplitterCommand::undo()
{
    setSizes(m_splitter, m_oldSizes);
}

void LRSplitterCommand::redo()
{
    setSizes(m_splitter, m_newSizes);
}

int LRSplitterCommand::id() const
{
    return CommandId::LRSplitter;
}

bool LRSplitterCommand::mergeWith(const QUndoCommand* other)
{
    const auto* newer = static_cast<const LRSplitterCommand*>(other);
    if (newer->m_splitter != m_splitter)
        return false;
    m_newSizes = newer->m_newSizes;
    return true;
}

ADSplitterCommand::ADSplitterCommand(
    QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes, QUndoCommand* parent)
    : QUndoCommand(movedText(), parent)
    , m_listSplitter(listSplitter)
    , m_imageSplitter(imageSplitter)
    , m_oldSizes(listSplitter ? listSplitter->sizes() : QList<int>())
    , m_newSizes(sizes)
{
}

void ADSplitterCommand::apply(const QList<int>& sizes)
{
    setSizes(m_listSplitter, sizes);
    setSizes(m_imageSplitter, sizes);
}

void ADSplitterCommand::undo()
{
    apply(m_oldSizes);
}

void ADSplitterCommand::redo()
{
    apply(m_newSizes);
}

int ADSplitterCommand::id() const
{
    return CommandId::ADSplitter;
}

bool ADSplitterCommand::mergeWith(const QUndoCommand* other)
{
    const auto* newer = static_cast<const ADSplitterCommand*>(other);
    if (newer->m_listSplitter != m_listSplitter || newer->m_imageSplitter != m_imageSplitter)
        return false;
    m_newSizes = newer->m_newSizes;
    return true;
}
