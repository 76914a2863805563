#include "EasyLibKorvane.h"

#include "Model/Channel.h"
#include "Model/Oscillogram.h"
#include "Model/OscillogramLoader.h"
#include "Model/OscillogramLoaderFactory.h"
#include "Model/Oscillograms.h"
#include "Model/ProgressDialog.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThreadPool>

namespace {
template<typename T> void registerOnce(const char* name)
{
    if (QMetaType::type(name) == QMetaType::UnknownType)
        qRegisterMetaType<T>(name);
}

void showUnsupportedFormat(QWidget* parent)
{
    QMessageBox::critical(parent, EasyLibKorvane::tr("Загрузка файла"),
        EasyLibKorvane::tr("Формат файла не поддерживается."), QMessageBox::Ok);
}

// Shows a failure with its causes; a cancelled load ends quietly. The dialog, if any, is closed.
void reportLoadError(QWidget* parent, OscillogramLoader* loader, ProgressDialog* dialog,
    const QSharedPointer<Exception>& exception)
{
    if (exception.dynamicCast<CancelledException>())
        return;
    QMessageBox::critical(
        parent, EasyLibKorvane::tr("Загрузка файла"), exceptionChainText(*exception), QMessageBox::Ok);
    loader->deleteLater();
    if (dialog) {
        dialog->accept();
        dialog->deleteLater();
    }
}
} // namespace

void EasyLibKorvane::initialize()
{
    registerOnce<QSharedPointer<Oscillogram>>("QSharedPointer<Oscillogram>");
    registerOnce<Oscillogram*>("Oscillogram*");
    registerOnce<LoadFailureException>("LoadFailureException");
    registerOnce<QSharedPointer<Exception>>("QSharedPointer<Exception>");
    registerOnce<QSharedPointer<Channel>>("QSharedPointer<Channel>");
}

bool EasyLibKorvane::isWave(const QString& filename)
{
    return OscillogramLoaderFactory::isWave(filename);
}

bool EasyLibKorvane::open(
    const QString& filename, QWidget* parent, std::function<void(LoaderResult&)> callback)
{
    OscillogramLoader* loader = OscillogramLoaderFactory::createLoaderForFile(filename);
    if (!loader) {
        showUnsupportedFormat(parent);
        return false;
    }
    auto* dialog = new ProgressDialog(parent);
    connect(
        loader, &TaskBase::progressChanged, dialog, &ProgressDialog::updateProgress, Qt::QueuedConnection);
    // accept() is connected before the closure and both are queued: the closure runs in the same
    // delivery of posted events that ends the dialog's loop, so ok is set when exec() returns.
    connect(loader, &TaskBase::completed, dialog, &QDialog::accept, Qt::QueuedConnection);
    connect(dialog, &QDialog::rejected, loader, &TaskBase::cancel, Qt::QueuedConnection);

    bool ok = false;
    QObject* context = parent ? static_cast<QObject*>(parent) : static_cast<QObject*>(dialog);
    connect(
        loader, &TaskBase::completed, context,
        [&ok, loader, filename, callback, dialog]() {
            LoaderResult result = loader->result();
            Oscillograms::instance()->add(filename, result.oscillogram);
            callback(result);
            ok = true;
            dialog->deleteLater();
            loader->deleteLater();
        },
        Qt::QueuedConnection);
    connect(loader, &TaskBase::error, context, [parent, loader, dialog](QSharedPointer<Exception> exception) {
        reportLoadError(parent, loader, dialog, exception);
    });
    QThreadPool::globalInstance()->start(loader, 0);
    dialog->exec();
    // The worker posts accept() and the closure one after the other; when the loop is already
    // delivering a batch of progress events the two can fall into different batches, and the
    // loop ends before the closure has run. Delivering what is still posted keeps the order and
    // makes the answer certain.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    return ok;
}

QSharedPointer<Oscillogram> EasyLibKorvane::open(const QString& filename, QString& errorText)
{
    OscillogramLoader* loader = OscillogramLoaderFactory::createLoaderForFile(filename);
    if (!loader) {
        errorText = tr("Формат файла не поддерживается");
        return {};
    }
    loader->run();
    QSharedPointer<Oscillogram> oscillogram = loader->result().oscillogram;
    delete loader;
    return oscillogram;
}
