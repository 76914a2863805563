#include "Views/Print/OscPrintOptions.h"

#include "Model/MeasureItem.h"
#include "Model/Oscillogram.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/Print/PrintGeometry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QSlider>
#include <QVBoxLayout>

OscPrintOptions::OscPrintOptions(OscillogramView* view, QWidget* parent)
    : QDialog(parent)
    , m_view(view)
    , m_range(new QComboBox(this))
    , m_scale(new QSlider(Qt::Horizontal, this))
    , m_scaleText(new QLabel(this))
    , m_nameAllPages(new QCheckBox(tr("Имена сигналов на всех страницах"), this))
    , m_printMarkers(new QCheckBox(tr("Печатать маркеры"), this))
    , m_printMeasures(new QCheckBox(tr("Печатать замеры времени"), this))
{
    setWindowTitle(tr("Параметры печати"));
    m_range->setObjectName(QStringLiteral("cb_measuresRange"));
    m_scale->setObjectName(QStringLiteral("hs_oscScale"));
    m_scaleText->setObjectName(QStringLiteral("l_scaleText"));
    m_nameAllPages->setObjectName(QStringLiteral("cb_isNameAllPages"));
    m_printMarkers->setObjectName(QStringLiteral("cb_isPrintMarkers"));
    m_printMeasures->setObjectName(QStringLiteral("cb_isPrintMeasures"));
    m_scale->setRange(0, PrintGeometry::scalePositionCount - 1);
    m_scale->setPageStep(1);
    m_scale->setTickPosition(QSlider::TicksBelow);
    m_scaleText->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("x0.025")));
    for (QCheckBox* box : { m_nameAllPages, m_printMarkers, m_printMeasures })
        box->setChecked(true);
    connect(m_scale, &QSlider::valueChanged, this, &OscPrintOptions::slotDrawScale);

    auto* scaleRow = new QHBoxLayout;
    scaleRow->addWidget(m_scale, 1);
    scaleRow->addWidget(m_scaleText);
    auto* form = new QFormLayout;
    form->addRow(tr("Диапазон"), m_range);
    form->addRow(tr("Масштаб по времени"), scaleRow);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &OscPrintOptions::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &OscPrintOptions::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(m_nameAllPages);
    layout->addWidget(m_printMarkers);
    layout->addWidget(m_printMeasures);
    layout->addWidget(buttons);

    updateRanges();
    setScalePosition(PrintGeometry::startScalePosition);
    slotDrawScale(m_scale->value());
}

void OscPrintOptions::updateRanges()
{
    m_range->clear();
    const auto record = m_view ? m_view->oscillogramViewModel()->oscillogram() : nullptr;
    const int last = record ? record->countOfSamples() - 1 : 0;
    m_range->addItem(tr("Вся осциллограмма"), QVariantList { 0, last });
    if (!m_view)
        return;
    const auto model = m_view->oscillogramViewModel();
    for (const MeasureItem& measure : model->getTimeMeasures()) {
        if (!measure.isComplete())
            continue;
        const int first = qMin(measure.startSampleNumber(), measure.finishSampleNumber());
        const int end = qMax(measure.startSampleNumber(), measure.finishSampleNumber());
        m_range->addItem(tr("%1 — %2 нс").arg(model->getTimePosition(first), model->getTimePosition(end)),
            QVariantList { first, end });
    }
}

PrintContent OscPrintOptions::content() const
{
    PrintContent content;
    const QVariantList range = m_range->currentData().toList();
    if (range.size() == 2) {
        content.firstSample = range.at(0).toInt();
        content.lastSample = range.at(1).toInt();
    }
    content.xScale = PrintGeometry::scaleAt(m_scale->value());
    content.isNameAllPages = m_nameAllPages->isChecked();
    content.isPrintMarkers = m_printMarkers->isChecked();
    content.isPrintMeasures = m_printMeasures->isChecked();
    return content;
}

int OscPrintOptions::scalePosition() const
{
    return m_scale->value();
}

void OscPrintOptions::setScalePosition(int position)
{
    m_scale->setValue(position);
}

void OscPrintOptions::slotDrawScale(int value)
{
    m_scaleText->setText(QStringLiteral("x") + QString::number(PrintGeometry::scaleAt(value), 'g'));
}

QString OscPrintOptions::pageLimitWarning() const
{
    if (!m_pagePrinter)
        return QString();
    const PrintContent chosen = content();
    const int samples = chosen.lastSample - chosen.firstSample + 1;
    const int perPage = m_pagePrinter->samplesPerPage(chosen.xScale, chosen.isNameAllPages);
    if (!PrintGeometry::exceedsPageLimit(samples, perPage))
        return QString();
    return tr("<center><b>При масштабе x%1 печать осциллограммы составит более %2 страниц</b><br><br>"
              "Уменьшите масштаб</center>")
        .arg(chosen.xScale, 0, 'g')
        .arg(PrintGeometry::pageLimit);
}

void OscPrintOptions::accept()
{
    const QString warning = pageLimitWarning();
    if (!warning.isEmpty()) {
        QMessageBox::warning(this, tr("Параметры печати"), warning);
        return;
    }
    QDialog::accept();
}
