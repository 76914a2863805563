#include "ProgressDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

ProgressDialog::ProgressDialog(QWidget* parent)
    : QDialog(parent)
    , m_stageLabel(new QLabel(this))
    , m_progressBar(new QProgressBar(this))
    , m_buttonBox(new QDialogButtonBox(QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Загрузка"));
    setModal(true);
    m_stageLabel->setObjectName(QStringLiteral("stageLabel"));
    m_progressBar->setObjectName(QStringLiteral("progressBar"));
    m_buttonBox->setObjectName(QStringLiteral("buttonBox"));
    m_progressBar->setRange(0, 100);
    m_progressBar->setValue(0);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_stageLabel);
    layout->addWidget(m_progressBar);
    layout->addWidget(m_buttonBox);
    connect(m_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void ProgressDialog::updateProgress(QString stage, double percent)
{
    m_stageLabel->setText(stage);
    m_progressBar->setValue(static_cast<int>(percent * 100));
    emit progressShown(stage, percent);
}
