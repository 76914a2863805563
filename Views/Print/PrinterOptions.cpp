#include "Views/Print/PrinterOptions.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {
// The paper sizes offered: the usual office ones.
const QPageSize::PageSizeId pageSizes[]
    = { QPageSize::A3, QPageSize::A4, QPageSize::A5, QPageSize::B5, QPageSize::Letter, QPageSize::Legal };

QDoubleSpinBox* marginBox(const char* name, QWidget* parent)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setDecimals(2);
    box->setMinimum(0.0);
    box->setSuffix(PrinterOptions::tr("мм"));
    return box;
}
} // namespace

PrinterOptions::PrinterOptions(const QPrinter& printer, const QString& pdfPath, QWidget* parent)
    : QDialog(parent)
    , m_printer(new QComboBox(this))
    , m_path(new QLineEdit(pdfPath, this))
    , m_choosePath(new QPushButton(QStringLiteral("..."), this))
    , m_pageSize(new QComboBox(this))
    , m_portrait(new QToolButton(this))
    , m_landscape(new QToolButton(this))
    , m_left(marginBox("sb_left", this))
    , m_right(marginBox("sb_right", this))
    , m_top(marginBox("sb_top", this))
    , m_bottom(marginBox("sb_bottom", this))
    , m_colorPrint(new QCheckBox(tr("Цветная печать"), this))
{
    setWindowTitle(tr("Настройки принтера"));
    m_printer->setObjectName(QStringLiteral("cb_printer"));
    m_path->setObjectName(QStringLiteral("le_path"));
    m_choosePath->setObjectName(QStringLiteral("pb_path"));
    m_pageSize->setObjectName(QStringLiteral("cb_pageSize"));
    m_portrait->setObjectName(QStringLiteral("tb_portrait"));
    m_landscape->setObjectName(QStringLiteral("tb_landscape"));
    m_colorPrint->setObjectName(QStringLiteral("cb_isColorPrint"));
    m_path->setMinimumWidth(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 40);
    m_portrait->setText(tr("Книжная"));
    m_landscape->setText(tr("Альбомная"));
    m_portrait->setIcon(QIcon(QStringLiteral(":/icons/ic_portrait.svg")));
    m_landscape->setIcon(QIcon(QStringLiteral(":/icons/ic_landscape.svg")));
    for (QToolButton* button : { m_portrait, m_landscape }) {
        button->setCheckable(true);
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    }
    auto* orientation = new QButtonGroup(this);
    orientation->setExclusive(true);
    orientation->addButton(m_portrait, QPageLayout::Portrait);
    orientation->addButton(m_landscape, QPageLayout::Landscape);
    connect(orientation, &QButtonGroup::idClicked, this, &PrinterOptions::slotOrientation);

    const QPageLayout layout = printer.pageLayout();
    fillPrinters(printer);
    fillPageSizes(layout);
    m_orientation = layout.orientation();
    (m_orientation == QPageLayout::Landscape ? m_landscape : m_portrait)->setChecked(true);
    updateMarginMaxima();
    const QMarginsF margins = layout.margins(QPageLayout::Millimeter);
    const QMarginsF least = layout.minimumMargins();
    m_left->setValue(qMax(margins.left(), least.left()));
    m_right->setValue(qMax(margins.right(), least.right()));
    m_top->setValue(qMax(margins.top(), least.top()));
    m_bottom->setValue(qMax(margins.bottom(), least.bottom()));
    m_colorPrint->setChecked(printer.colorMode() == QPrinter::Color);

    connect(m_pageSize, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PrinterOptions::slotPageSizeChanged);
    connect(m_choosePath, &QPushButton::clicked, this, &PrinterOptions::slotChoosePath);
    connect(m_printer, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this] {
        m_path->setEnabled(isPdf());
        m_choosePath->setEnabled(isPdf());
    });
    m_path->setEnabled(isPdf());
    m_choosePath->setEnabled(isPdf());
    buildLayout();
}

