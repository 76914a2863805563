#pragma once

#include "korvane_export.h"

#include <QSharedPointer>

class Exception;
class OscillogramLoader;
class ProgressDialog;
class QWidget;

// How the entry's open calls tell the user about a load: the same boxes whichever call opened it.
namespace LoadReport {

// "Формат файла не поддерживается." under "Загрузка файла".
KORVANE_EXPORT void showUnsupportedFormat(QWidget* parent);
// Shows a failure with its causes and lets the loader go; a cancelled load ends quietly and keeps
// both. The dialog, if any, is closed.
KORVANE_EXPORT void reportLoadError(QWidget* parent, OscillogramLoader* loader, ProgressDialog* dialog,
    const QSharedPointer<Exception>& exception);

} // namespace LoadReport
