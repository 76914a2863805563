#pragma once

#include "korvane_export.h"

#include <QList>
#include <QPointer>
#include <QSplitter>
#include <QUndoCommand>

// Moves of the splitters of a record view. Consecutive moves of the same splitters merge into
// one step that keeps the newest sizes.

// The splitter between the parameter rows and the plots. It is made in the slot of
// splitterMoved, after the splitter moved, so the sizes before and after are the same and undo
// returns to where the first move of a run ended, not to where it began: that is the wanted
// result, a run of moves undoes as the last one of them.
class KORVANE_EXPORT LRSplitterCommand : public QUndoCommand
{
public:
    explicit LRSplitterCommand(QSplitter* splitter, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    QList<int> oldSizes() const { return m_oldSizes; }
    QList<int> newSizes() const { return m_newSizes; }

private:
    QPointer<QSplitter> m_splitter;
    QList<int> m_oldSizes;
    QList<int> m_newSizes;
};

// The split between analogue and discrete rows, kept equal in the list of names and in the list
// of plots: both splitters take the same sizes.
class KORVANE_EXPORT ADSplitterCommand : public QUndoCommand
{
public:
    ADSplitterCommand(QSplitter* listSplitter, QSplitter* imageSplitter, const QList<int>& sizes,
        QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    QList<int> oldSizes() const { return m_oldSizes; }
    QList<int> newSizes() const { return m_newSizes; }

private:
    void apply(const QList<int>& sizes);

    QPointer<QSplitter> m_listSplitter;
    QPointer<QSplitter> m_imageSplitter;
    QList<int> m_oldSizes;
    QList<int> m_newSizes;
};
