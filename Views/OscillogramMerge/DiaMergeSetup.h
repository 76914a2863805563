#pragma once

#include "Model/Exception.h"
#include "Model/Oscillogram.h"

#include <QDialog>

class MergeSettingsForm;
class OscillogramMergeTask;

// The merge dialog: the open records of the registry in the form, and the merge itself once the
// form's checks pass. The new record joins the registry and is handed on by sigOscillogramMerged;
// a failed or cancelled merge leaves the registry as it was and the dialog open.
class KORVANE_EXPORT DiaMergeSetup : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(DiaMergeSetup)
public:
    // Lists the records of Oscillograms, of which there must be at least one.
    explicit DiaMergeSetup(QWidget* parent = nullptr);

    MergeSettingsForm* form() const { return m_form; }
    // The task of the merge under way, or null.
    OscillogramMergeTask* runningTask() const { return m_task; }

signals:
    void sigOscillogramMerged(QSharedPointer<Oscillogram> merged, QString name);
    // The merge ended without a record: failed or cancelled.
    void sigMergeFailed();
    // The task is set up and about to run, for whoever follows its progress.
    void sigMergeStarted(OscillogramMergeTask* task);

public slots:
    void slotMergeOscillograms(QString name);

private:
    void mergeCompleted(const QSharedPointer<Oscillogram>& merged, const QString& name);
    void mergeFailed(const QSharedPointer<Exception>& failure);

    MergeSettingsForm* m_form;
    OscillogramMergeTask* m_task = nullptr;
};
