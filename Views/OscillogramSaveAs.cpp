#include "Views/OscillogramSaveAs.h"

#include "Savers/ComtradeSaveSettings.h"
#include "Savers/CsvSaveSettings.h"
#include "Savers/SaverRunner.h"
#include "Savers/WaveSaver.h"
#include "Views/OscillogramViewModel.h"

SaveSource OscillogramSaveAs::sourceOf(const OscillogramViewModel& model)
{
    SaveSource source;
    source.record = model.oscillogram();
    source.calcModule = model.calcModule();
    source.primSecMode = model.primSecMode();
    const QList<MeasureItem> measures = model.getTimeMeasures();
    for (auto it = measures.crbegin(); it != measures.crend(); ++it) {
        if (it->isComplete()) {
            source.timeRange = *it;
            break;
        }
    }
    return source;
}

std::unique_ptr<DiaSaveSettings> OscillogramSaveAs::createDialog(
    int format, const SaveSource& source, QWidget* parent)
{
    switch (format) {
    case Comtrade:
        return std::make_unique<ComtradeSaveSettings>(source, parent);
    case Csv:
        return std::make_unique<CsvSaveSettings>(source, parent);
    default:
        return nullptr;
    }
}

bool OscillogramSaveAs::run(int format, const OscillogramViewModel& model, QWidget* parent)
{
    const SaveSource source = sourceOf(model);
    if (!source.record)
        return false;
    const std::unique_ptr<DiaSaveSettings> dialog = createDialog(format, source, parent);
    if (!dialog || dialog->exec() != QDialog::Accepted)
        return false;
    const std::unique_ptr<WaveSaver> saver = dialog->createSaver();
    return SaverRunner::runAndReport(*saver, parent) == SaverRunner::Saved;
}
