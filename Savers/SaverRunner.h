#pragma once

#include "korvane_export.h"

#include <QString>

class QWidget;
class WaveSaver;

// Runs a saver the windowed way: on a thread of its own, under a modal progress dialog whose
// Cancel asks the thread to stop, and tells the user how it ended.
class KORVANE_EXPORT SaverRunner
{
public:
    enum Outcome { Saved, Cancelled, Failed };

    // Returns once the saver has ended; the saver is the caller's again, on the caller's thread.
    static Outcome run(WaveSaver& saver, QWidget* parent);
    // The message of the outcome under its title.
    static void report(Outcome outcome, QWidget* parent);
    // run, then report.
    static Outcome runAndReport(WaveSaver& saver, QWidget* parent);

    static void successfulSaveMessage(QWidget* parent);
    static void cancelSaveMessage(QWidget* parent);
    static void writeErrorMessage(QWidget* parent);

private:
    SaverRunner() = default;
};
