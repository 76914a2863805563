#include "Views/Commands/ChannelCommands.h"

#include "Views/Commands/CommandIds.h"
#include "Views/OscillogramViewModel.h"

#include <QCoreApplication>

namespace {
QString commandText(const char* source)
{
    return QCoreApplication::translate("UndoCommands", source);
}
} // namespace

ChannelCommand::ChannelCommand(
    const QString& text, const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent)
    : QUndoCommand(text, parent), m_model(model), m_channel(channel)
{
}

SetChanHCommand::SetChanHCommand(const QSharedPointer<OscillogramViewModel>& model, int channel, int delta,
    double factor, QUndoCommand* parent)
    : ChannelCommand(commandText("Изменить высоту сигнала"), model, channel, parent)
    , m_oldHeight(model ? model->chanRowHeight(channel) : 0)
    , m_newHeight(int(m_oldHeight * factor) + delta)
{
}

void SetChanHCommand::undo()
{
    if (m_model)
        m_model->setChanRowHeight(m_channel, m_oldHeight);
}

void SetChanHCommand::redo()
{
    if (m_model)
        m_model->setChanRowHeight(m_channel, m_newHeight);
}

int SetChanHCommand::id() const
{
    return CommandId::SetChanHeight;
}

bool SetChanHCommand::mergeWith(const QUndoCommand* other)
{
    const auto* newer = static_cast<const SetChanHCommand*>(other);
    if (newer->m_channel != m_channel || newer->m_model != m_model)
        return false;
    m_newHeight = newer->m_newHeight;
    return true;
}

SetChanMagCommand::SetChanMagCommand(
    const QSharedPointer<OscillogramViewModel>& model, int channel, double factor, QUndoCommand* parent)
    : ChannelCommand(commandText("Изменить амплитуду сигнала"), model, channel, parent)
    , m_oldMag(model ? model->chanMag(channel) : 0.0)
    , m_newMag(m_oldMag * factor)
{
}

void SetChanMagCommand::undo()
{
    if (m_model)
        m_model->setChanMag(m_channel, m_oldMag);
}

void SetChanMagCommand::redo()
{
    if (m_model)
        m_model->setChanMag(m_channel, m_newMag);
}

FitChanMagCommand::FitChanMagCommand(
    const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent)
    : ChannelCommand(commandText("Масштабировать сигнал к области отображения"), model, channel, parent)
    , m_oldMag(model ? model->chanMag(channel) : 0.0)
{
}

void FitChanMagCommand::undo()
{
    if (m_model)
        m_model->setChanMag(m_channel, m_oldMag);
}

void FitChanMagCommand::redo()
{
    if (m_model)
        m_model->resetChanMag(m_channel);
}

ResetChanCommand::ResetChanCommand(
    const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent)
    : ChannelCommand(commandText("Отображение сигнала по умолчанию"), model, channel, parent)
    , m_oldMag(model ? model->chanMag(channel) : 0.0)
    , m_oldHeight(model ? model->chanRowHeight(channel) : 0)
{
}

void ResetChanCommand::undo()
{
    if (!m_model)
        return;
    m_model->setChanMag(m_channel, m_oldMag);
    m_model->setChanRowHeight(m_channel, m_oldHeight);
}

void ResetChanCommand::redo()
{
    if (m_model)
        m_model->resetChannel(m_channel);
}

HideChanCommand::HideChanCommand(
    const QSharedPointer<OscillogramViewModel>& model, int channel, QUndoCommand* parent)
    : ChannelCommand(commandText("Скрыть сигнал"), model, channel, parent)
{
}

void HideChanCommand::undo()
{
    if (m_model)
        m_model->setChannelVisible(m_channel, true);
}

void HideChanCommand::redo()
{
    if (m_model)
        m_model->setChannelVisible(m_channel, false);
}
