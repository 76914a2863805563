#pragma once

#include "Savers/SaveSource.h"
#include "korvane_export.h"

#include <memory>

class DiaSaveSettings;
class OscillogramViewModel;
class QWidget;

// "Сохранить осциллограмму как..." and "Экспорт осциллограммы как CSV..." of the record view:
// the settings dialog of the format, then the save on a thread of its own under a progress
// dialog, then the message of how it ended. A view calls
//     OscillogramSaveAs::run(OscillogramSaveAs::Csv, *model, this);
class KORVANE_EXPORT OscillogramSaveAs
{
public:
    // The numbers of OscillogramView::FORMATS that are record savers.
    enum Format : int { Comtrade = 0, Csv = 1 };

    // True when the file was written; false when the dialog was closed, or the save was
    // cancelled or failed.
    static bool run(int format, const OscillogramViewModel& model, QWidget* parent);

    // The record, the calculation module, the side of values and the last completed time
    // measure of the view.
    static SaveSource sourceOf(const OscillogramViewModel& model);
    // Null for a format that is not a record saver.
    static std::unique_ptr<DiaSaveSettings> createDialog(
        int format, const SaveSource& source, QWidget* parent);

private:
    OscillogramSaveAs() = default;
};
