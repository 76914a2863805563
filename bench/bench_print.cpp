// Printing a record of 32 analogue channels into a PDF: 100 pages composed by the page composer
// and written through QPrinter. The baseline is the same 100 pages composed into an image, which
// costs everything but the PDF. The resident memory is read after 10 and after 100 pages: the
// pages are written as they come, so it must not grow with their count.

#include "BenchMeasures.h"
#include "BenchRecords.h"
#include "Settings/KorvaneSettings.h"
#include "Views/OscillogramView.h"
#include "Views/OscillogramViewModel.h"
#include "Views/Print/PagePrinter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPrinter>
#include <QSettings>
#include <QTemporaryDir>

#include "RatioReporter.h"

#include <benchmark/benchmark.h>

namespace {
constexpr int kSamples = 200000;
constexpr int kAnalogs = 32;
constexpr int kPages = 100;

struct Window
{
    Window() : settings(QSharedPointer<KorvaneSettings>::create(&file)), view(settings)
    {
        view.resize(1600, 1000);
        view.show();
        QApplication::processEvents();
        view.setOscillogram(BenchRecords::sineRecord(kAnalogs, 0, kSamples));
        view.initByDefault();
        QApplication::processEvents();
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("record.pdf")));
        printer.setPageLayout(
            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(10, 10, 10, 10)));
        pages.setPrinter(&printer);
    }

    QTemporaryDir dir;
    QSettings file { dir.filePath(QStringLiteral("Korvane.ini")), QSettings::IniFormat };
    QSharedPointer<KorvaneSettings> settings;
    OscillogramView view;
    QPrinter printer { QPrinter::ScreenResolution };
    PagePrinter pages { &view };
};

Window& window()
{
    static Window* w = new Window;
    return *w;
}

long memoryAfter10 = 0;
long memoryAfter100 = 0;

void PdfPages(benchmark::State& state)
{
    Window& w = window();
    for (auto _ : state) {
        QPainter painter(&w.printer);
        for (int page = 0; page < kPages; ++page) {
            if (page > 0)
                w.printer.newPage();
            w.pages.paintPage(painter, page);
            if (page == 9)
                memoryAfter10 = Bench::statusKilobytes("VmRSS:");
        }
        memoryAfter100 = Bench::statusKilobytes("VmRSS:");
        painter.end();
    }
}
BENCHMARK(PdfPages)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void ImagePages(benchmark::State& state)
{
    Window& w = window();
    QImage image(w.pages.pageWidth(), w.pages.pageHeight(), QImage::Format_RGB32);
    for (auto _ : state) {
        for (int page = 0; page < kPages; ++page) {
            image.fill(Qt::white);
            QPainter painter(&image);
            w.pages.paintPage(painter, page);
        }
    }
}
BENCHMARK(ImagePages)->Unit(benchmark::kMillisecond)->MinTime(2.0);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (window().pages.pageCount() < kPages) {
        std::printf("the record gives %d pages only\n", window().pages.pageCount());
        return 1;
    }
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    const double pdf = reporter.times["PdfPages"];
    const double image = reporter.times["ImagePages"];
    if (pdf > 0.0 && image > 0.0)
        std::printf("PDF: %.1f pages a second (at least 20), %.2f times the composition into an image\n",
            kPages * 1000.0 / pdf, pdf / image);
    std::printf(
        "resident memory after 10 pages %ld kB, after 100 pages %ld kB\n", memoryAfter10, memoryAfter100);
    return 0;
}
