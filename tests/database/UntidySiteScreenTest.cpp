// The weighment screen on a mill's realistic accounting database, with only a station's rights.

#include "database/SqlServerSite.h"

#include "data/CompanyProfile.h"
#include "platform/comm/PseudoTerminal.h"
#include "platform/runtime/Date.h"
#include "platform/runtime/Text.h"
#include "scale/FrmPortSettings.h"
#include "search/SchArrivals.h"
#include "search/SchParty.h"
#include "signin/PasswordHash.h"
#include "signin/UserLogin.h"
#include "slip/RptReportViewer.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"
#include "weighment/FrmWeighment.h"

#include <optional>

namespace Quillane {

namespace {

using namespace Testing;
using Texts = std::vector<std::string>;

const Box printBox{.text = "Do you want to print?",
                   .title = "Confirmation",
                   .icon = BoxIcon::Question,
                   .buttons = BoxButtons::YesNo,
                   .defaultButton = BoxAnswer::No};

/// The table's name as the site's catalogue spells it, which depends on the server.
Box UsedIn(const std::string& table) {
    return Alert("Cannot updated this invoice because it is used in (" + table + ") table",
                 BoxIcon::Exclamation);
}

} // namespace

class UntidySiteScreen : public SqlServerSite {
protected:
    void SetUp() override {
        SqlServerSite::SetUp();
        if (!Con)
            return;
        MakeUntidySite();
        ChangeSite();
        SetUpSqlServerDatabase(*Con, ParticularsOfServer());
        station.emplace(*Con, *database, "StationOperator");
        owner = Con.get();
        Con.swap(station->connection);
        CompanyProfile->SetConnection(*Con);
        CompanyProfile->Load();
        UserLogin->SetConnection(*Con);
        UserLogin->SignIn("Nadia", "grain");
        SetClock([] {
            return Date{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
        });
        MSComm::SetDevices([this](int) { return line.Device(); });
        screen = std::make_unique<FrmWeighment>();
        screen->Show();
    }
    void TearDown() override {
        screen.reset();
        MSComm::SetDevices({});
        SetClock({});
        CompanyProfile.Release();
        UserLogin.Release();
        if (station)
            Con.swap(station->connection);
        station.reset();
        SqlServerSite::TearDown();
    }

    /// Called before the set-up.
    virtual void ChangeSite() {}

    ScreenDriver Keys() { return ScreenDriver(*screen); }
    Texts Rows(const std::string& query) { return RowsOf(*owner, query); }
    void Open(std::int16_t id) { screen->LoadArrival(id); }
    /// The name of a table as the dependent-record test reports it.
    std::string TableAsTold(const std::string& name) {
        for (const std::string& row :
             Rows("Select name From sys.tables Where name = '" + name + "'"))
            return row;
        return name;
    }
    void SaveOpened() {
        screen->SetButtonState(2);
        screen->BtnSave_Click();
    }
    std::string Header(int id) {
        return Rows("Select RecordNo, ArrivalID, COMPANYID, PERMITNO, CENTERID, CONTRACTID, "
                    "ISPOSTED, NOOFBAGS, Notes From ARRIVALS Where ArrivalID = " +
                    std::to_string(id))
            .at(0);
    }
    Texts Body(int id) {
        return Rows("Select COMMODITYID, BAGSCLASSID, BAGSTYPEID, NOOFBAGS, RTRIM(VEHICLENO), "
                    "TAREWEIGHT, SCALEDEDUCTION, BAGWEIGHT, OTHERDEDUCTION, NETWEIGHT, "
                    "RTRIM(DRIVERNAME), RTRIM(BILTYNO), VEHICLENOTEXT, LineGross From ARRIVALSBODY "
                    "Where ARRIVALID = " +
                    std::to_string(id) + " Order By NOOFBAGS Desc, TAREWEIGHT Desc");
    }
    void SetBagLine(const char* bagClass, const char* bagType, const char* quantity) {
        Keys()
            .Type(bagClass)
            .Press(Qt::Key_Right)
            .Type(bagType)
            .Press(Qt::Key_Right)
            .Type(quantity);
    }

    PseudoTerminal line;
    std::optional<RoleMember> station;
    Connection* owner = nullptr;
    std::unique_ptr<FrmWeighment> screen;
};

TEST_F(UntidySiteScreen, ShowsTheNextIdAndFillsItsLists) {
    EXPECT_EQ(screen->TxtArrivalId.Text(), "16");
    EXPECT_EQ(screen->CboSeller.Array()->RowCount(), 3);
    EXPECT_EQ(screen->CboCommodity.Array()->RowCount(), 1);
    EXPECT_EQ(screen->CboBagClass.Array()->RowCount(), 2);
    EXPECT_EQ(screen->CboBagType.Array()->RowCount(), 2);
    EXPECT_EQ(Trim(screen->CboCommodity.Array()->Get(0, 0)), "Wheat");
    screen->PortSettingsRows.SetFilter("");
    EXPECT_EQ(screen->PortSettingsRows.RecordCount(), 5);
}

TEST_F(UntidySiteScreen, ANewWeighmentIsEnteredByKeysAndSaved) {
    Keys().Press(Qt::Key_Return).Press(Qt::Key_Return);
    Keys().Type("Wheat").Press(Qt::Key_Return).Press(Qt::Key_Return);
    Keys().Type("Zahid").Press(Qt::Key_Return);
    EXPECT_EQ(screen->CboSeller.Text(), "Zahid Traders (601)");
    screen->TxtInitialGrossWeight.SetText("12540");
    screen->TxtTareWeight.SetText("4320");
    screen->ComputeGrossWeight();
    screen->TxtDeduction.SetText("17");
    screen->TxtVehicleNo.SetText("LEB-4217");
    screen->TxtDriverName.SetText("Ghulam Rasool");
    screen->TxtBuiltyNo.SetText("B-7781");
    screen->Grid.SetFocus();
    SetBagLine("Jute", "100", "60");
    BoxAnswers answers;
    answers.Expect(Question("Are you sure to save this Weighment?"), BoxAnswer::Yes);
    answers.Expect(printBox, BoxAnswer::No);
    Keys().Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "17");
    EXPECT_EQ(Header(16), "6|16|1|Null|Null|Null|0|Null|Null");
    EXPECT_EQ(Body(16), Texts{"1|1|1|60|LEB-4217|4320|0|137|17|8203|Ghulam Rasool|B-7781|LEB-4217|"
                              "8220"});
}

TEST_F(UntidySiteScreen, AStoredArrivalIsOpened) {
    Open(11);
    EXPECT_TRUE(screen->IsOpened);
    EXPECT_EQ(screen->CboSeller.Text(), "Zahid Traders (601)");
    EXPECT_EQ(Trim(screen->CboCommodity.Text()), "Wheat");
    EXPECT_TRUE(screen->CboSeller.Bookmark().has_value());
    EXPECT_TRUE(screen->CboCommodity.Bookmark().has_value());
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "5005");
    EXPECT_EQ(screen->TxtTareWeight.Text(), "2000");
    EXPECT_EQ(screen->TxtDeduction.Text(), "75");
    EXPECT_EQ(screen->TxtNetWeight.Text(), "4930");
    EXPECT_EQ(screen->BagRows.RowCount(), 3);
    EXPECT_EQ(screen->BagRows.Get(0, 2), "30");
}

