#pragma once

#include "korvane_export.h"

#include <QSharedPointer>
#include <QUndoCommand>

class OscillogramViewModel;

// Commands on the looks of one channel row: height, amplitude, visibility. They act by channel
// number, so after a new record in the same view they act on that record's channel; a number the
// record has not got is ignored by the model's setters.

// What every command on a row holds: the model and the channel number.
class KORVANE_EXPORT ChannelCommand : public QUndoCommand
{
public:
    int channel() const { return m_channel; }

protected:
    ChannelCommand(const QString& text, const QSharedPointer<OscillogramViewModel>& model, int channel,
        QUndoCommand* parent);

    QSharedPointer<OscillogramViewModel> m_model;
    int m_channel;
};

// Height of a row: new = trunc(old * factor) + delta. Consecutive commands on one channel merge,
// so that a drag of a row's edge undoes in one step.
class KORVANE_EXPORT SetChanHCommand : public ChannelCommand
{
public:
    SetChanHCommand(const QSharedPointer<OscillogramViewModel>& model, int channel, int delta, double factor,
        QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    int oldHeight() const { return m_oldHeight; }
    int newHeight() const { return m_newHeight; }

private:
    int m_oldHeight;
    int m_newHeight;
};

// Amplitude of a row multiplied by a factor.
class KORVANE_EXPORT SetChanMagCommand : public ChannelCommand
{
public:
    SetChanMagCommand(const QSharedPointer<OscillogramViewModel>& model, int channel, double factor,
        QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    double m_oldMag;
    double m_newMag;
};

// Amplitude of a row back to 1.0, the whole range of the signal in the row.
class KORVANE_EXPORT FitChanMagCommand : public ChannelCommand
{
public:
    FitChanMagCommand(
        const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    double m_oldMag;
};

// Amplitude and height of a row back to their defaults.
class KORVANE_EXPORT ResetChanCommand : public ChannelCommand
{
public:
    ResetChanCommand(
        const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;

private:
    double m_oldMag;
    int m_oldHeight;
};

// Hides a row; undo shows it again.
class KORVANE_EXPORT HideChanCommand : public ChannelCommand
{
public:
    HideChanCommand(
        const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
};
