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
    connect(
        loader, &TaskBase::completed, context,
        [loader, filename, target]() {
            LoaderResult result = loader->result();
            Oscillograms::instance()->add(filename, result.oscillogram);
            if (target) {
                target->setOscillogram(result.oscillogram);
                target->initByDefault();
            }
            loader->deleteLater();
        },
        Qt::QueuedConnection);
    connect(loader, &TaskBase::error, context, [parent, loader](QSharedPointer<Exception> exception) {
        LoadReport::reportLoadError(parent, loader, nullptr, exception);
    });
    // Started on the next turn of the event loop: the caller connects to the loader it gets back
    // before the loader can finish, however small the file.
    QMetaObject::invokeMethod(
        QThreadPool::globalInstance(), [loader]() { QThreadPool::globalInstance()->start(loader, 0); },
        Qt::QueuedConnection);
    return loader;
}
