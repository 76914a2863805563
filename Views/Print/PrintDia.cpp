#include "Views/Print/PrintDia.h"

#include "Model/Oscillogram.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/Print/OscPrintOptions.h"
#include "Views/Print/PrintOscillogramManager.h"
#include "Views/Print/PrintPreviewWidget.h"
#include "Views/Print/PrinterOptions.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QStandardPaths>
#include <QToolBar>
#include <QVBoxLayout>

namespace {
constexpr double zoomStep = 1.25;
const int zoomValues[] = { 25, 50, 75, 100, 125, 150, 200, 300, 400 };
constexpr int statusMinimumWidth = 825;
} // namespace

PrintDia::PrintDia(OscillogramView* view, QWidget* parent)
    : QDialog(parent)
    , m_view(view)
    // Pages are laid out in pixels of the screen, so that rows, names and the time line keep the
    // proportions they have in the view.
    , m_printer(std::make_unique<QPrinter>(QPrinter::ScreenResolution))
    , m_pagePrinter(new PagePrinter(view, this))
    , m_preview(new PrintPreviewWidget(this))
    , m_printOptions(new OscPrintOptions(view, this))
    , m_printerOptions(nullptr)
{
    setWindowTitle(tr("Предпросмотр печати"));
    m_printer->setPageSize(QPageSize(QPageSize::A4));
    m_printer->setPageOrientation(QPageLayout::Landscape);
    m_printer->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    m_printerOptions = new PrinterOptions(*m_printer, defaultPdfPath(*view), this);
    m_printerOptions->applyTo(*m_printer);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createToolBar());
    layout->addWidget(m_preview, 1);
    layout->addLayout(createStatusRow());
    connect(m_preview, &PrintPreviewWidget::sigPreviewChanged, this, &PrintDia::slotPreviewChanged);

    m_pagePrinter->setPrinter(m_printer.get());
    m_printOptions->setPagePrinter(m_pagePrinter);
    m_printOptions->setScalePosition(m_pagePrinter->automaticScalePosition());
    m_pagePrinter->setOptions(m_printOptions);
    updateOrientationActions();
    slotUpdatePrinter();
    slotUpdateSelectPrintInfo();
    resize(1000, 800);
}

PrintDia::~PrintDia() = default;

QString PrintDia::defaultPdfPath(const OscillogramView& view)
{
    QString name = QFileInfo(view.oscillogramViewName()).completeBaseName();
    const auto record = view.oscillogramViewModel()->oscillogram();
    if (name.isEmpty() && record)
        name = QFileInfo(record->filename()).completeBaseName();
    if (name.isEmpty())
        name = QStringLiteral("oscillogram");
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (folder.isEmpty() || !QDir(folder).exists())
        folder = QDir::homePath();
    return QDir(folder).filePath(name + QStringLiteral(".pdf"));
}

QAction* PrintDia::addAction(QToolBar* bar, const QString& text, const char* name, const char* keys)
{
    auto* action = bar->addAction(text);
    action->setObjectName(QLatin1String(name));
    QIcon icon(QStringLiteral(":/icons/ic_%1.svg").arg(QLatin1String(name)));
    icon.addFile(QStringLiteral(":/icons/ic_%1_2.svg").arg(QLatin1String(name)), QSize(), QIcon::Active);
    action->setIcon(icon);
    if (keys)
        action->setShortcut(QKeySequence(QLatin1String(keys)));
    return action;
}

QToolBar* PrintDia::createToolBar()
{
    auto* bar = new QToolBar(this);
    auto* fit = new QActionGroup(this);
    fit->addAction(addAction(bar, tr("По ширине"), "fitToWidth"));
    fit->addAction(addAction(bar, tr("На всю страницу"), "fitInView"));
    connect(fit, &QActionGroup::triggered, this, &PrintDia::slotFit);
    m_zoom = new QComboBox(bar);
    m_zoom->setObjectName(QStringLiteral("zoomFactor"));
    m_zoom->setEditable(true);
    m_zoom->setInsertPolicy(QComboBox::NoInsert);
    m_zoom->setMinimumContentsLength(7);
    m_zoom->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (int value : zoomValues)
        m_zoom->addItem(QStringLiteral("%1%").arg(value));
    connect(m_zoom, QOverload<int>::of(&QComboBox::activated), this, &PrintDia::slotZoomFactorChanged);
    connect(m_zoom->lineEdit(), &QLineEdit::editingFinished, this, &PrintDia::slotZoomFactorChanged);
    bar->addWidget(m_zoom);
    connect(addAction(bar, tr("Уменьшить"), "zoomOut", "Ctrl+Down"), &QAction::triggered, this,
        &PrintDia::slotZoomOut);
    connect(addAction(bar, tr("Увеличить"), "zoomIn", "Ctrl+Up"), &QAction::triggered, this,
        &PrintDia::slotZoomIn);
    bar->addSeparator();
    auto* navigate = new QActionGroup(this);
    navigate->addAction(addAction(bar, tr("Первая страница"), "firstPage", "Ctrl+Shift+Left"));
    navigate->addAction(addAction(bar, tr("Предыдущая страница"), "prevPage"));
    m_pageNumber = new QLineEdit(bar);
    m_pageNumber->setObjectName(QStringLiteral("pageNumber"));
    m_pageNumber->setValidator(new QIntValidator(1, 1000000, m_pageNumber));
    m_pageNumber->setMaximumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00000")));
    m_pageNumber->setAlignment(Qt::AlignRight);
    connect(m_pageNumber, &QLineEdit::editingFinished, this, &PrintDia::slotPageNum);
    bar->addWidget(m_pageNumber);
    m_pageTotal = new QLabel(bar);
    m_pageTotal->setObjectName(QStringLiteral("pageTotal"));
    bar->addWidget(m_pageTotal);
    navigate->addAction(addAction(bar, tr("Следующая страница"), "nextPage"));
    navigate->addAction(addAction(bar, tr("Последняя страница"), "lastPage", "Ctrl+Shift+Right"));
    connect(navigate, &QActionGroup::triggered, this, &PrintDia::slotPageNavigate);
    bar->addSeparator();
    auto* orientation = new QActionGroup(this);
    m_portrait = addAction(bar, tr("Книжная"), "portrait");
    m_landscape = addAction(bar, tr("Альбомная"), "landscape");
    for (QAction* action : { m_portrait, m_landscape }) {
        action->setCheckable(true);
        orientation->addAction(action);
    }
    connect(orientation, &QActionGroup::triggered, this, &PrintDia::slotOrientation);
    bar->addSeparator();
    connect(addAction(bar, tr("Настройки печати осциллограммы"), "printOptions", "Ctrl+O"),
        &QAction::triggered, this, &PrintDia::slotPrintOptions);
    connect(addAction(bar, tr("Настройки принтера"), "printerOptions", "Ctrl+P"), &QAction::triggered, this,
        &PrintDia::slotPrinterOptions);
    return bar;
}

