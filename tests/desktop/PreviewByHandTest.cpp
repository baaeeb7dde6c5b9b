// The preview on a real display: the pixels of the display server, not those that the program has
// painted.

#include "StoredLoad.h"
#include "slip/RptReportViewer.h"

#include <QAbstractScrollArea>
#include <QScreen>

namespace Quillane::Testing {
namespace {

class PreviewByHand : public StoredLoad {
protected:
    /// Waits until the display shows the pages as the program would paint them again.
    static bool IsShownWhole(RptReportViewer& viewer) {
        auto& pages = dynamic_cast<QAbstractScrollArea&>(viewer.CRViewer91.FocusWidget());
        QWidget& shown = *pages.viewport();
        const QPoint corner = shown.mapToGlobal(QPoint(0, 0));
        const QImage seen =
            viewer.screen()
                ->grabWindow(0, corner.x(), corner.y(), shown.width(), shown.height())
                .toImage();
        const QImage expected = shown.grab().toImage();
        return seen.convertToFormat(QImage::Format_RGB32) ==
               expected.convertToFormat(QImage::Format_RGB32);
    }
    static void LookAtSlip(Operator& by, FrmWeighment& screen, int id) {
        OpenTyped(by, screen, id);
        by.Click(screen.BtnPrint);
        by.UntilInFront("Previewing Report");
        auto& viewer = by.Shown<RptReportViewer>();
        by.Until("the whole slip of " + std::to_string(id) + " on the display",
                 [&] { return IsShownWhole(viewer); });
        by.Picture("slip-of-" + std::to_string(id));
        by.Press({"Escape"});
        by.UntilInFront("Weighment for Veltrane");
        by.Press({"ctrl+l"});
        UntilNew(by, screen, 1043);
    }
};

TEST_F(PreviewByHand, OfEachSlipShowsNothingOfThePreviousOne) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        for (const int id : {1037, 1031, 1039})
            LookAtSlip(by, screen, id);
    });
}

} // namespace
} // namespace Quillane::Testing
