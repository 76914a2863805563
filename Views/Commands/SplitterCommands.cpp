#include "Views/Commands/SplitterCommands.h"

#include "Views/Commands/CommandIds.h"

#include <QCoreApplication>

namespace {
QList<int> sizesOf(const QSplitter* splitter)
{
    return splitter ? splitter->sizes() : QList<int>();
}
} // namespace

SplitterSizesCommand::SplitterSizesCommand(const QList<QSplitter*>& splitters, const QList<int>& oldSizes,
    const QList<int>& newSizes, QUndoCommand* parent)
    : QUndoCommand(QCoreApplication::translate("UndoCommands", "Переместить разделитель"), parent)
    , m_oldSizes(oldSizes)
    , m_newSizes(newSizes)
{
    for (QSplitter* splitter : splitters)
        m_splitters.append(splitter);
}

void SplitterSizesCommand::apply(const QList<int>& sizes)
{
    for (const QPointer<QSplitter>& splitter : qAsConst(m_splitters)) {
        if (splitter)
            splitter->setSizes(sizes);
    }
}

void SplitterSizesCommand::undo()
{
    apply(m_oldSizes);
}

void SplitterSizesCommand::redo()
{
    apply(m_newSizes);
}

bool SplitterSizesCommand::mergeWith(const QUndoCommand* other)
{
    // The stack offers only commands of the same id, which are of the same class.
    const auto* newer = static_cast<const SplitterSizesCommand*>(other);
    if (newer->m_splitters != m_splitters)
        return false;
    m_newSizes = newer->m_newSizes;
    return true;
}

LRSplitterCommand::LRSplitterCommand(QSplitter* splitter, QUndoCommand* parent)
    : SplitterSizesCommand({ splitter }, sizesOf(splitter), sizesOf(splitter), parent)
{
}

int LRSplitterCommand::id() const
{
    return CommandId::LRSplitter;
}

ADSplitterCommand::ADSplitterCommand(
    QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes, QUndoCommand* parent)
    : SplitterSizesCommand({ listSplitter, imageSplitter }, sizesOf(listSplitter), sizes, parent)
{
}

int ADSplitterCommand::id() const
{
    return CommandId::ADSplitter;
}