QLayout* PrintDia::createStatusRow()
{
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("l_printInfo"));
    m_status->setMinimumWidth(statusMinimumWidth);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto* print = buttons->addButton(tr("Печать"), QDialogButtonBox::AcceptRole);
    print->setObjectName(QStringLiteral("pb_print"));
    print->setIcon(QIcon(QStringLiteral(":/icons/ic_print_2.svg")));
    connect(print, &QPushButton::clicked, this, &PrintDia::slotPrint);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(10, 5, 10, 5);
    row->addWidget(m_status, 1);
    row->addWidget(buttons);
    return row;
}

QAction* PrintDia::action(const QString& objectName) const
{
    return findChild<QAction*>(objectName);
}

QString PrintDia::statusText() const
{
    return m_status->text();
}

void PrintDia::showZoom()
{
    m_zoom->setEditText(QString::asprintf("%.1f%%", m_preview->zoomFactor() * 100.0));
}

void PrintDia::slotFit(QAction* action)
{
    if (action->objectName() == QLatin1String("fitToWidth"))
        m_preview->fitToWidth();
    else
        m_preview->slotFitPage();
    showZoom();
}

void PrintDia::slotZoomIn()
{
    m_preview->setZoomFactor(m_preview->zoomFactor() * zoomStep);
    showZoom();
}

void PrintDia::slotZoomOut()
{
    m_preview->setZoomFactor(m_preview->zoomFactor() / zoomStep);
    showZoom();
}

void PrintDia::slotZoomFactorChanged()
{
    QString text = m_zoom->currentText();
    text.remove(QLatin1Char('%'));
    bool ok = false;
    const double percent = text.trimmed().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    if (ok && percent > 0)
        m_preview->setZoomFactor(percent / 100.0);
    showZoom();
}

void PrintDia::slotOrientation(QAction* action)
{
    m_printer->setPageOrientation(action == m_landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    slotUpdatePrinter();
}

void PrintDia::updateOrientationActions()
{
    const bool landscape = m_printer->pageLayout().orientation() == QPageLayout::Landscape;
    m_landscape->setChecked(landscape);
    m_portrait->setChecked(!landscape);
}

void PrintDia::slotPageNum()
{
    m_preview->setCurrentPage(m_pageNumber->text().toInt() - 1);
}

void PrintDia::slotPageNavigate(QAction* action)
{
    const QString name = action->objectName();
    int page = m_preview->currentPage();
    if (name == QLatin1String("firstPage"))
        page = 0;
    else if (name == QLatin1String("prevPage"))
        page = qMax(page - 1, 0);
    else if (name == QLatin1String("nextPage"))
        page = qMin(page + 1, m_preview->pageCount() - 1);
    else
        page = m_preview->pageCount() - 1;
    m_preview->setCurrentPage(page);
}

void PrintDia::slotPrinterOptions()
{
    if (m_printerOptions->exec() != QDialog::Accepted)
        return;
    m_printerOptions->applyTo(*m_printer);
    updateOrientationActions();
    slotUpdatePrinter();
    slotUpdateSelectPrintInfo();
}

void PrintDia::slotPrintOptions()
{
    m_printOptions->updateRanges();
    if (m_printOptions->exec() != QDialog::Accepted)
        return;
    m_pagePrinter->setOptions(m_printOptions);
    slotUpdatePrinter();
}

void PrintDia::slotUpdatePrinter()
{
    m_pagePrinter->setPrinter(m_printer.get());
    m_preview->setPages(m_pagePrinter, *m_printer);
    m_pageTotal->setText(QStringLiteral("/ %1").arg(m_preview->pageCount()));
    showZoom();
}

void PrintDia::slotPreviewChanged()
{
    m_pageNumber->setText(QString::number(m_preview->currentPage() + 1));
}

void PrintDia::slotUpdateSelectPrintInfo()
{
    m_status->setText(m_printerOptions->selectionText());
}

void PrintDia::slotPrint()
{
    if (!m_printerOptions->hasPrinter()) {
        QMessageBox::critical(
            this, tr("Ошибка печати"), tr("Выберете принтер в окне \"Настройки принтера\""));
        return;
    }
    m_printerOptions->applyTo(*m_printer);
    m_pagePrinter->setPrinter(m_printer.get());
    PrintOscillogramManager manager(new PagePrinter(*m_pagePrinter), this);
    if (manager.start())
        accept();
}