void PrinterOptions::buildLayout()
{
    auto* pathRow = new QHBoxLayout;
    pathRow->addWidget(m_path, 1);
    pathRow->addWidget(m_choosePath);
    auto* orientationRow = new QHBoxLayout;
    orientationRow->addWidget(m_portrait);
    orientationRow->addWidget(m_landscape);
    orientationRow->addStretch(1);
    auto* margins = new QFormLayout;
    margins->addRow(tr("Левое"), m_left);
    margins->addRow(tr("Правое"), m_right);
    margins->addRow(tr("Верхнее"), m_top);
    margins->addRow(tr("Нижнее"), m_bottom);
    auto* form = new QFormLayout;
    form->addRow(tr("Принтер"), m_printer);
    form->addRow(tr("Файл"), pathRow);
    form->addRow(tr("Размер бумаги"), m_pageSize);
    form->addRow(tr("Ориентация"), orientationRow);
    form->addRow(tr("Поля"), margins);
    form->addRow(QString(), m_colorPrint);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(buttons);
}

void PrinterOptions::fillPrinters(const QPrinter& printer)
{
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        m_printer->addItem(name, name);
    m_printer->addItem(tr("Печать в файл (PDF)"));
    if (printer.outputFormat() == QPrinter::PdfFormat && !printer.outputFileName().isEmpty()) {
        m_printer->setCurrentIndex(m_printer->count() - 1);
        m_path->setText(printer.outputFileName());
        return;
    }
    // No printer is taken for the user unless the system names one as its default.
    const QString preferred
        = printer.printerName().isEmpty() ? QPrinterInfo::defaultPrinterName() : printer.printerName();
    m_printer->setCurrentIndex(preferred.isEmpty() ? -1 : m_printer->findData(preferred));
}

void PrinterOptions::fillPageSizes(const QPageLayout& layout)
{
    for (QPageSize::PageSizeId id : pageSizes)
        m_pageSize->addItem(QPageSize::name(id), int(id));
    const int index = m_pageSize->findData(int(layout.pageSize().id()));
    m_pageSize->setCurrentIndex(index >= 0 ? index : m_pageSize->findData(int(QPageSize::A4)));
}

bool PrinterOptions::hasPrinter() const
{
    return m_printer->currentIndex() >= 0 && (!isPdf() || !m_path->text().isEmpty());
}

bool PrinterOptions::isPdf() const
{
    return m_printer->currentIndex() == m_printer->count() - 1;
}

QString PrinterOptions::printerName() const
{
    return m_printer->currentData().toString();
}

QString PrinterOptions::pdfPath() const
{
    return m_path->text();
}

bool PrinterOptions::isColorPrint() const
{
    return m_colorPrint->isChecked();
}

QSizeF PrinterOptions::pageSizeMillimetres() const
{
    const QSizeF size
        = QPageSize::size(QPageSize::PageSizeId(m_pageSize->currentData().toInt()), QPageSize::Millimeter);
    return m_orientation == QPageLayout::Landscape ? size.transposed() : size;
}

QPageLayout PrinterOptions::pageLayout() const
{
    const QPageSize size(QPageSize::PageSizeId(m_pageSize->currentData().toInt()));
    return QPageLayout(size, QPageLayout::Orientation(m_orientation),
        QMarginsF(m_left->value(), m_top->value(), m_right->value(), m_bottom->value()),
        QPageLayout::Millimeter);
}

void PrinterOptions::applyTo(QPrinter& printer) const
{
    if (isPdf()) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(pdfPath());
    } else if (hasPrinter()) {
        printer.setOutputFormat(QPrinter::NativeFormat);
        printer.setPrinterName(printerName());
    }
    printer.setPageLayout(pageLayout());
    printer.setColorMode(isColorPrint() ? QPrinter::Color : QPrinter::GrayScale);
}

QString PrinterOptions::selectionText() const
{
    if (isPdf())
        return tr("Печать в файл: %1").arg(pdfPath());
    return tr("Выбран принтер: %1").arg(printerName());
}

void PrinterOptions::updateMarginMaxima()
{
    const QSizeF size = pageSizeMillimetres();
    m_left->setMaximum(size.width() / 4);
    m_right->setMaximum(size.width() / 4);
    m_top->setMaximum(size.height() / 4);
    m_bottom->setMaximum(size.height() / 4);
}

void PrinterOptions::slotPageSizeChanged()
{
    updateMarginMaxima();
}

void PrinterOptions::slotOrientation(int orientation)
{
    m_orientation = orientation;
    updateMarginMaxima();
}

void PrinterOptions::slotChoosePath()
{
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Запись файла PDF"), m_path->text(), QStringLiteral("PDF (*.pdf)"));
    if (!path.isEmpty())
        m_path->setText(path);
}
