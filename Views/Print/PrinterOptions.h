#pragma once

#include "korvane_export.h"

#include <QDialog>
#include <QPageLayout>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLineEdit;
class QPrinter;
class QPushButton;
class QToolButton;

// The printer of a print: one of the system's printers or a PDF file, the paper, its orientation
// and margins, and colour or grey.
class KORVANE_EXPORT PrinterOptions : public QDialog
{
    Q_OBJECT
public:
    // Starts from the printer's page layout; a PDF goes to pdfPath unless the user names another.
    PrinterOptions(const QPrinter& printer, const QString& pdfPath, QWidget* parent = nullptr);

    // A printer or a PDF file is chosen.
    bool hasPrinter() const;
    bool isPdf() const;
    QString printerName() const;
    QString pdfPath() const;
    QPageLayout pageLayout() const;
    bool isColorPrint() const;
    // Gives the printer what the dialog holds.
    void applyTo(QPrinter& printer) const;
    // The text of the status row of the preview: which printer or file the pages go to.
    QString selectionText() const;

public slots:
    void slotPageSizeChanged();
    void slotOrientation(int orientation);
    void slotChoosePath();

private:
    void buildLayout();
    void fillPrinters(const QPrinter& printer);
    void fillPageSizes(const QPageLayout& layout);
    // Each margin up to a quarter of the page's side it lies on.
    void updateMarginMaxima();
    QSizeF pageSizeMillimetres() const;

    QComboBox* m_printer;
    QLineEdit* m_path;
    QPushButton* m_choosePath;
    QComboBox* m_pageSize;
    QToolButton* m_portrait;
    QToolButton* m_landscape;
    QDoubleSpinBox* m_left;
    QDoubleSpinBox* m_right;
    QDoubleSpinBox* m_top;
    QDoubleSpinBox* m_bottom;
    QCheckBox* m_colorPrint;
    int m_orientation = QPageLayout::Portrait;
};
