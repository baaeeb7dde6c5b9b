#pragma once

#include "Station.h"
#include "platform/forms/grids/SSOleDBGrid.h"

namespace Quillane::Testing {

/// A station whose operator works on loads that are stored already. The weighment screen is new,
/// with the focus on its id and 12540 kg on the scale.
class StoredLoad : public Station {
protected:
    /// Waits until the stored load is on the screen and the focus is on the date.
    static void UntilStored(const Operator& by, const FrmWeighment& screen, int id) {
        by.UntilInFront("Weighment for Veltrane");
        by.Until("the stored load", [&] {
            return screen.TxtArrivalId.Text() == std::to_string(id) && screen.IsOpened;
        });
        by.UntilActive("DtpArrivalDate");
        EXPECT_EQ(Buttons(by, screen), "Open Remove Print ");
        EXPECT_EQ(by.See([&] { return screen.ArrivalNo; }), id);
        EXPECT_FALSE(by.See([&] { return screen.TxtArrivalId.Enabled(); }));
    }

    /// An empty screen with this id.
    static void UntilNew(const Operator& by, const FrmWeighment& screen, int id) {
        by.UntilInFront("Weighment for Veltrane");
        by.Until("a new weighment", [&] {
            return screen.TxtArrivalId.Text() == std::to_string(id) && !screen.IsOpened;
        });
        EXPECT_EQ(Buttons(by, screen), "Open ");
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "");
    }

    /// The enabled buttons among those that show the state of the screen.
    static std::string Buttons(const Operator& by, const FrmWeighment& screen) {
        return by.See([&] {
            std::string on;
            for (const auto& [button, name] :
                 {std::pair{&screen.BtnSave, "Save "}, std::pair{&screen.BtnOpen, "Open "},
                  std::pair{&screen.BtnRemove, "Remove "}, std::pair{&screen.BtnPrint, "Print "}})
                if (button->Enabled())
                    on += name;
            return on;
        });
    }

    /// Opens a load from the id of a new weighment, or from the date, where the focus is after the
    /// first one.
    static void OpenTyped(Operator& by, const FrmWeighment& screen, int id) {
        if (by.See([&] { return screen.ActiveControlName(); }) == "DtpArrivalDate")
            by.Press({"shift+Tab"});
        by.UntilActive("TxtArrivalId");
        by.Type(std::to_string(id));
        by.Press({"Return"});
        UntilStored(by, screen, id);
    }

    /// The middle of a line of a search's list; the first line is 0.
    static QPoint LineOf(const Operator& by, SSOleDBGrid& grid, int line) {
        const QPoint place = by.See([&] {
            const QWidget& list = grid.Widget();
            const int height = list.fontMetrics().height() * 3 / 2;
            return QPoint(list.width() / 3, 2 + height * (line + 1) + height / 2);
        });
        return by.OnDisplay(grid.Widget(), place);
    }
};

} // namespace Quillane::Testing
