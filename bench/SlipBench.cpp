// A slip from its rows to the first painted page, compared with painting the same page from ready
// data: once on a bare page, where the reference is already laid out and is only painted, and once
// in the preview window. Everything before painting (statement, design, filling; on the bare page
// also the layout) may at most double the time.

#include "ManyArrivals.h"
#include "data/EmbeddedFunctions.h"
#include "platform/ado/Connection.h"
#include "platform/ado/Recordset.h"
#include "platform/forms/core/Application.h"
#include "platform/report/ReportPainter.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/RptReportViewer.h"
#include "slip/SlipSample.h"
#include "slip/SlipStatement.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

namespace {

using namespace Quillane;

Connection& Database() {
    static const ManyArrivals arrivals(1000);
    static Connection connection;
    if (connection.State() == adStateClosed) {
        connection.SetEmbeddedSupport(
            {.folder = arrivals.Folder(), .registerFunctions = RegisterEmbeddedFunctions});
        connection.Open(ManyArrivals::ConnectionText);
        connection.CursorLocation = adUseClient;
    }
    return connection;
}

std::unique_ptr<Report> FilledSlip() {
    auto slip = std::make_unique<CrpCottonWeighment>();
    auto rows = std::make_shared<Recordset>();
    rows->Open(SlipStatement(1), Database(), adOpenStatic, adLockReadOnly, adCmdUnspecified);
    FillSlip(*slip, SampleContent(std::move(rows)));
    return slip;
}

/// A page at a usual screen resolution.
QImage ScreenPage() {
    QImage image(794, 1123, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    return image;
}

void PaintFirstPage(const ReportPainter& pages, QImage& image) {
    image.fill(Qt::white);
    QPainter painter(&image);
    pages.PaintPage(painter, 1);
}

void PaintReadyPage(benchmark::State& state) {
    const auto slip = FilledSlip();
    const ReportPainter pages(*slip);
    QImage image = ScreenPage();
    for (auto _ : state)
        PaintFirstPage(pages, image);
}
BENCHMARK(PaintReadyPage)->Unit(benchmark::kMicrosecond);

void PaintPageFromRows(benchmark::State& state) {
    QImage image = ScreenPage();
    for (auto _ : state) {
        const auto slip = FilledSlip();
        PaintFirstPage(ReportPainter(*slip), image);
    }
}
BENCHMARK(PaintPageFromRows)->Unit(benchmark::kMicrosecond);

/// Opens the preview window, paints its page and closes it.
void PaintPreview(RptReportViewer& viewer) {
    viewer.Show();
    QImage image(viewer.size(), QImage::Format_RGB32);
    viewer.render(&image);
    viewer.Unload();
}

void PaintPreviewOfReadySlip(benchmark::State& state) {
    RptReportViewer viewer;
    viewer.Report = FilledSlip();
    for (auto _ : state)
        PaintPreview(viewer);
}
BENCHMARK(PaintPreviewOfReadySlip)->Unit(benchmark::kMicrosecond);

/// The work of the print button up to the first painted page of the preview.
void PaintPreviewFromClick(benchmark::State& state) {
    RptReportViewer viewer;
    for (auto _ : state) {
        viewer.Report = FilledSlip();
        PaintPreview(viewer);
    }
}
BENCHMARK(PaintPreviewFromClick)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
