#include "DiaMergeSetup.h"

#include "Model/Oscillograms.h"
#include "Model/ProgressDialog.h"
#include "Views/OscillogramMerge/MergeSettingsForm.h"
#include "Views/OscillogramMerge/OscillogramMergeTask.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QThreadPool>
#include <QVBoxLayout>

DiaMergeSetup::DiaMergeSetup(QWidget* parent) : QDialog(parent), m_form(new MergeSettingsForm(this))
{
    const Oscillograms* registry = Oscillograms::instance();
    const QStringList names = registry->filenames();
    const QList<QSharedPointer<Oscillogram>> waves = registry->allWaves();
    Q_ASSERT_X(!waves.isEmpty(), "DiaMergeSetup", "!waves.isEmpty()");
    QList<MergeSettingsForm::NamedOscillogram> named;
    for (int w = 0; w < waves.size(); ++w)
        named.append({ names[w], waves[w] });
    setWindowTitle(tr("Объединение осциллограмм"));
    setObjectName(QStringLiteral("DiaMergeSetup"));
    (new QVBoxLayout(this))->addWidget(m_form);
    m_form->setOscillograms(named);
    resize(640, 520);
    connect(m_form, &MergeSettingsForm::sigDoneButtonTriggered, this, &DiaMergeSetup::slotMergeOscillograms);
    connect(m_form->cancelButton(), &QPushButton::clicked, this, &QDialog::reject);
}

void DiaMergeSetup::slotMergeOscillograms(QString name)
{
    if (m_task)
        return;
    // Shared by the worker and this dialog; the last to let go deletes it on this thread.
    QSharedPointer<OscillogramMergeTask> task(m_form->createTask(), &QObject::deleteLater);
    if (!task)
        return;
    task->setAutoDelete(false);
    task->setProgressCoalesced(true);
    m_task = task.data();
    auto* progress = new ProgressDialog(this);
    progress->setAttribute(Qt::WA_DeleteOnClose);
    connect(task.data(), &TaskBase::progressChanged, progress, &ProgressDialog::updateProgress,
        Qt::QueuedConnection);
    connect(progress, &QDialog::rejected, task.data(), &TaskBase::cancel, Qt::DirectConnection);
    // The outcome is taken on the worker, within the task's own signals, and handed over once run()
    // has returned, so that nothing here reads the task while the worker may still write it.
    const auto failure = QSharedPointer<QSharedPointer<Exception>>::create();
    connect(task.data(), &TaskBase::error, [failure](QSharedPointer<Exception> e) { *failure = e; });
    const QPointer<DiaMergeSetup> dialog(this);
    const QPointer<ProgressDialog> shown(progress);
    progress->open();
    emit sigMergeStarted(task.data());
    QThreadPool::globalInstance()->start(QRunnable::create([task, failure, dialog, shown, name]() {
        task->run();
        const QSharedPointer<Oscillogram> merged = *failure ? QSharedPointer<Oscillogram>() : task->result();
        QMetaObject::invokeMethod(
            qApp,
            [dialog, shown, merged, failure, name]() {
                if (shown)
                    shown->close();
                if (!dialog)
                    return;
                if (merged)
                    dialog->mergeCompleted(merged, name);
                else
                    dialog->mergeFailed(*failure);
            },
            Qt::QueuedConnection);
    }));
}

void DiaMergeSetup::mergeCompleted(const QSharedPointer<Oscillogram>& merged, const QString& name)
{
    m_task = nullptr;
    Oscillograms::instance()->add(name, merged);
    emit sigOscillogramMerged(merged, Oscillograms::instance()->key(merged));
    accept();
}

void DiaMergeSetup::mergeFailed(const QSharedPointer<Exception>& failure)
{
    m_task = nullptr;
    emit sigMergeFailed();
    if (!failure || failure.dynamicCast<CancelledException>())
        return;
    QMessageBox::critical(
        this, tr("Объединение осциллограмм"), exceptionChainText(*failure), QMessageBox::Ok);
}
