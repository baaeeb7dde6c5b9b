// The whole life of a weighment by keys on a real window: saved, found, opened, changed, saved
// again, printed again and removed; its number is given to the next one.

#include "StoredLoad.h"
#include "search/SchArrivals.h"

namespace Quillane::Testing {
namespace {

constexpr const char* BodyQuery =
    "Select BagsClassId, BagsTypeId, NoOfBags, VehicleNo, TareWeight, BagWeight, OtherDeduction,"
    " NetWeight, DriverName, VehicleNoText From ArrivalsBody Where ArrivalId = 1043"
    " Order By LineId";

class StoredLoadByKeys : public StoredLoad {
protected:
    static void Save(Operator& by, FrmWeighment& screen) {
        by.Press({"ctrl+s"});
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
        by.Answer("Confirmation", "Do you want to print?", {"n"});
        UntilNew(by, screen, 1044);
    }

    /// A load that has been weighed full; its empty vehicle has not been weighed yet.
    void SaveFirstWeighing(Operator& by, FrmWeighment& screen) {
        EnterAllButBagLines(by);
        by.Press({"shift+Tab"});
        by.UntilActive("Grid");
        by.Type("jute n");
        by.Press({"Right"});
        by.Type("100");
        by.Press({"Right"});
        by.Type("60");
        Save(by, screen);
        EXPECT_EQ(Stored(BodyQuery), (std::vector<Row>{{"1", "1", "60", "LEA-4521", "0", "209", "0",
                                                        "12540", "", "LEA-4521"}}));
    }

    /// Finds a load by its party's name: Enter moves to that box, and Enter again to the list.
    static void Find(Operator& by, FrmWeighment& screen) {
        by.Press({"ctrl+o"});
        by.UntilInFront("Search Arrivals");
        by.UntilActive("TxtFilterId");
        by.Press({"Return"});
        by.UntilActive("TxtFilter");
        by.Type("chaudhry");
        by.Press({"Return"});
        by.UntilActive("GrdSch");
        by.Press({"Return"});
        UntilStored(by, screen, 1043);
    }

    /// The tare, a second bag line, a deduction and a driver.
    void WeighEmpty(Operator& by, FrmWeighment& screen) {
        EXPECT_TRUE(by.See([&] { return screen.CmdTareWeight.Enabled(); }));
        EXPECT_EQ(by.See([&] { return screen.TxtInitialGrossWeight.Text(); }), "12540");
        Indicate(by, "weight 4320");
        by.UntilReading(4320);
        by.Press({"Return", "Return", "Return", "Return", "Return"});
        by.UntilActive("CmdTareWeight");
        EXPECT_EQ(Buttons(by, screen), "Save ") << "moving through a load begins a change";
        by.Press({"space"});
        by.UntilActive("TxtVehicleNo");
        by.Press({"Return", "Return"});
        by.UntilActive("TxtDriverName");
        by.Type("Ghulam");
        by.Press({"shift+Tab", "shift+Tab", "shift+Tab"});
        by.UntilActive("TxtDeduction");
        by.Type("17");
        by.Press({"shift+Tab"});
        by.UntilActive("Grid");
        by.Press({"Down"});
        by.Type("jute o");
        by.Press({"Right"});
        by.Type("100");
        by.Press({"Right"});
        by.Type("40");
        Save(by, screen);
    }

    static void PrintAgain(Operator& by, FrmWeighment& screen) {
        OpenTyped(by, screen, 1043);
        EXPECT_FALSE(by.See([&] { return screen.CmdTareWeight.Enabled(); }));
        by.Press({"F9"});
        by.UntilInFront("Previewing Report");
        by.Picture("printed-again");
        by.Press({"Escape"});
        UntilStoredUnfocused(by, screen);
    }
    static void UntilStoredUnfocused(const Operator& by, const FrmWeighment& screen) {
        by.UntilInFront("Weighment for Veltrane");
        EXPECT_EQ(Buttons(by, screen), "Open Remove Print ");
    }
};

TEST_F(StoredLoadByKeys, IsFoundChangedPrintedAgainAndRemovedAndItsNumberGivenToTheNext) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        SaveFirstWeighing(by, screen);
        Find(by, screen);
        WeighEmpty(by, screen);
        const std::vector<Row> changed{
            {"1", "1", "60", "LEA-4521", "4320", "82.200000000000003", "10.200000000000001",
             "4921.8000000000002", "Ghulam", "LEA-4521"},
            {"2", "1", "40", "", "0", "82.200000000000003", "6.8000000000000007",
             "3281.1999999999998", "Ghulam", "LEA-4521"}};
        EXPECT_EQ(Stored(BodyQuery), changed) << "the body rows are replaced, none is added";
        PrintAgain(by, screen);
        EXPECT_EQ(Stored(BodyQuery), changed);

