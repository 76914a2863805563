#include "Views/Print/PrintOscillogramManager.h"

#include "Model/ProgressDialog.h"
#include "Views/Print/PagePrinter.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QPainter>
#include <QPrinter>
#include <QTemporaryDir>
#include <QThread>

PrintOscillogramManager::PrintOscillogramManager(PagePrinter* pagePrinter, QWidget* parent)
    : QWidget(parent), m_pagePrinter(pagePrinter)
{
    setAttribute(Qt::WA_DontShowOnScreen);
}

PrintOscillogramManager::~PrintOscillogramManager()
{
    delete m_pagePrinter;
}

bool PrintOscillogramManager::isPdf() const
{
    return m_pagePrinter->printer()->outputFormat() == QPrinter::PdfFormat;
}

bool PrintOscillogramManager::beginPainter()
{
    QPrinter* printer = m_pagePrinter->printer();
    if (isPdf()) {
        // The pages go to a file of the same name in a folder of their own until all are written.
        m_targetPath = printer->outputFileName();
        m_temporaryDir = std::make_unique<QTemporaryDir>();
        printer->setOutputFileName(m_temporaryDir->filePath(QFileInfo(m_targetPath).fileName()));
    }
    m_painter = std::make_unique<QPainter>();
    if ((!m_temporaryDir || m_temporaryDir->isValid()) && m_painter->begin(printer))
        return true;
    if (isPdf())
        printer->setOutputFileName(m_targetPath);
    QMessageBox::critical(
        parentWidget(), tr("Ошибка печати"), tr("Возможная проблема с настройками принтера"));
    return false;
}

bool PrintOscillogramManager::start()
{
    if (!m_pagePrinter->printer() || !beginPainter())
        return false;
    ProgressDialog progress(parentWidget());
    m_progress = &progress;
    progress.setWindowTitle(tr("Печать"));
    const QString stage = isPdf() ? tr("Печать в файл (PDF)...") : tr("Подготовка к печати...");
    progress.updateProgress(stage, 0.0);

    m_thread = new QThread;
    m_pagePrinter->setPainter(m_painter.get());
    m_pagePrinter->moveToWorker(m_thread);
    connect(m_pagePrinter, &PagePrinter::sigUpdateProgress, &progress,
        [&progress, stage](double percent) { progress.updateProgress(stage, percent); });
    connect(m_thread, &QThread::started, m_pagePrinter, &PagePrinter::slotPrintAllPages);
    connect(&progress, &QDialog::rejected, this, &PrintOscillogramManager::slotRequestCancel);
    connect(m_pagePrinter, &PagePrinter::sigCancelProgress, this, &PrintOscillogramManager::slotCancelPrint);
    connect(m_pagePrinter, &PagePrinter::sigFinishProgress, this, &PrintOscillogramManager::slotFinishPrint);
    connect(m_thread, &QThread::finished, m_thread, &QObject::deleteLater);
    m_thread->start(QThread::InheritPriority);
    progress.exec();
    // A Cancel closes the dialog at once; the walk ends at the next page and reports then.
    while (m_thread)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_progress = nullptr;
    return m_result;
}

void PrintOscillogramManager::slotRequestCancel()
{
    if (m_thread)
        m_thread->requestInterruption();
}

void PrintOscillogramManager::endPrint()
{
    m_painter->end();
    m_thread->quit();
    m_thread->wait();
    m_thread = nullptr;
    if (m_progress)
        m_progress->accept();
}

void PrintOscillogramManager::slotFinishPrint()
{
    QPrinter* printer = m_pagePrinter->printer();
    endPrint();
    m_result = true;
    if (!isPdf())
        return;
    const QString written = printer->outputFileName();
    printer->setOutputFileName(m_targetPath);
    if (QFile::exists(m_targetPath))
        QFile::remove(m_targetPath);
    m_result = QFile::copy(written, m_targetPath);
    if (!m_result) {
        QMessageBox::critical(
            parentWidget(), tr("Ошибка печати"), tr("Не удалось записать файл PDF: %1").arg(m_targetPath));
    }
}

void PrintOscillogramManager::slotCancelPrint()
{
    QPrinter* printer = m_pagePrinter->printer();
    if (!isPdf())
        printer->abort();
    endPrint();
    m_result = false;
    if (isPdf())
        printer->setOutputFileName(m_targetPath);
}
