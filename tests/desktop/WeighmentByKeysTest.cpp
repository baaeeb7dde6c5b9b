// The main job of the station from the sign-in to the slip, with the keyboard only.

#include "Station.h"
#include "platform/forms/core/Text.h"

#include <QDate>

namespace Quillane::Testing {
namespace {

/// The weights and the entries of a load.
struct Load {
    int initialGross;
    int tare;
    int gross;
    const char* deduction;
    const char* firstBags;
    const char* secondBags;
};

constexpr Load EightTonnes{12540, 4320, 8220, "17", "60", "40"};

class WeighmentByKeys : public Station {
protected:
    /// Enters commodity, seller type and seller, starting at the arrival's id.
    static void EnterHead(Operator& by, FrmWeighment& screen) {
        by.UntilActive("TxtArrivalId");
        by.Picture("new");
        by.Press({"Return"});
        by.UntilActive("DtpArrivalDate");
        by.Press({"Return"});
        by.UntilActive("CboCommodity");
        by.Type("Wheat");
        by.Press({"Return"});
        by.UntilActive("CboSellerType");
        EXPECT_EQ(by.See([&] { return screen.CboSellerType.Text(); }), "ALL");
        by.Press({"Return"});
        by.UntilActive("CboSeller");
        by.Type("chau");
        by.Until("the seller's name", [&] {
            return screen.CboSeller.Text() == "Chaudhry Grain Traders-Okara" &&
                   screen.CboSeller.IsDroppedDown();
        });
        by.Picture("open-list");
        by.Press({"Return"});
        by.UntilActive("CmdGrossWeight");
    }

    void Weigh(Operator& by, FrmWeighment& screen, const Load& load) {
        Indicate(by, "weight " + std::to_string(load.initialGross));
        by.UntilReading(load.initialGross);
        by.Press({"space"});
        by.UntilActive("CmdTareWeight");
        EXPECT_EQ(by.See([&] { return screen.TxtInitialGrossWeight.Text(); }),
                  std::to_string(load.initialGross));
        Indicate(by, "weight " + std::to_string(load.tare));
        by.UntilReading(load.tare);
        by.Press({"space"});
        by.UntilActive("TxtVehicleNo");
        EXPECT_EQ(by.See([&] { return screen.TxtTareWeight.Text(); }), std::to_string(load.tare));
        EXPECT_EQ(by.See([&] { return screen.TxtGrossWeight.Text(); }), std::to_string(load.gross));
    }

    static void EnterRest(Operator& by, const Load& load) {
        by.Type("LEA-4521");
        by.Press({"Return"});
        by.UntilActive("TxtBuiltyNo");
        by.Type("8811");
        by.Press({"Return"});
        by.UntilActive("TxtDriverName");
        by.Type("Ghulam Abbas");
        by.Press({"shift+Tab", "shift+Tab", "shift+Tab"});
        by.UntilActive("TxtDeduction");
        by.Type(load.deduction);
        by.Press({"shift+Tab"});
        by.UntilActive("Grid");
    }

    static void EnterBagLines(Operator& by, FrmWeighment& screen, const Load& load) {
        by.Type("jute n");
        by.Press({"Right"});
        by.Type("100");
        by.Press({"Right"});
        by.Type(load.firstBags);
        by.Press({"Down", "Left", "Left"});
        by.Type("jute o");
        by.Until("the name in the cell's list", [&] { return screen.Grid.IsEditing(); });
        by.Picture("grid-edited");
        by.Press({"Right"});
        by.Type("100");
        by.Press({"Right"});
        by.Type(load.secondBags);
        by.Press({"Return"});
        by.UntilActive("TxtDeduction");
        by.Picture("changed");
    }

