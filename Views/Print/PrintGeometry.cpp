#include "Views/Print/PrintGeometry.h"

#include <QtGlobal>

#include <cmath>

namespace PrintGeometry {

double scaleAt(int position)
{
    return scalePositions[qBound(0, position, scalePositionCount - 1)];
}

int samplesAcrossPage(int plotWidth, double xScale)
{
    if (xScale > 1.0)
        return int(plotWidth / xScale + 2.0);
    return int(std::ceil(1.0 / xScale - 0.5)) * plotWidth;
}

int printedRowHeight(int rowHeight, int listWidth, int pageWidth, int pageHeight, bool analog)
{
    // A list never shown has no width yet; its rows keep their screen height.
    const int height = listWidth > 0 ? int(double(rowHeight) * pageWidth / listWidth) : rowHeight;
    const int least = analog ? minAnalogRowHeight : minDigitalRowHeight;
    return qMin(qMax(height, least), pageHeight);
}

int samplesPerPage(const QVector<int>& printedRowHeights, int pageHeight, int samplesAcross)
{
    if (pageHeight <= 0)
        return 0;
    long long total = 0;
    for (int height : printedRowHeights)
        total += height;
    const long long pagesHigh = total / pageHeight;
    if (pagesHigh == 0)
        return 0;
    return int(samplesAcross / pagesHigh);
}

int estimatedPageCount(int samples, int samplesPerPage)
{
    return samplesPerPage < 1 ? 1 : samples / samplesPerPage;
}

bool exceedsPageLimit(int samples, int samplesPerPage)
{
    return estimatedPageCount(samples, samplesPerPage) > pageLimit;
}

QVector<ushort> rowBreaks(const QVector<int>& printedRowHeights, int pageHeight)
{
    QVector<ushort> breaks;
    int y = headerHeight;
    for (int index = 0; index < printedRowHeights.size(); ++index) {
        const int height = printedRowHeights.at(index);
        if (y + height > pageHeight && y > headerHeight) {
            breaks << ushort(index);
            y = headerHeight;
        }
        y += height;
    }
    return breaks;
}

int automaticScalePosition(
    const QVector<int>& printedRowHeights, int pageHeight, int plotWidth, int countOfSamples)
{
    for (int position = startScalePosition; position > 0; --position) {
        const int perPage
            = samplesPerPage(printedRowHeights, pageHeight, samplesAcrossPage(plotWidth, scaleAt(position)));
        if (!exceedsPageLimit(countOfSamples, perPage))
            return position;
    }
    return 0;
}

} // namespace PrintGeometry
