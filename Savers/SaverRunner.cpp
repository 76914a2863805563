#include "Savers/SaverRunner.h"

#include "Model/ProgressDialog.h"
#include "Savers/WaveSaver.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QThread>

#include <atomic>

namespace {
QString tr(const char* text)
{
    return QCoreApplication::translate("SaverRunner", text);
}
} // namespace

SaverRunner::Outcome SaverRunner::run(WaveSaver& saver, QWidget* parent)
{
    QThread thread;
    ProgressDialog progress(parent);
    progress.setWindowTitle(tr("Сохранение"));
    // Set on the saver's thread by the signal that ends the run, read here after the thread ends.
    std::atomic<int> outcome { Failed };
    const auto endWith = [&outcome, &progress](Outcome end) {
        outcome = end;
        QMetaObject::invokeMethod(&progress, "accept", Qt::QueuedConnection);
    };
    QObject::connect(&saver, &WaveSaver::updateProgress, &progress, &ProgressDialog::updateProgress);
    QObject::connect(
        &saver, &WaveSaver::finishProgress, &saver, [endWith] { endWith(Saved); }, Qt::DirectConnection);
    QObject::connect(
        &saver, &WaveSaver::cancelSave, &saver, [endWith] { endWith(Cancelled); }, Qt::DirectConnection);
    QObject::connect(
        &saver, &WaveSaver::writeError, &saver, [endWith] { endWith(Failed); }, Qt::DirectConnection);
    QObject::connect(&progress, &QDialog::rejected, &thread, [&thread] { thread.requestInterruption(); });
    QThread* const home = saver.thread();
    saver.moveToThread(&thread);
    QObject::connect(&thread, &QThread::started, &saver, &WaveSaver::saveProcess);
    // The saver comes home from its own thread once its run is over.
    QObject::connect(&thread, &QThread::started, &saver, [&saver, home] { saver.moveToThread(home); });
    thread.start();
    progress.exec();
    thread.quit();
    thread.wait();
    QObject::disconnect(&saver, nullptr, &progress, nullptr);
    QObject::disconnect(&saver, nullptr, &saver, nullptr);
    return Outcome(outcome.load());
}

void SaverRunner::successfulSaveMessage(QWidget* parent)
{
    QMessageBox::information(parent, tr("Сохранение"), tr("Осциллограмма сохранена"));
}

void SaverRunner::cancelSaveMessage(QWidget* parent)
{
    QMessageBox::information(parent, tr("Сохранение"), tr("Сохранение отменено"));
}

void SaverRunner::writeErrorMessage(QWidget* parent)
{
    QMessageBox::critical(parent, tr("Ошибка сохранения"), tr("Не удалось сохранить осциллограмму."));
}

void SaverRunner::report(Outcome outcome, QWidget* parent)
{
    switch (outcome) {
    case Saved:
        successfulSaveMessage(parent);
        break;
    case Cancelled:
        cancelSaveMessage(parent);
        break;
    default:
        writeErrorMessage(parent);
        break;
    }
}

SaverRunner::Outcome SaverRunner::runAndReport(WaveSaver& saver, QWidget* parent)
{
    const Outcome outcome = run(saver, parent);
    report(outcome, parent);
    return outcome;
}
