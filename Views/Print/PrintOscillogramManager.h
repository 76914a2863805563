#pragma once

#include "Model/ProgressDialog.h"
#include "korvane_export.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <memory>

class PagePrinter;
class QPainter;
class QTemporaryDir;
class QThread;

// Writes the pages of a composer to its printer on a thread of its own, under a modal progress
// dialog whose Cancel stops the walk between pages. A PDF is written into a temporary folder and
// copied to its target only when every page is there, so that a cancelled print leaves the old
// file as it was.
class KORVANE_EXPORT PrintOscillogramManager : public QWidget
{
    Q_OBJECT
public:
    // Takes the composer, a copy made for this print.
    PrintOscillogramManager(PagePrinter* pagePrinter, QWidget* parent);
    ~PrintOscillogramManager() override;

    // True when all pages went out.
    bool start();
    // The progress dialog while the pages are being written, else null.
    ProgressDialog* progressDialog() const { return m_progress; }

public slots:
    void slotFinishPrint();
    void slotCancelPrint();
    void slotRequestCancel();

private:
    bool isPdf() const;
    // Points a PDF to its temporary file and opens the painter; tells the user when it cannot.
    bool beginPainter();
    // Ends the painter and the thread and closes the dialog; the same for either ending.
    void endPrint();

    PagePrinter* m_pagePrinter;
    std::unique_ptr<QPainter> m_painter;
    std::unique_ptr<QTemporaryDir> m_temporaryDir;
    QPointer<ProgressDialog> m_progress;
    QThread* m_thread = nullptr;
    QString m_targetPath;
    bool m_result = false;
};