// Two of the lines are equal, and no line has a key. The site's own columns of the header do not
// change.
TEST_F(UntidySiteScreen, AStoredArrivalIsSavedAgain) {
    const std::string header = Header(11);
    Open(11);
    screen->TxtDriverName.SetText("Bashir");
    screen->TxtVehicleNo.SetText("LEA-2");
    BoxAnswers answers;
    answers.Expect(printBox, BoxAnswer::No);
    SaveOpened();
    EXPECT_EQ(Header(11), header);
    const Texts body = Body(11);
    ASSERT_EQ(body.size(), 3U);
    EXPECT_EQ(body[0], "1|1|1|30|LEA-2|2000|0|100.1|45|2958|Bashir|7|LEA-2|3003");
    EXPECT_EQ(body[1], body[2]);
    EXPECT_EQ(Rows("Select Count(*) From ARRIVALSBODY"), Texts{"4"});
}

// All lines except the first have no vehicle, which such a column pads with blanks. A text of
// blanks is not empty, and the last text is shown.
TEST_F(UntidySiteScreen, APaddedVehicleColumnShowsTheBlanksOfTheLastLine) {
    Open(11);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), std::string(10, ' '));
    Open(12);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "FDS-2     ");
}

TEST_F(UntidySiteScreen, AnArrivalThatTheBooksUseIsNotChanged) {
    struct Case {
        std::int16_t id;
        const char* table;
    };
    constexpr Case cases[] = {{12, "PURCHASEBODY"}, {13, "GateSamples"}, {14, "FreightClaims"}};
    owner->Execute("Insert Into ARRIVALSBODY (ARRIVALID, COMMODITYID, BAGSCLASSID, BAGSTYPEID, "
                   "NOOFBAGS, TAREWEIGHT, SCALEDEDUCTION, BAGWEIGHT, BAGSDEDUCTION, "
                   "OTHERDEDUCTION, NETWEIGHT) Values (13, 1, 1, 1, 5, 10, 0, 100, 0, 0, 500), "
                   "(14, 1, 1, 1, 5, 10, 0, 100, 0, 0, 500)");
    const auto contents = ContentsOf(*owner);
    for (const Case& each : cases) {
        screen->NewWeighment();
        Open(each.id);
        ASSERT_TRUE(screen->IsOpened) << each.id;
        screen->TxtVehicleNo.SetText("OTHER-1");
        BoxAnswers answers;
        answers.Expect(UsedIn(TableAsTold(each.table)));
        SaveOpened();
        EXPECT_EQ(ContentsOf(*owner), contents) << each.id;
    }
}

