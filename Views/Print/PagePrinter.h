#pragma once

#include "Views/Print/PrintRows.h"
#include "korvane_export.h"

#include <QObject>
#include <QPair>
#include <QPointer>
#include <QVector>

#include <memory>

class OscPrintOptions;
class OscillogramView;
class QImage;
class QPainter;
class QPrinter;
class QThread;
class TimeLine;

// What the user chose to print: a range of samples (the whole record, or a time measure), the x
// scale, and what goes onto the pages besides the traces.
struct KORVANE_EXPORT PrintContent
{
    // First and last sample; a negative last sample stands for the record's end.
    int firstSample = 0;
    int lastSample = -1;
    double xScale = 1.0;
    bool isNameAllPages = true;
    bool isPrintMarkers = true;
    bool isPrintMeasures = true;
};

// Composes the pages of a record view: a time line strip at the top of each page, then one row per
// visible channel row, the names left, the trace right, at the chosen range and scale. Rows that do
// not fit under each other go onto further pages, and the range goes across pages, so the pages
// are the time ranges times the row groups. It draws the preview one page at a time and, as a copy
// moved to a thread of its own, writes all pages to the printer.
class KORVANE_EXPORT PagePrinter : public QObject
{
    Q_OBJECT
public:
    explicit PagePrinter(OscillogramView* view, QObject* parent = nullptr);
    // The copy prints while the original keeps drawing the preview. Made in the user interface
    // thread, like the original.
    PagePrinter(const PagePrinter& other);
    ~PagePrinter() override;
    PagePrinter& operator=(const PagePrinter&) = delete;

    void setOptions(OscPrintOptions* options);
    void setContent(const PrintContent& content);
    PrintContent content() const { return m_content; }
    // Takes the page size from the printer and lays the rows out on it.
    void setPrinter(QPrinter* printer);
    QPrinter* printer() const { return m_printer; }
    void setPainter(QPainter* painter) { m_painter = painter; }

    int pageWidth() const { return m_pageWidth; }
    int pageHeight() const { return m_pageHeight; }
    int nameWidth() const { return m_nameWidth; }
    // The plot's width on a page with or without the name column.
    int plotWidth(bool withNames) const;
    QVector<int> printedRowHeights() const { return m_heights; }
    QVector<ushort> rowBreaks() const { return m_rowBreaks; }
    int groupCount() const { return m_rowBreaks.size() + 1; }
    int rangeCount() const;
    int pageCount() const { return rangeCount() * groupCount(); }
    // The first sample of the page's time range.
    int pageFirstSample(int page) const;
    bool pageHasNames(int page) const;
    // Samples a page stands for at that scale, by which the page limit is checked.
    int samplesPerPage(double xScale, bool isNameAllPages) const;
    // The scale position the printing starts from: 1.0 when the whole record keeps within the page
    // limit, else the largest smaller one that does.
    int automaticScalePosition() const;

    // Moves the composer to the worker thread, which sends it back when the pages are written.
    void moveToWorker(QThread* worker);

    // Draws the page with its top left corner at the painter's origin.
    void paintPage(QPainter& painter, int page) const;

signals:
    void sigUpdateProgress(double percent);
    void sigFinishProgress();
    void sigCancelProgress();

public slots:
    // Writes every page through the painter, one after another; asked to stop, it stops between
    // pages. Run on a thread of its own, it goes back to the thread it came from when it ends.
    void slotPrintAllPages();

private:
    int lastSample() const;
    int samplesAcross(bool withNames) const;
    // The rows of a group, from the first to the one after the last.
    QPair<int, int> groupRows(int group) const;
    void paintHead(QPainter& painter, int firstSample, bool withNames) const;
    QImage rowStrip(const PrintRow& row, int height, int firstSample, bool withNames) const;
    void paintNames(QImage& strip, const PrintRow& row, int height) const;

    QPointer<OscillogramView> m_view;
    QPointer<OscPrintOptions> m_options;
    QPrinter* m_printer = nullptr;
    QPainter* m_painter = nullptr;
    PrintContent m_content;
    QVector<PrintRow> m_rows;
    QVector<int> m_heights;
    QVector<ushort> m_rowBreaks;
    int m_pageWidth = 0;
    int m_pageHeight = 0;
    int m_nameWidth = 0;
    // A ruler of its own: the view's ruler keeps laid-out texts that its paints change.
    std::unique_ptr<TimeLine> m_timeLine;
    QThread* m_home = nullptr;
};
