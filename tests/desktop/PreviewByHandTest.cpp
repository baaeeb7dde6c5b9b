// The preview on a real display: what the display's server holds, and not what the program meant to
// paint.

#include "StoredLoad.h"
#include "slip/RptReportViewer.h"

#include <QAbstractScrollArea>
#include <QScreen>

namespace Quillane::Testing {
namespace {

class PreviewByHand : public StoredLoad {
protected:
    /// The pages as the display shows them are as they would be painted again.
    static bool IsShownWhole(RptReportViewer& viewer) {
        auto& pages = dynamic_cast<QAbstractScrollArea&>(viewer.CRViewer91.FocusWidget());
        QWidget& shown = *pages.viewport();
        const QPoint corner = shown.mapToGlobal(QPoint(0, 0));
        const QImage seen =
            viewer.screen()
                ->grabWindow(0, corner.x(), corner.y(), shown.width(), shown.height())
                .toImage();
        const QImage meant = shown.grab().toImage();
        return seen.convertToFormat(QImage::Format_RGB32) ==
               meant.convertToFormat(QImage::Format_RGB32);
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

TEST_F(PreviewByHand, OfEachSlipHoldsNothingOfTheOneBefore) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        for (const int id : {1037, 1031, 1039})
            LookAtSlip(by, screen, id);
    });
}

} // namespace
} // namespace Quillane::Testing
