#pragma once

#include "korvane_export.h"

#include <QSharedPointer>

class Exception;
class OscillogramLoader;
class QWidget;

// The parts the entry's open calls share: the same boxes and the same run of a loader whichever
// call opened the file.
namespace LoadReport {

// "Формат файла не поддерживается." under "Загрузка файла".
KORVANE_EXPORT void showUnsupportedFormat(QWidget* parent);
// Shows a failure with its causes under "Загрузка файла"; a cancelled load ends quietly.
KORVANE_EXPORT void reportLoadError(QWidget* parent, const QSharedPointer<Exception>& exception);
// Runs the loader on the pool and deletes it once its run() has returned, whatever the outcome.
KORVANE_EXPORT void runAndDelete(OscillogramLoader* loader);

} // namespace LoadReport
