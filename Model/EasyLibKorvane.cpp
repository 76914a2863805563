#include "EasyLibKorvane.h"

#include "Model/Channel.h"
#include "Model/LoadReport.h"
#include "Model/Oscillogram.h"
#include "Model/OscillogramLoader.h"
#include "Model/OscillogramLoaderFactory.h"
#include "Model/Oscillograms.h"
#include "Model/ProgressDialog.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThread>
#include <QThreadPool>

#include <atomic>
#include <memory>

namespace {
template<typename T> void registerOnce(const char* name)
{
    if (QMetaType::type(name) == QMetaType::UnknownType)
        qRegisterMetaType<T>(name);
}
} // namespace

namespace LoadReport {
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
} // namespace LoadReport

using LoadReport::reportLoadError;
using LoadReport::showUnsupportedFormat;

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
    // Connected last, so the worker sets it only after the deliveries above have been posted.
    const auto posted = std::make_shared<std::atomic<bool>>(false);
    const auto markPosted = [posted]() { posted->store(true); };
    connect(loader, &TaskBase::completed, markPosted);
    connect(loader, &TaskBase::error, markPosted);
    QThreadPool::globalInstance()->start(loader, 0);
    const int answer = dialog->exec();
    // The worker posts accept() and the closure one after the other, so the dialog's loop may end
    // between the two. Once the worker has posted both, what is still waiting is delivered here:
    // the order stays, and ok is certain when a finished load ends the dialog.
    if (answer == QDialog::Accepted) {
        while (!posted->load())
            QThread::yieldCurrentThread();
    }
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