TEST_F(UntidySiteScreen, APostedArrivalIsRefusedToARestrictedUser) {
    owner->Execute(
        "Insert Into StationUsers (UserName, PasswordHash, UserLevel) Values ('gate', '" +
        HashPassword("gate", HashCost::Minimum) + "', 2)");
    UserLogin->ResetLogin(0);
    UserLogin->SignIn("gate", "gate");
    owner->Execute(
        "Insert Into ARRIVALSBODY (ARRIVALID, COMMODITYID, BAGSCLASSID, BAGSTYPEID, "
        "NOOFBAGS, VEHICLENO, TAREWEIGHT, SCALEDEDUCTION, BAGWEIGHT, BAGSDEDUCTION, "
        "OTHERDEDUCTION, NETWEIGHT) Values (15, 1, 1, 1, 5, 'X', 10, 0, 100, 0, 0, 500)");
    Open(15);
    BoxAnswers answers;
    answers.Expect({.text = "You are not authorised to modify this posted record.",
                    .title = "Alert!",
                    .icon = BoxIcon::Exclamation,
                    .buttons = BoxButtons::Ok});
    SaveOpened();
    EXPECT_FALSE(screen->BtnSave.Enabled());
}

TEST_F(UntidySiteScreen, AnArrivalIsFoundBySearch) {
    VisitModal search([](Screen& modal) {
        EXPECT_EQ(dynamic_cast<SchArrivals&>(modal).GrdSch.Rows(), 5);
        ScreenDriver(modal)
            .Type("11")
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return);
    });
    Keys().Press(Qt::CTRL | Qt::Key_O);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "11");
    EXPECT_EQ(screen->BagRows.RowCount(), 3);
}

