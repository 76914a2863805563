#pragma once

#include "Views/OscillogramMerge/MergeHandler.h"

// Glues records one behind the other, with the time between them as rows that repeat a
// source's first sample. The channels are those of the first source, matched by number.
class KORVANE_EXPORT HorisontalMergeHandler : public MergeHandler
{
    Q_OBJECT
public:
    using MergeHandler::MergeHandler;

    void calculateBeginTime() override;
    void calculateCounts() override;
    void layOut() override;
    void copySamples() override;

    // Rows of the time between each source and the next; the last is 0.
    QList<int> gaps() const { return m_gaps; }

private:
    void addSourceColumns(SampleCopier& rowCopier, int source) const;

    QList<int> m_gaps;
};