        by.Press({"ctrl+shift+Delete"});
        by.Answer("Alert", "Are you sure to remove this arrival?", {"n"});
        EXPECT_EQ(Stored(BodyQuery), changed);
        by.Press({"ctrl+shift+Delete"});
        by.Answer("Alert", "Are you sure to remove this arrival?", {"Return"});
        UntilNew(by, screen, 1043);
        by.UntilActive("DtpArrivalDate");
        EXPECT_EQ(Stored(BodyQuery), std::vector<Row>{});
        EXPECT_EQ(Stored("Select Max(ArrivalID) From Arrivals"), (std::vector<Row>{{"1042"}}));

        Indicate(by, "weight 12540");
        by.Press({"shift+Tab"});
        SaveFirstWeighing(by, screen);
    });
    EXPECT_EQ(Stored("Select SellerId From Arrivals Where ArrivalID = 1043"),
              (std::vector<Row>{{"6010001"}}));
    EXPECT_EQ(boxes->MostAtOnce(), 1U);
}

TEST_F(StoredLoadByKeys, IsNotRemovedIfAPurchaseUsesIt) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        OpenTyped(by, screen, 1035);
        by.Press({"ctrl+shift+Delete"});
        by.Answer("Alert", "Are you sure to remove this arrival?", {"Return"});
        by.Answer("Alert", "Cannot remove this invoice because it is used in (PurchaseBody) table",
                  {"Return"});
        UntilStored(by, screen, 1035);
        by.ClickInto(screen.TxtDriverName);
        by.Press({"End"});
        by.Type(" Khan");
        by.Press({"ctrl+s"});
        by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
        by.Answer("Alert", "Cannot updated this invoice because it is used in (PurchaseBody) table",
                  {"Return"});
        by.UntilInFront("Weighment for Veltrane");
        EXPECT_EQ(by.See([&] { return screen.TxtDriverName.Text(); }), "Shabbir Ahmad Khan");
        EXPECT_EQ(Buttons(by, screen), "Save ");
    });
    EXPECT_EQ(Stored("Select DriverName From ArrivalsBody Where ArrivalId = 1035"),
              (std::vector<Row>{{"Shabbir Ahmad"}}));
}

TEST_F(StoredLoadByKeys, CannotBeRemovedByAUserOfTheSecondLevel) {
    Work([this](Operator& by) {
        by.SignIn("gate", "gate");
        FrmWeighment& screen = by.OpenWeighment();
        OpenTyped(by, screen, 1040);
        by.Press({"ctrl+shift+Delete"});
        by.Answer("Alert", "You are not authorised to do this operation", {"Return"});
        UntilStored(by, screen, 1040);
    });
    EXPECT_EQ(Stored("Select Count(*) From ArrivalsBody Where ArrivalId = 1040"),
              (std::vector<Row>{{"2"}}));
}

TEST_F(StoredLoadByKeys, ReplacesUnsavedEntriesWithoutAQuestion) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.Click(screen.TxtVehicleNo);
        by.Type("k5");
        by.Until("the changed screen", [&] { return screen.BtnSave.Enabled(); });
        by.Press({"ctrl+o"});
        by.ClickInto(screen.TxtArrivalId);
        by.Press({"ctrl+a"});
        OpenTyped(by, screen, 1031);
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "LEA-4521");
        EXPECT_EQ(by.See([&] { return screen.TxtNetWeight.Text(); }), "8203");
    });
    EXPECT_TRUE(boxes->All().empty()) << "Ctrl+O does nothing either";
}

TEST_F(StoredLoadByKeys, WithAnIdBeyond16BitsIsOpenedOnlyFromTheSearch) {
    RunBeside("Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Select 40000,"
              " ArrivalDate, CommodityId, SellerId From Arrivals Where ArrivalID = 1042");
    RunBeside("Insert Into ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, NoOfBags,"
              " VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, OtherDeduction,"
              " NetWeight) Values (40000, 1, 1, 1, 50, 'ZZ-9', 3000, 0, 80, 0, 0, 4000)");
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilActive("TxtArrivalId");
        by.Type("40000");
        by.Press({"Return"});
        by.Answer("Quillane", "Overflow", {"Return"});
        by.UntilActive("DtpArrivalDate");
        EXPECT_FALSE(by.See([&] { return screen.IsOpened; }));
        by.Press({"ctrl+l"});
        by.Answer("Alert", "Are you sure to clear the entries?", {"Return"});
        UntilNew(by, screen, 40001);
        by.Press({"ctrl+o"});
        by.UntilInFront("Search Arrivals");
        by.Type("40000");
        by.Press({"Return", "Return"});
        by.UntilActive("GrdSch");
        by.Press({"Return"});
        UntilStored(by, screen, 40000);
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "ZZ-9");
    });
}

} // namespace
} // namespace Quillane::Testing
