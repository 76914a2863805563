#pragma once

#include "Views/Print/PagePrinter.h"
#include "korvane_export.h"

#include <QDialog>
#include <QPointer>

#include <memory>

class OscPrintOptions;
class OscillogramView;
class PrintPreviewWidget;
class PrinterOptions;
class QAction;
class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QToolBar;

// The preview of the printed pages with the tools around it: zoom, page walk, orientation, what
// to print, which printer, and the button that prints.
class KORVANE_EXPORT PrintDia : public QDialog
{
    Q_OBJECT
public:
    explicit PrintDia(OscillogramView* view, QWidget* parent = nullptr);
    ~PrintDia() override;

    QPrinter* printer() const { return m_printer.get(); }
    PagePrinter* pagePrinter() const { return m_pagePrinter; }
    PrintPreviewWidget* preview() const { return m_preview; }
    OscPrintOptions* printOptions() const { return m_printOptions; }
    PrinterOptions* printerOptions() const { return m_printerOptions; }
    QAction* action(const QString& objectName) const;
    QString statusText() const;
    // Where a PDF goes unless the user names another file: the record's name with ".pdf".
    static QString defaultPdfPath(const OscillogramView& view);

public slots:
    void slotFit(QAction* action);
    void slotZoomIn();
    void slotZoomOut();
    void slotZoomFactorChanged();
    void slotOrientation(QAction* action);
    void slotPageNum();
    void slotPageNavigate(QAction* action);
    void slotPrinterOptions();
    void slotPrint();
    void slotPrintOptions();
    void slotUpdatePrinter();
    void slotPreviewChanged();
    void slotUpdateSelectPrintInfo();

private:
    QAction* addAction(QToolBar* bar, const QString& text, const char* name, const char* keys = nullptr);
    QToolBar* createToolBar();
    QLayout* createStatusRow();
    void updateOrientationActions();
    void showZoom();

    QPointer<OscillogramView> m_view;
    std::unique_ptr<QPrinter> m_printer;
    PagePrinter* m_pagePrinter;
    PrintPreviewWidget* m_preview;
    OscPrintOptions* m_printOptions;
    PrinterOptions* m_printerOptions;
    QComboBox* m_zoom = nullptr;
    QLineEdit* m_pageNumber = nullptr;
    QLabel* m_pageTotal = nullptr;
    QLabel* m_status = nullptr;
    QAction* m_portrait = nullptr;
    QAction* m_landscape = nullptr;
};
