#pragma once

#include "Views/OscillogramMerge/MergeHandler.h"

// Joins the channels of several records on one time line. Each source stands at its shift: the
// target row r reads the source at its own sample (shift + r), scaled to its rate.
class KORVANE_EXPORT VerticalMergeHandler : public MergeHandler
{
    Q_OBJECT
public:
    using MergeHandler::MergeHandler;

    void layOut() override;
    void copySamples() override;

protected:
    // The part of the merged record that the source brings (operation 5).
    virtual MergedWave wave(int source) const = 0;
    // preCount and postCount: the smallest or the largest scaled counts of all sources.
    void takeExtremeCounts(bool largest);
    // Target-rate microseconds of a count of target samples, truncated.
    qint64 targetMicroseconds(qint64 samples) const;

private:
    void numberItemChannels();
};

// Keeps the first record's place: every source stands at its own begin time, counted from the
// earliest one of the sources that overlap.
class KORVANE_EXPORT FirstReportMergeHandler : public VerticalMergeHandler
{
    Q_OBJECT
public:
    using VerticalMergeHandler::VerticalMergeHandler;
    void calculateBeginTime() override;
    void calculateCounts() override;

protected:
    MergedWave wave(int source) const override;
};

// The trigger instants of all sources coincide.
class KORVANE_EXPORT TriggerTimeMergeHandler : public VerticalMergeHandler
{
    Q_OBJECT
public:
    using VerticalMergeHandler::VerticalMergeHandler;
    void calculateBeginTime() override;
    void calculateCounts() override;

protected:
    MergedWave wave(int source) const override;
};

// Each source stands at its true time, from the latest begin on.
class KORVANE_EXPORT AstronomicalTimeMergeHandler : public VerticalMergeHandler
{
    Q_OBJECT
public:
    using VerticalMergeHandler::VerticalMergeHandler;
    void calculateBeginTime() override;
    void calculateCounts() override;

protected:
    MergedWave wave(int source) const override;
};

// The first failure of each source becomes its trigger, and these instants coincide.
class KORVANE_EXPORT FirstFailureMergeHandler : public VerticalMergeHandler
{
    Q_OBJECT
public:
    using VerticalMergeHandler::VerticalMergeHandler;
    void calculateBeginTime() override;
    void calculateCounts() override;

protected:
    MergedWave wave(int source) const override;
};
