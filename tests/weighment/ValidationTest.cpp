// The eight steps that a weighment passes before it is saved.

#include "weighment/WeighmentFixture.h"

namespace Quillane::Testing {
namespace {

const std::string NewId =
    "Box \"Quillane\" [no icon, OK] Invalid Arrival ID. A new Arrival ID has been automatically "
    "generated. Please save again";
const std::string NoParty =
    "Box \"Alert\" [exclamation, OK] Please select a valid Party and try again";
const std::string NoCommodity =
    "Box \"Alert\" [exclamation, OK] Please select a valid commodity and try again";
const std::string NoVehicle =
    "Box \"Alert\" [exclamation, OK] Please provide vehicle no. and try again";
const std::string NoGross = "Box \"Alert\" [exclamation, OK] Gross weight cannot be empty or zero";
const std::string NoLines =
    "Box \"Alert\" [exclamation, OK] Please Enter atleast one bag type and save again.";
const std::string IdTaken =
    "Box \"Alert\" [exclamation, OK] The Arrival ID already exists. A new Arrival ID has been "
    "generated. Please save your record again";
const std::string Posted =
    "Box \"Alert!\" [exclamation, OK] You are not authorised to modify this posted record.";
const std::string NoFocus = "Box \"Quillane\" [critical, OK] Invalid procedure call or argument";
const std::string NextId = "Select IsNull(Max(ArrivalID),0)+1 From Arrivals";

std::string IdCount(const std::string& id) {
    return "Select Count(*) From Arrivals Where ArrivalID = " + id;
}

std::string PostedRule(const std::string& id) {
    return "Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = " +
           id;
}

Lines MovedTo(const std::string& name) {
    return {"Validate BtnSave", "LostFocus BtnSave", "GotFocus " + name};
}

class Validation : public WeighmentScreenTest {
protected:
    void Expect(bool result, const Lines& lines) {
        Trace trace(*screen, line);
        EXPECT_EQ(screen->ValidateWeighment(), result);
        EXPECT_EQ(trace.Take(), lines);
    }
};

TEST_F(Validation, OfACompleteWeighmentQueriesOnlyTheIdAndTheRule) {
    FillIn();
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

TEST_F(Validation, ReportsOnlyTheFirstStepThatFails) {
    FillIn();
    screen->TxtArrivalId.SetText("");
    screen->CboSeller.SetText("");
    screen->CboCommodity.SetText("");
    screen->TxtVehicleNo.SetText("");
    screen->TxtGrossWeight.SetText("");
    SetBagLines({});
    Expect(false, Joined({{NewId, NextId, "TxtArrivalId = '1043'"}, MovedTo("TxtArrivalId")}));
    screen->BtnSave.SetFocus();
    Expect(false, Joined({{NoParty}, MovedTo("CboSeller")}));
    screen->CboSeller.SetText("Malik Wheat Store-Sahiwal");
    screen->BtnSave.SetFocus();
    Expect(false, Joined({{NoCommodity}, MovedTo("CboCommodity")}));
    screen->CboCommodity.SetText("Wheat Seed");
    screen->BtnSave.SetFocus();
    Expect(false, Joined({{NoVehicle}, MovedTo("TxtVehicleNo")}));
    screen->TxtVehicleNo.SetText("LEB-1");
    screen->BtnSave.SetFocus();
    Expect(false, {NoGross, NoFocus});
    screen->TxtGrossWeight.SetText("100");
    Expect(false, {NoLines});
    SetBagLines({{"Jute New", "100 Kg", "1"}});
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

// ---- step 1 ----

TEST_F(Validation, ReplacesAnIdThatIsNotANumberAboveZero) {
    FillIn();
    for (const std::string id : {"", "   ", "abc", "0", "0.0", "-0", "x12"}) {
        screen->TxtArrivalId.SetText(id);
        screen->BtnSave.SetFocus();
        Expect(false, Joined({{NewId, NextId, "TxtArrivalId = '1043'"}, MovedTo("TxtArrivalId")}));
        EXPECT_EQ(screen->ArrivalNo, 1043) << id;
    }
}

TEST_F(Validation, ReadsTheIdFromTheBeginningOfTheText) {
    FillIn();
    for (const auto& [text, id] : {std::pair("12 b", "12"),
                                   {" 1 2 ", "12"},
                                   {"12.5", "12.5"},
                                   {"-7", "-7"},
                                   {"1e3", "1000"}}) {
        screen->TxtArrivalId.SetText(text);
        Expect(true, {IdCount(id), PostedRule(id)});
    }
}

TEST_F(Validation, KeepsTheFocusIfTheIdIsDisabled) {
    FillIn();
    screen->TxtArrivalId.SetText("");
    screen->TxtArrivalId.SetEnabled(false);
    Expect(false, {NewId, NextId, "TxtArrivalId = '1043'"});
    EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
}

TEST_F(Validation, KeepsTheFocusIfTheIdIsNotShown) {
    FillIn();
    screen->TxtArrivalId.SetText("");
    screen->TxtArrivalId.SetVisible(false);
    Expect(false, {NewId, NextId, "TxtArrivalId = '1043'"});
    EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
}

TEST_F(Validation, GivesTheFirstArrivalEverTheIdOne) {
    FillIn();
    RunBeside("DELETE FROM LaboratoryReports; DELETE FROM PurchaseBody; DELETE FROM ArrivalsBody; "
              "DELETE FROM Arrivals");
    screen->TxtArrivalId.SetText("none");
    Expect(false, Joined({{NewId, NextId, "TxtArrivalId = '1'"}, MovedTo("TxtArrivalId")}));
    EXPECT_EQ(screen->ArrivalNo, 1);
}

TEST_F(Validation, ThatTookANewIdSavesOnTheNextPress) {
    FillIn();
    screen->TxtArrivalId.SetText("abc");
    Trace trace(*screen, line);
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "1042");
    EXPECT_TRUE(screen->BtnSave.Enabled());
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    screen->BtnSave_Click();
    EXPECT_EQ(StoredCell("SELECT max(ArrivalID) FROM Arrivals"), "1043");
}

// ---- steps 2 to 4 ----

TEST_F(Validation, OfThePartyHasNoOtherControlToMoveTo) {
    FillIn();
    screen->CboSeller.SetText("");
    screen->CboSeller.SetEnabled(false);
    Expect(false, {NoParty, NoFocus});
    EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
}

TEST_F(Validation, OfTheCommodityMovesToTheDateIfTheListIsDisabled) {
    FillIn();
    screen->CboCommodity.SetText("");
    screen->CboCommodity.SetEnabled(false);
    Expect(false, Joined({{NoCommodity}, MovedTo("DtpArrivalDate")}));
}

TEST_F(Validation, OfTheVehicleMovesToTheGridIfTheBoxIsDisabled) {
    FillIn();
    screen->TxtVehicleNo.SetText("");
    screen->TxtVehicleNo.SetEnabled(false);
    Expect(false, Joined({{NoVehicle}, MovedTo("Grid")}));
}

TEST_F(Validation, AcceptsBlanksAsAVehicleAndAsNames) {
    FillIn();
    screen->TxtVehicleNo.SetText(" ");
    screen->CboSeller.SetText(" ");
    screen->CboCommodity.SetText(" ");
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

// ---- step 5 ----

TEST_F(Validation, OfNoGrossWeightShowsTwoBoxesAndKeepsTheFocus) {
    FillIn();
    for (const std::string gross : {"", "00", "0.0", "kg"}) {
        screen->TxtGrossWeight.SetText(gross);
        Expect(false, {NoGross, NoFocus});
        EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
        EXPECT_TRUE(screen->BtnSave.Enabled());
    }
}

TEST_F(Validation, OfNoGrossWeightShowsOneBoxIfTheHeapNumberIsDisabled) {
    FillIn();
    screen->TxtGrossWeight.SetText("");
    screen->TxtHeapNo.SetEnabled(false);
    Expect(false, {NoGross});
}

TEST_F(Validation, AcceptsANegativeGrossWeight) {
    FillIn();
    screen->TxtGrossWeight.SetText("-40");
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

// ---- step 6 ----

TEST_F(Validation, OfNoBagLinesEnablesTheGridAndKeepsTheFocus) {
    FillIn();
    SetBagLines({});
    screen->Grid.SetEnabled(false);
    Expect(false, {NoLines});
    EXPECT_TRUE(screen->Grid.Enabled());
    EXPECT_EQ(screen->ActiveControlName(), "BtnSave");
}

TEST_F(Validation, AcceptsBagLinesWithoutBags) {
    FillIn();
    SetBagLines({{"Jute New", "100 Kg", ""}});
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

// ---- step 7 ----

TEST_F(Validation, OfAUsedIdTakesTheNextAndEnds) {
    FillIn();
    screen->TxtArrivalId.SetText("1031");
    Expect(false, Joined({{IdCount("1031"), IdTaken, NextId, "TxtArrivalId = '1043'"},
                          MovedTo("TxtArrivalId")}));
    EXPECT_EQ(screen->ArrivalNo, 1043);
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    screen->BtnSave.SetFocus();
    Expect(true, {IdCount("1043"), PostedRule("1043")});
}

TEST_F(Validation, OfAnOpenedArrivalDoesNotQueryItsId) {
    FillInOpened(1031);
    Expect(true, {PostedRule("1031")});
}

// ---- step 8 ----

TEST_F(Validation, LetsAUserOfFullRightsChangeAPostedArrival) {
    FillInOpened(1036);
    Expect(true, {PostedRule("1036")});
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

/// The same for a user of level 2.
class ValidationForRestrictedUsers : public Validation {
protected:
    void SetUp() override {
        SignInAsGate();
        ShowScreen();
    }
};

TEST_F(ValidationForRestrictedUsers, RefusesAPostedArrivalAndClosesTheSaveButton) {
    FillInOpened(1036);
    Expect(false, {PostedRule("1036"), Posted, "LostFocus BtnSave", "GotFocus BtnClear"});
    EXPECT_FALSE(screen->BtnSave.Enabled());
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1036");
}

TEST_F(ValidationForRestrictedUsers, WritesNothingOfAPostedArrival) {
    FillInOpened(1036);
    const auto header = StoredTable("Arrivals");
    Trace trace(*screen, line);
    screen->BtnSave_Click();
    EXPECT_EQ(StatementsOf(trace.Take()), Lines{PostedRule("1036")});
    EXPECT_EQ(StoredTable("Arrivals"), header);
}

TEST_F(ValidationForRestrictedUsers, AcceptsAnArrivalWhoseHeaderDoesNotHaveBothWeights) {
    FillInOpened(1040);
    for (const std::string weights :
         {"NoOfBags = Null, BagWeight = Null, TareWeight = Null",
          "NoOfBags = 20, BagWeight = 50, TareWeight = Null",
          "NoOfBags = 20, BagWeight = 50, TareWeight = 0",
          "NoOfBags = Null, BagWeight = 50, TareWeight = 4000",
          "NoOfBags = 20, BagWeight = Null, TareWeight = 4000",
          "NoOfBags = 0, BagWeight = 50, TareWeight = 4000",
          "NoOfBags = 20, BagWeight = 0, TareWeight = 4000",
          "NoOfBags = 0, BagWeight = 0, TareWeight = 0, IsPosted = 1"}) {
        RunBeside("UPDATE Arrivals SET " + weights + " WHERE ArrivalID = 1040");
        Expect(true, {PostedRule("1040")});
        EXPECT_TRUE(screen->BtnSave.Enabled()) << weights;
    }
}

TEST_F(ValidationForRestrictedUsers, RefusesByTheWeightsAndNotByTheFlag) {
    FillInOpened(1040);
    RunBeside("UPDATE Arrivals SET NoOfBags = 20, BagWeight = -0.5, TareWeight = 0.25, IsPosted = "
              "0 WHERE ArrivalID = 1040");
    Expect(false, {PostedRule("1040"), Posted, "LostFocus BtnSave", "GotFocus BtnClear"});
}

// ---- failures ----

TEST_F(Validation, ReportsAStatementThatFailsAndRefuses) {
    FillIn();
    database.Rename("Arrivals", "Away");
    const std::string box = DatabaseBox("no such table: Arrivals");
    Expect(false, {IdCount("1043"), box});
    screen->IsOpened = true;
    Expect(false, {PostedRule("1043"), box});
    screen->TxtArrivalId.SetText("");
    Expect(false, {NewId, NextId, box});
    EXPECT_EQ(screen->TxtArrivalId.Text(), "");
}

} // namespace
} // namespace Quillane::Testing
