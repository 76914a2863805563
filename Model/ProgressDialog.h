#pragma once

#include "korvane_export.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QProgressBar;

// The modal dialog of a load: the stage in a label, the fraction 0 to 1 on a bar, and Cancel.
class KORVANE_EXPORT ProgressDialog : public QDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(ProgressDialog)
public:
    explicit ProgressDialog(QWidget* parent = nullptr);

public slots:
    // A value beyond the bar's maximum is ignored by the bar, so 100.0 at the end of a stage
    // leaves the display where it was.
    void updateProgress(QString stage, double percent);

signals:
    // Each report as the dialog shows it, for whoever mirrors the load elsewhere.
    void progressShown(QString stage, double percent);

private:
    QLabel* m_stageLabel;
    QProgressBar* m_progressBar;
    QDialogButtonBox* m_buttonBox;
};
