// The entry's open call that fills a record view. It lives with the views, so that the record
// core below them knows nothing of widgets.

#include "Model/EasyLibKorvane.h"

#include "Model/Exception.h"
#include "Model/LoadReport.h"
#include "Model/OscillogramLoader.h"
#include "Model/OscillogramLoaderFactory.h"
#include "Model/Oscillograms.h"
#include "Views/OscillogramView.h"

#include <QPointer>
#include <QThreadPool>

#include <memory>

OscillogramLoader* EasyLibKorvane::open(const QString& filename, QWidget* parent, OscillogramView* view)
{
    OscillogramLoader* loader = OscillogramLoaderFactory::createLoaderForFile(filename);
    if (!loader) {
        LoadReport::showUnsupportedFormat(parent);
        return nullptr;
    }
    // The view may be closed while the record still loads; the record then goes nowhere.
    const QPointer<OscillogramView> target(view);
    QObject* context = parent ? static_cast<QObject*>(parent) : static_cast<QObject*>(loader);
    // The result is taken on the worker, within the emission, while the loader surely lives; the
    // loader is deleted after its run without waiting for this thread.
    const auto result = std::make_shared<LoaderResult>();
    connect(loader, &TaskBase::completed, [result, loader]() { *result = loader->result(); });
    connect(
        loader, &TaskBase::completed, context,
        [result, filename, target]() {
            Oscillograms::instance()->add(filename, result->oscillogram);
            if (target) {
                target->setOscillogram(result->oscillogram);
                target->initByDefault();
            }
        },
        Qt::QueuedConnection);
    connect(loader, &TaskBase::error, context,
        [parent](QSharedPointer<Exception> exception) { LoadReport::reportLoadError(parent, exception); });
    // Started on the next turn of the event loop: the caller connects to the loader it gets back
    // before the loader can finish, however small the file. The loader is deleted after its run,
    // once what it posted has been delivered.
    QMetaObject::invokeMethod(
        QThreadPool::globalInstance(), [loader]() { LoadReport::runAndDelete(loader); },
        Qt::QueuedConnection);
    return loader;
}