    void ExpectStoredRows(const std::string& today) const {
        EXPECT_EQ(Stored("Select ArrivalID, ArrivalDate, PermitNo, CenterId, CommodityId, SellerId,"
                         " ContractId, IsPosted From Arrivals Where ArrivalID > 1042"),
                  (std::vector<Row>{
                      {"1043", today + "T00:00:00", "Null", "Null", "1", "6010001", "Null", "0"}}));
        EXPECT_EQ(
            Stored("Select CommodityId, BagsClassId, BagsTypeId, NoOfBags, VehicleNo,"
                   " TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction,"
                   " NetWeight, DriverName, BiltyNo, VehicleNoText"
                   " From ArrivalsBody Where ArrivalId = 1043 Order By NoOfBags Desc"),
            (std::vector<Row>{
                {"1", "1", "1", "60", "LEA-4521", "4320", "0", "82.200000000000003", "0",
                 "10.200000000000001", "4921.8000000000002", "Ghulam Abbas", "8811", "LEA-4521"},
                {"1", "2", "1", "40", "", "0", "0", "82.200000000000003", "0", "6.8000000000000007",
                 "3281.1999999999998", "Ghulam Abbas", "8811", "LEA-4521"}}));
    }
};

TEST_F(WeighmentByKeys, GoesFromTheSignInToTheSlipAndStoresItsFigures) {
    const std::string today = FromQt(QDate::currentDate().toString(Qt::ISODate));
    WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
        EnterHead(by, screen);
        Weigh(by, screen, EightTonnes);
        EnterRest(by, EightTonnes);
        EnterBagLines(by, screen, EightTonnes);
        EXPECT_EQ(by.See([&] { return screen.TxtNetWeight.Text(); }), "8203");
        EXPECT_EQ(by.See([&] { return screen.TxtMoundKgs.Text(); }), "205-3");
        by.Press({"ctrl+s"});
        by.ExpectBox("Alert", "Are you sure to save this Weighment?");
        by.Picture("save-question");
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
        by.ExpectBox("Confirmation", "Do you want to print?");
        ExpectStoredRows(today);
        by.Answer("Confirmation", "Do you want to print?", {"y"});
        by.UntilInFront("Previewing Report");
        by.Picture("slip");
        by.Press({"Escape"});
        by.UntilInFront("Weighment for Veltrane");
        by.UntilActive("DtpArrivalDate");
        by.Until("the next id", [&] { return screen.TxtArrivalId.Text() == "1044"; });
        EXPECT_EQ(by.See([&] { return screen.TxtNetWeight.Text(); }), "0");
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "");
        EXPECT_FALSE(by.See([&] { return screen.BtnSave.Enabled(); }));
        // The line continues to be read, for the next load.
        by.UntilReading(4320);
        by.Picture("next");
    });
    ExpectStoredRows(today);
}

TEST_F(WeighmentByKeys, DividesALoadOver30And10BagsExactly) {
    constexpr Load fourTonnes{8320, 4320, 4000, "40", "30", "10"};
    WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
        EnterHead(by, screen);
        Weigh(by, screen, fourTonnes);
        EnterRest(by, fourTonnes);
        EnterBagLines(by, screen, fourTonnes);
        // The box is never shown, so no key reaches it.
        by.See([&] { screen.TxtShortage.SetText("20"); });
        EXPECT_EQ(by.See([&] { return screen.TxtNetWeight.Text(); }), "3940");
        by.Press({"ctrl+s"});
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
        by.Answer("Confirmation", "Do you want to print?", {"Return"});
        by.Until("the next id", [&] { return screen.TxtArrivalId.Text() == "1044"; });
    });
    EXPECT_EQ(
        Stored("Select NoOfBags, VehicleNo, TareWeight, ScaleDeduction, BagWeight,"
               " BagsDeduction, OtherDeduction, NetWeight, VehicleNoText"
               " From ArrivalsBody Where ArrivalId = 1043 Order By NoOfBags Desc"),
        (std::vector<Row>{{"30", "LEA-4521", "4320", "0", "100", "0", "45", "2955", "LEA-4521"},
                          {"10", "", "0", "0", "100", "0", "15", "985", "LEA-4521"}}));
}

TEST_F(WeighmentByKeys, DefaultAnswerPrintsNothing) {
    WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
        EnterAllButBagLines(by);
        by.Press({"shift+Tab"});
        by.Type("loose");
        by.Press({"Right"});
        by.Type("g");
        by.Press({"Right"});
        by.Type("1");
        by.Press({"ctrl+s"});
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
        by.Answer("Confirmation", "Do you want to print?", {"Return"});
        by.Until("the next id", [&] { return screen.TxtArrivalId.Text() == "1044"; });
        by.UntilInFront("Weighment for Veltrane");
    });
    EXPECT_EQ(Stored("Select BagsClassId, BagsTypeId, NoOfBags, BagWeight From ArrivalsBody"
                     " Where ArrivalId = 1043"),
              (std::vector<Row>{{"4", "4", "1", "12540"}}));
}

TEST_F(WeighmentByKeys, SaveAnsweredNoKeepsTheEntries) {
    WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
        EnterAllButBagLines(by);
        by.Press({"ctrl+s"});
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Escape"});
        by.UntilInFront("Weighment for Veltrane");
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "LEA-4521");
        EXPECT_TRUE(by.See([&] { return screen.BtnSave.Enabled(); }));
    });
    EXPECT_EQ(Stored("Select Max(ArrivalID) From Arrivals"), (std::vector<Row>{{"1042"}}));
}

} // namespace
} // namespace Quillane::Testing