TEST_F(UntidySiteScreen, TheSlipOfAStoredArrivalIsShown) {
    Open(11);
    VisitModal visit([](Screen& modal) {
        auto& viewer = dynamic_cast<RptReportViewer&>(modal);
        EXPECT_EQ(viewer.Report->Database.Data()->RecordCount(), 3);
        EXPECT_EQ(viewer.CRViewer91.PageCount(), 1);
        ScreenDriver(viewer).Press(Qt::Key_Escape);
    });
    screen->BtnPrint_Click();
}

TEST_F(UntidySiteScreen, TheSettingsOfTheLineAreSaved) {
    screen.reset();
    FrmPortSettings settings;
    settings.Show();
    BoxAnswers answers;
    answers.Expect({.text = "Settings Updated Successfully",
                    .title = "Confirmation",
                    .icon = BoxIcon::Information,
                    .buttons = BoxButtons::Ok});
    settings.TxtDataFrom.SetText("6");
    ScreenDriver(settings).Click(settings.CmdSave);
    EXPECT_EQ(Rows("Select RTRIM(REGISTRYKEY), REGISTRYVALUE From PORTSETTINGS Order By "
                   "REGISTRYKEY"),
              (Texts{"DataDirection|Left", "DataLength|6", "IsReversed|0", "PortName|1",
                     "PortSettings|2400,n,8,1"}));
}

/// The same site without its own function.
class UntidySiteWithOurFunctions : public UntidySiteScreen {
    void ChangeSite() override { Con->Execute("Drop Function dbo.fungetpartyname"); }
};

// Both queries return the names as the tables pad them, so that the party found by the search is a
// row of the list.
TEST_F(UntidySiteWithOurFunctions, APartyIsFoundBySearch) {
    screen->CboSeller.SetFocus();
    VisitModal search([](Screen& modal) {
        auto& found = dynamic_cast<SchParty&>(modal);
        ScreenDriver(modal).Type("Zahid").Click(found.CmdSelect);
    });
    Keys().Press(Qt::Key_F1);
    ASSERT_TRUE(screen->CboSeller.Bookmark());
    EXPECT_EQ(Trim(screen->CboSeller.ColumnText(1)), "601");
    EXPECT_TRUE(screen->CboSeller.Text().starts_with("Zahid Traders"));
}

TEST_F(UntidySiteScreen, AnArrivalIsRemovedWithItsLines) {
    Open(11);
    BoxAnswers answers;
    answers.Expect(Question("Are you sure to remove this arrival?"), BoxAnswer::Yes);
    screen->BtnRemove_Click();
    EXPECT_EQ(Rows("Select ArrivalID From ARRIVALS Order By ArrivalID"),
              (Texts{"12", "13", "14", "15"}));
    EXPECT_EQ(Rows("Select ARRIVALID From ARRIVALSBODY"), Texts{"12"});
}

TEST_F(UntidySiteScreen, AnArrivalWithAPurchaseIsNotRemoved) {
    const auto contents = ContentsOf(*owner);
    Open(12);
    BoxAnswers answers;
    answers.Expect(Question("Are you sure to remove this arrival?"), BoxAnswer::Yes);
    answers.Expect(Alert("Cannot remove this invoice because it is used in (PurchaseBody) table",
                         BoxIcon::Exclamation));
    screen->BtnRemove_Click();
    EXPECT_EQ(ContentsOf(*owner), contents);
}

TEST_F(UntidySiteScreen, ATextLongerThanItsColumnIsRefusedAndNothingIsLost) {
    const auto contents = ContentsOf(*owner);
    Open(11);
    screen->TxtVehicleNo.SetText("A vehicle of many letters");
    std::vector<Box> boxes;
    SetBoxPresenter({.message =
                         [&](const Box& box) {
                             boxes.push_back(box);
                             return BoxAnswer::Ok;
                         },
                     .input = [](const InputPrompt&) { return std::string(); }});
    SaveOpened();
    ForbidUnexpectedBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, "Database");
    EXPECT_EQ(ContentsOf(*owner), contents);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "A vehicle of many letters");
}

} // namespace Quillane
