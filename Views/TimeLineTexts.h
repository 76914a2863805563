#pragma once

#include <QFont>
#include <QFontMetrics>
#include <QHash>
#include <QRectF>
#include <QStaticText>
#include <QString>

class QPainter;

// The texts of the time line, laid out once and kept: the ruler draws the same numbers on every
// paint, and laying them out again each time would cost most of the paint.
class TimeLineTexts
{
public:
    // Takes the painter's font and device; forgets the texts when either changed, since their
    // layout depends on both.
    void prepareFor(const QPainter& painter);
    // The advance of the text in whole pixels, as QFontMetrics gives it.
    int width(const QString& text) { return laidOut(text).width; }
    // Draws the text into the rectangle as QPainter::drawText does with these alignment flags,
    // clipped to the rectangle when it does not fit.
    void draw(QPainter& painter, const QRectF& rect, int flags, const QString& text);

private:
    struct Text
    {
        QStaticText laid;
        int width = 0;
    };
    const Text& laidOut(const QString& text);

    QHash<QString, Text> m_texts;
    QFont m_font;
    int m_dpiX = 0;
    int m_dpiY = 0;
    QFontMetrics m_metrics { m_font };
};
