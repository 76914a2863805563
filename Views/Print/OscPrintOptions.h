#pragma once

#include "Views/Print/PagePrinter.h"
#include "korvane_export.h"

#include <QDialog>
#include <QPointer>

class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;

// What to print: the whole record or the range of one time measure, the x scale out of a fixed
// set, and whether names, markers and measures go onto the pages. OK is refused while the pages
// would pass the limit, with a word to lower the scale.
class KORVANE_EXPORT OscPrintOptions : public QDialog
{
    Q_OBJECT
public:
    OscPrintOptions(OscillogramView* view, QWidget* parent = nullptr);

    // The composer whose page layout the limit is checked against.
    void setPagePrinter(const PagePrinter* pagePrinter) { m_pagePrinter = pagePrinter; }
    PrintContent content() const;
    int scalePosition() const;
    void setScalePosition(int position);
    // Fills the range list anew from the record and its time measures.
    void updateRanges();
    // The warning shown when the pages of a range at the scale would pass the limit, or an empty
    // text when they would not.
    QString pageLimitWarning() const;

public slots:
    void slotDrawScale(int value);
    void accept() override;

private:
    QPointer<OscillogramView> m_view;
    const PagePrinter* m_pagePrinter = nullptr;
    QComboBox* m_range;
    QSlider* m_scale;
    QLabel* m_scaleText;
    QCheckBox* m_nameAllPages;
    QCheckBox* m_printMarkers;
    QCheckBox* m_printMeasures;
};
