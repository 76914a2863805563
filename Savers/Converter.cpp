#include "Savers/Converter.h"

#include "Model/EasyLibKorvane.h"
#include "Model/SimpleOscillogram.h"
#include "Savers/ComtradeSaver.h"
#include "Savers/OscSaverFactory.h"
#include "Savers/WaveSaver.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <memory>

bool Converter::convertOsc(const QStringList& args, QString& error)
{
    return convertOsc(args, error, false);
}

bool Converter::convertOsc(const QStringList& args, QString& error, bool storeSamples)
{
    if (args.size() != 2) {
        error = tr("Неверное количество аргументов");
        return false;
    }
    const QFileInfo source(args[0]);
    const QFileInfo destination(args[1]);
    if (!source.exists()) {
        error = tr("Не существует осциллограммы %1").arg(source.fileName());
        return false;
    }
    if (!destination.absoluteDir().exists()) {
        error = tr("Не существует такого пути %1").arg(destination.filePath());
        return false;
    }
    if (!OscSaverFactory::canSave(destination.fileName())) {
        error = tr("Невозможно конвертировать в данный формат %1").arg(destination.suffix());
        return false;
    }
    const QSharedPointer<Oscillogram> record = EasyLibKorvane::open(source.filePath(), error);
    if (!record) {
        if (error.isEmpty())
            error = tr("Невозможно открыть файл %1").arg(source.fileName());
        return false;
    }
    const QSharedPointer<SimpleOscillogram> simple = record.dynamicCast<SimpleOscillogram>();
    if (!simple) {
        error = tr("Неизвестная ошибка");
        return false;
    }
    const std::unique_ptr<WaveSaver> saver(
        OscSaverFactory::createSaverForOsc(destination.absoluteFilePath(), simple));
    if (!saver) {
        error = tr("Невозможно конвертировать в данный формат %1").arg(destination.suffix());
        return false;
    }
    saver->setCodec(QStringLiteral("UTF-8"));
    if (auto* comtrade = dynamic_cast<ComtradeSaver*>(saver.get()))
        comtrade->setStoreSamples(storeSamples);
    saver->saveProcess();
    if (!saver->isOk()) {
        error = tr("Ошибка конвертации");
        return false;
    }
    return true;
}

int Converter::getTz()
{
    return OscSaverFactory::tzHoursFromOffset(QDateTime::currentDateTime().offsetFromUtc());
}
