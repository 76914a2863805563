#pragma once

#include "korvane_export.h"

#include <QVector>

// The arithmetic of printed pages, apart from any widget: how many samples a page holds across,
// how high a row is on paper, where the rows break onto a new page and how many pages a range
// will take. All sizes are in pixels of the printer.
namespace PrintGeometry {
// The time line strip at the top of each page.
constexpr int headerHeight = 25;
// A row is never printed lower than this, so that its trace stays readable.
constexpr int minAnalogRowHeight = 50;
constexpr int minDigitalRowHeight = 25;
// More pages than this are refused: the user is asked for a smaller scale.
constexpr int pageLimit = 300;

// The x scales the user can print at (pixels per sample), and the one offered first (1.0).
constexpr int scalePositionCount = 10;
constexpr double scalePositions[scalePositionCount]
    = { 0.025, 0.05, 0.1, 0.25, 0.5, 1.0, 2.5, 5.0, 25.0, 50.0 };
constexpr int startScalePosition = 5;
KORVANE_EXPORT double scaleAt(int position);

// Samples a plot of that width shows at scale x. Above 1.0 a page takes two samples more than
// fit, so that the trace runs to the edge; at or below 1.0 one pixel takes a whole number of
// samples.
KORVANE_EXPORT int samplesAcrossPage(int plotWidth, double xScale);

// The height on paper of a row that is rowHeight high on screen in a list listWidth wide: the
// screen's proportions carried to a page pageWidth wide, raised to the least readable height of
// its kind and cut to the page's height.
KORVANE_EXPORT int printedRowHeight(int rowHeight, int listWidth, int pageWidth, int pageHeight, bool analog);

// Samples a page stands for when the rows take several pages high: the samples across a page
// shared among the pages high (whole pages only: rows that need one and a half pages count as
// one). 0 when everything fits on one page high or the page has no height.
KORVANE_EXPORT int samplesPerPage(const QVector<int>& printedRowHeights, int pageHeight, int samplesAcross);

// The page count the limit is checked against, for a range of that many samples; one page when
// the rows fit on one page high.
KORVANE_EXPORT int estimatedPageCount(int samples, int samplesPerPage);
KORVANE_EXPORT bool exceedsPageLimit(int samples, int samplesPerPage);

// The rows that begin a page, beyond the first: each page starts below its header strip. A row
// alone on its page stays there even when it reaches below the page, which cuts it.
KORVANE_EXPORT QVector<ushort> rowBreaks(const QVector<int>& printedRowHeights, int pageHeight);

// The largest scale from 1.0 down whose page count keeps within the limit for a record of that
// many samples; the smallest scale when none does.
KORVANE_EXPORT int automaticScalePosition(
    const QVector<int>& printedRowHeights, int pageHeight, int plotWidth, int countOfSamples);
} // namespace PrintGeometry
