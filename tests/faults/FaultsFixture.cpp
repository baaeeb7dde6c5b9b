#include "faults/FaultsFixture.h"

#include "data/Con.h"
#include "setup/SqlServerDatabaseSetup.h"
#include "station/StationDatabase.h"
#include "support/BoxAnswers.h"

namespace Quillane::Testing {

void FaultsTest::SetUp() {
    database.emplace();
    owner.Open(database->ConnectionString());
    SetUpSqlServerDatabase(owner, SampleParticulars());
    relay.emplace(database->ConnectionString());
    Restart();
}

void FaultsTest::TearDown() {
    station.reset();
    relay.reset();
    if (owner.State() == adStateOpen)
        owner.Close();
    ForbidUnexpectedBoxes();
}

void FaultsTest::Restart(int commandTimeout) {
    relay->Restore();
    station.reset();
    station.emplace(relay->ConnectionString(), commandTimeout);
    for (const Box& box : station->TakeBoxes())
        ADD_FAILURE() << box.text;
}

int FaultsTest::Stored(const std::string& driver) {
    Recordset arrivals = owner.Execute(
        "Select A.ArrivalID, Count(B.LineId) As Lines, Min(B.BiltyNo) As Entered, Sum(B.NetWeight) "
        "As "
        "Net From Arrivals A Left Outer Join ArrivalsBody B On B.ArrivalId = A.ArrivalID Where "
        "A.ArrivalID In (Select ArrivalId From ArrivalsBody Where DriverName = '" +
        driver + "') Group By A.ArrivalID");
    for (; !arrivals.Eof(); arrivals.MoveNext()) {
        EXPECT_EQ(arrivals.Fields("Lines").Text(), arrivals.Fields("Entered").Text());
        EXPECT_NEAR(arrivals.Fields("Net").Number(), 12540 - 4320 - 17, 1e-6);
    }
    return arrivals.RecordCount();
}

std::vector<std::string> FaultsTest::Tables() {
    std::vector<std::string> all;
    for (const char* query :
         {"Select * From Arrivals Order By ArrivalID", "Select * From ArrivalsBody Order By LineId",
          "Select * From PortSettings Order By RegistryKey"}) {
        Recordset rows = owner.Execute(query);
        for (; !rows.Eof(); rows.MoveNext()) {
            std::string row;
            for (int field = 0; field < rows.FieldCount(); ++field)
                row += "|" + rows.Fields(field).TextOrEmpty();
            all.push_back(row);
        }
    }
    return all;
}

void FaultsTest::ExpectNextSaveWorks() {
    station->TakeBoxes();
    const std::string driver = "next save";
    Run("Delete From ArrivalsBody Where DriverName = '" + driver + "'");
    station->FillIn(driver, 3);
    Screen().BtnSave_Click();
    const std::vector<Box> boxes = station->TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U) << boxes.front().text;
    EXPECT_EQ(boxes[0].text, "Do you want to print?");
    EXPECT_EQ(Stored(driver), 1);
    EXPECT_FALSE(Screen().BtnSave.Enabled());
}

std::string FaultsTest::TextOfDatabaseBox(const Box& box) {
    EXPECT_EQ(box.title, "Database");
    EXPECT_EQ(box.icon, BoxIcon::Critical);
    EXPECT_EQ(box.buttons, BoxButtons::Ok);
    return box.text;
}

bool Holds(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

} // namespace Quillane::Testing
