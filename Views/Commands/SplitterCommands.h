#pragma once

#include "korvane_export.h"

#include <QList>
#include <QPointer>
#include <QSplitter>
#include <QUndoCommand>

// Moves of the splitters of a record view: sizes given to one or more splitters at once.
// Consecutive moves of the same splitters merge into one step that keeps the newest sizes.
class KORVANE_EXPORT SplitterSizesCommand : public QUndoCommand
{
public:
    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;

    QList<int> oldSizes() const { return m_oldSizes; }
    QList<int> newSizes() const { return m_newSizes; }

protected:
    SplitterSizesCommand(const QList<QSplitter*>& splitters, const QList<int>& oldSizes,
        const QList<int>& newSizes, QUndoCommand* parent);

private:
    void apply(const QList<int>& sizes);

    QList<QPointer<QSplitter>> m_splitters;
    QList<int> m_oldSizes;
    QList<int> m_newSizes;
};

// The splitter between the parameter rows and the plots. It is made in the slot of
// splitterMoved, after the splitter moved, so the sizes before and after are the same and undo
// returns to where the first move of a run ended, not to where it began: that is the wanted
// result, a run of moves undoes as the last one of them.
class KORVANE_EXPORT LRSplitterCommand : public SplitterSizesCommand
{
public:
    explicit LRSplitterCommand(QSplitter* splitter, QUndoCommand* parent = nullptr);

    int id() const override;
};

// The split between analogue and discrete rows, kept equal in the list of names and in the list
// of plots: both splitters take the same sizes; undo gives both the sizes the first had.
class KORVANE_EXPORT ADSplitterCommand : public SplitterSizesCommand
{
public:
    ADSplitterCommand(QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes,
        QUndoCommand* parent = nullptr);

    int id() const override;
};
