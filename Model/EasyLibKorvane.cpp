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

#include <atomic>
#include <memory>

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

// Shows a failure with its causes; a cancelled load ends quietly.
void reportLoadError(QWidget* parent, const QSharedPointer<Exception>& exception)
{
    if (exception.dynamicCast<CancelledException>())
        return;
    QMessageBox::critical(
        parent, EasyLibKorvane::tr("Загрузка файла"), exceptionChainText(*exception), QMessageBox::Ok);
}

// The outcome of one modal open, shared by the interface thread and the worker and kept alive by
// both, so that neither writes into something the other has left. Exactly one of three things
// settles it: the worker completes, the worker fails, or the interface thread abandons the load.
class ModalOpenState
{
public:
    // On the worker, within the emission of completed: the result is taken out of the loader
    // before the outcome is published, and dropped again if the load was abandoned first.
    void complete(LoaderResult&& result)
    {
        m_result = std::move(result);
        if (!settle(Completed))
            m_result = LoaderResult();
    }
    void fail(const QSharedPointer<Exception>& failure)
    {
        m_failure = failure;
        settle(Failed);
    }
    // On the interface thread: true when the worker had not settled yet, so it never will.
    bool abandon() { return settle(Abandoned); }
    // Read only after abandon() returned false, which orders them after the worker's writes.
    QSharedPointer<Exception> failure() const { return m_outcome == Failed ? m_failure : nullptr; }
    LoaderResult takeResult() { return std::move(m_result); }

private:
    enum Outcome { Running, Completed, Failed, Abandoned };

    bool settle(Outcome outcome)
    {
        int expected = Running;
        return m_outcome.compare_exchange_strong(expected, outcome, std::memory_order_acq_rel);
    }

    std::atomic<int> m_outcome { Running };
    LoaderResult m_result;
    QSharedPointer<Exception> m_failure;
};

// Runs the loader on the pool and deletes it once its run() has returned, whatever the outcome:
// only then is the worker certain to touch it no more.
void runAndDelete(OscillogramLoader* loader)
{
    QThreadPool::globalInstance()->start(QRunnable::create([loader]() {
        loader->run();
        loader->deleteLater();
    }));
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
    const auto state = std::make_shared<ModalOpenState>();
    std::unique_ptr<ProgressDialog> dialog(new ProgressDialog(parent));
    // The worker settles first, within its own emission, so that whatever the dialog hears
    // afterwards finds the outcome already written.
    connect(
        loader, &TaskBase::completed, [state, loader]() { state->complete(std::move(loader->result())); });
    connect(loader, &TaskBase::error, [state](QSharedPointer<Exception> e) { state->fail(e); });
    loader->setProgressCoalesced(true);
    connect(loader, &TaskBase::progressChanged, dialog.get(), &ProgressDialog::updateProgress,
        Qt::QueuedConnection);
    connect(loader, &TaskBase::completed, dialog.get(), &QDialog::accept, Qt::QueuedConnection);
    connect(loader, &TaskBase::error, dialog.get(), &QDialog::accept, Qt::QueuedConnection);
    runAndDelete(loader);

    dialog->exec();
    // A Cancel that comes before the worker settled wins; a finished load wins over a later one.
    if (state->abandon()) {
        loader->cancel();
        return false;
    }
    if (const QSharedPointer<Exception> failure = state->failure()) {
        dialog.reset();
        reportLoadError(parent, failure);
        return false;
    }
    LoaderResult result = state->takeResult();
    Oscillograms::instance()->add(filename, result.oscillogram);
    callback(result);
    return true;
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
