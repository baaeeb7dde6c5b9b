// The slip of the arrival on the screen: its contents, and when it is shown.

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "signin/UserLogin.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/RptReportViewer.h"
#include "slip/SlipStatement.h"
#include "weighment/WeighmentFixture.h"

#include <QPointer>
#include <QWindow>

#include <optional>

namespace Quillane::Testing {
namespace {

const std::string PrintText = "Do you want to print?";

class PrintTest : public WeighmentScreenTest {
protected:
    /// Runs `print`, examines the preview and closes it with Escape.
    void Preview(const std::function<void()>& print,
                 const std::function<void(RptReportViewer&)>& look) {
        VisitModal visit([&](Screen& modal) {
            auto* viewer = dynamic_cast<RptReportViewer*>(&modal);
            ASSERT_NE(viewer, nullptr) << modal.Name();
            ASSERT_NE(viewer->Report, nullptr);
            look(*viewer);
            ScreenDriver(*viewer).Press(Qt::Key_Escape);
        });
        print();
    }
    void Preview(const std::function<void(RptReportViewer&)>& look) {
        Preview([this] { screen->BtnPrint_Click(); }, look);
    }

    static std::string TextOf(const Report& report, int position) {
        return std::get<std::string>(report.ParameterFields(position).Value());
    }
    static double NumberOf(const Report& report, int position) {
        return std::get<double>(report.ParameterFields(position).Value());
    }
    /// The cells of a column of the slip's rows, in order.
    static Lines ColumnOf(const Report& report, const std::string& column) {
        Lines cells;
        Recordset& rows = *report.Database.Data();
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
            cells.push_back(rows.Fields(column).TextOrEmpty());
        return cells;
    }
};

TEST_F(PrintTest, FillsANewSlipWithSevenParametersAndTheStoredRows) {
    FillInOpened(1031);
    Preview([this](RptReportViewer& viewer) {
        const Report& slip = *viewer.Report;
        EXPECT_NE(dynamic_cast<const CrpCottonWeighment*>(&slip), nullptr);
        EXPECT_EQ(slip.ParameterCount(), 7);
        EXPECT_EQ(TextOf(slip, 1), "VELTRANE FLOUR MILLS");
        EXPECT_EQ(TextOf(slip, 2), "14 Canal Road, Okara");
        EXPECT_EQ(TextOf(slip, 3), "PhoneNo: 044 555 0147");
        EXPECT_EQ(TextOf(slip, 4), "Email: gate@veltrane.example");
        EXPECT_EQ(TextOf(slip, 5), "205-3");
        EXPECT_EQ(NumberOf(slip, 6), 12540.0);
        EXPECT_EQ(NumberOf(slip, 7), 8203.0);
        EXPECT_EQ(slip.Title, "Quillane Slip");
        EXPECT_EQ(slip.SelectedPrinter().Driver, "Dummy Driver");
        EXPECT_EQ(slip.SelectedPrinter().Printer, "Ding Dong");
        EXPECT_EQ(slip.SelectedPrinter().Port, "LPT1");
        EXPECT_EQ(slip.PaperOrientation, 1);
        EXPECT_EQ(slip.Database.DataTag(), 3);
        // The rows are the stored ones, whatever the screen shows.
        EXPECT_EQ(ColumnOf(slip, "VehicleNo"), (Lines{"LEA-4521", ""}));
        EXPECT_EQ(ColumnOf(slip, "BagsClass"), (Lines{"Jute New", "Jute Old"}));
        EXPECT_EQ(viewer.CRViewer91.PageCount(), 1);
        EXPECT_EQ(viewer.windowHandle()->transientParent(), screen->windowHandle());
    });
}

TEST_F(PrintTest, ReadsTheArrivalOfTheMember) {
    FillInOpened(1031);
    screen->ArrivalNo = 1032;
    Preview([](RptReportViewer& viewer) {
        EXPECT_EQ(ColumnOf(*viewer.Report, "ArrivalId"), (Lines{"1032", "1032"}));
    });
    EXPECT_EQ(screen->LoadStatement, SlipStatement(1032));
    EXPECT_TRUE(screen->LoadStatement.ends_with(" WHERE A.ArrivalId =1032"));
}

TEST_F(PrintTest, ChangesNothingOnTheScreenOrInTheTables) {
    FillInOpened(1031);
    const auto headers = StoredTable("Arrivals");
    const auto bodies = StoredTable("ArrivalsBody");
    screen->SetButtonState(3);
    Trace trace(*screen, line);
    Preview([](RptReportViewer&) {});
    EXPECT_EQ(trace.Take(), Lines{SlipStatement(1031)});
    EXPECT_TRUE(screen->BtnPrint.Enabled());
    EXPECT_FALSE(screen->BtnSave.Enabled());
    EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
    EXPECT_EQ(StoredTable("Arrivals"), headers);
    EXPECT_EQ(StoredTable("ArrivalsBody"), bodies);
}

TEST_F(PrintTest, PrintButtonOfAStoredArrivalShowsThePreview) {
    FillInOpened(1031);
    screen->SetButtonState(3);
    Preview([this] { ScreenDriver(*screen).Click(screen->BtnPrint); },
            [](RptReportViewer& viewer) {
                EXPECT_EQ(ColumnOf(*viewer.Report, "ArrivalId"), (Lines{"1031", "1031"}));
            });
}

TEST_F(PrintTest, EmptyBoxesAreZero) {
    Preview([](RptReportViewer& viewer) {
        EXPECT_EQ(NumberOf(*viewer.Report, 6), 0.0);
        EXPECT_EQ(NumberOf(*viewer.Report, 7), 0.0);
        EXPECT_EQ(TextOf(*viewer.Report, 5), "0-0");
    });
}

TEST_F(PrintTest, SecondPreviewReadsTheRowsAgain) {
    FillInOpened(1031);
    const Report* first = nullptr;
    Preview([&](RptReportViewer& viewer) { first = viewer.Report.get(); });
    RunBeside("DELETE FROM ArrivalsBody WHERE ArrivalId = 1031 AND NoOfBags = 40;"
              "UPDATE Project_Registry SET value = 'Moulin Zoé' WHERE registrykey = 'CompanyName'");
    CompanyProfile->Load();
    screen->TxtDeduction.SetText("20");
    Preview([&](RptReportViewer& viewer) {
        EXPECT_NE(viewer.Report.get(), first);
        EXPECT_EQ(ColumnOf(*viewer.Report, "NoOfBags"), Lines{"60"});
        EXPECT_EQ(TextOf(*viewer.Report, 1), "MOULIN ZOÉ");
        EXPECT_EQ(NumberOf(*viewer.Report, 7), 8200.0);
    });
}

TEST_F(PrintTest, KeepsItsRowsOpenAfterThePreview) {
    FillInOpened(1031);
    std::shared_ptr<Recordset> rows;
    Preview([&](RptReportViewer& viewer) { rows = viewer.Report->Database.Data(); });
    ASSERT_EQ(rows->State(), adStateOpen);
    EXPECT_EQ(rows->RecordCount(), 2);
    screen->ArrivalNo = 1032;
    Preview([&](RptReportViewer& viewer) { EXPECT_EQ(viewer.Report->Database.Data(), rows); });
    EXPECT_EQ(rows->State(), adStateOpen);
    rows->MoveFirst();
    EXPECT_EQ(rows->Fields("ArrivalId").Text(), "1032");
}

TEST_F(PrintTest, ShowsEveryPreviewInOneViewer) {
    FillInOpened(1031);
    QPointer<RptReportViewer> first;
    Preview([&](RptReportViewer& viewer) { first = &viewer; });
    ASSERT_FALSE(first.isNull());
    Preview([&](RptReportViewer& viewer) { EXPECT_EQ(&viewer, first.data()); });
    EXPECT_FALSE(first.isNull());
}

TEST_F(PrintTest, NamesTheUserWhoIsSignedIn) {
    FillInOpened(1031);
    Preview([](RptReportViewer& viewer) {
        EXPECT_FALSE(UserLogin->UserName().empty());
        EXPECT_EQ(viewer.Report->UserName, UserLogin->UserName());
    });
}

TEST_F(PrintTest, ShowsTheRowsOfTheJoins) {
    RunBeside("UPDATE ArrivalsBody SET BagsClassId = 0 WHERE ArrivalId = 1031 AND NoOfBags = 60;"
              "UPDATE Arrivals SET SellerId = '6010028' WHERE ArrivalID = 1032");
    FillInOpened(1031);
    Preview([](RptReportViewer& viewer) {
        EXPECT_EQ(ColumnOf(*viewer.Report, "NoOfBags"), Lines{"40"});
    });
    screen->TxtArrivalId.SetText("1032");
    Preview([](RptReportViewer& viewer) {
        EXPECT_EQ(viewer.Report->Database.Data()->RecordCount(), 0);
        EXPECT_GE(viewer.CRViewer91.PageCount(), 1);
    });
}

TEST_F(PrintTest, ReportsAFailureAndWorksTheNextTime) {
    FillInOpened(1031);
    database.Rename("PRCenters", "Away");
    Trace trace(*screen, line);
    screen->BtnPrint_Click();
    EXPECT_EQ(trace.Take(), (Lines{SlipStatement(1031), DatabaseBox("no such table: PRCenters")}));
    database.Rename("Away", "PRCenters");
    Preview([](RptReportViewer& viewer) {
        EXPECT_EQ(viewer.Report->Database.Data()->RecordCount(), 2);
    });
}

// ---- after a save ----

TEST_F(PrintTest, AfterASaveShowsTheRowsJustStoredBeforeTheScreenIsCleared) {
    FillIn();
    Trace trace(*screen, line);
    trace.Answer(PrintText, BoxAnswer::Yes);
    std::optional<Lines> whileShown;
    Preview([this] { screen->BtnSave_Click(); },
            [&](RptReportViewer& viewer) {
                whileShown = trace.Take();
                const Report& slip = *viewer.Report;
                EXPECT_EQ(TextOf(slip, 5), "205-3");
                EXPECT_EQ(NumberOf(slip, 6), 12540.0);
                EXPECT_EQ(NumberOf(slip, 7), 8203.0);
                EXPECT_EQ(ColumnOf(slip, "ArrivalId"), (Lines{"1043", "1043"}));
                EXPECT_EQ(ColumnOf(slip, "NoOfBags"), (Lines{"60", "40"}));
                EXPECT_EQ(ColumnOf(slip, "VehicleNo"), (Lines{"LEB-4217", ""}));
                EXPECT_EQ(ColumnOf(slip, "PartyName"), Lines(2, "Chaudhry Grain Traders-Okara"));
                EXPECT_EQ(screen->TxtNetWeight.Text(), "8203");
                EXPECT_FALSE(screen->BtnPrint.Enabled());
                EXPECT_THROW(Con->RollbackTrans(), std::exception);
            });
    ASSERT_TRUE(whileShown);
    ASSERT_GE(whileShown->size(), 3U);
    EXPECT_EQ(whileShown->end()[-3], "CommitTrans");
    EXPECT_EQ(whileShown->end()[-2],
              "Box \"Confirmation\" [question, Yes/No*] Do you want to print?");
    EXPECT_EQ(whileShown->end()[-1], SlipStatement(1043));
    const Lines afterwards = trace.Take();
    ASSERT_FALSE(afterwards.empty());
    EXPECT_EQ(StatementsOf(afterwards), (Lines{"Select * from PortSettings",
                                               "Select IsNull(Max(ArrivalID),0)+1 From Arrivals"}));
    EXPECT_EQ(afterwards.back(), "GotFocus DtpArrivalDate");
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "");
}

TEST_F(PrintTest, FailedPreviewAfterASaveStillClearsTheScreen) {
    FillIn();
    Trace trace(*screen, line);
    trace.Answer(PrintText, BoxAnswer::Yes);
    trace.When("Box \"Confirmation\" [question, Yes/No*] Do you want to print?",
               [this] { database.Rename("PRCenters", "Away"); });
    screen->BtnSave_Click();
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

TEST_F(PrintTest, F9ShowsThePreviewOfAStoredLoadWithoutAChange) {
    FillInOpened(1031);
    screen->SetButtonState(3);
    const std::string mode = screen->ScreenMode;
    for (int times = 0; times < 2; ++times) {
        int slips = 0;
        Preview([this] { ScreenDriver(*screen).Press(Qt::Key_F9); },
                [&](RptReportViewer&) { ++slips; });
        EXPECT_EQ(slips, 1);
        EXPECT_TRUE(screen->BtnPrint.Enabled());
        EXPECT_FALSE(screen->BtnSave.Enabled());
        EXPECT_EQ(screen->ScreenMode, mode);
    }
    EXPECT_NE(screen->BtnPrint.ToolTip().find("(F9)"), std::string::npos);
}

TEST_F(PrintTest, F9ShowsNoPreviewOfAnUnsavedLoad) {
    ScreenDriver(*screen).Press(Qt::Key_F9);
    EXPECT_FALSE(screen->BtnSave.Enabled()) << "the key does not begin a change";
    FillInOpened(1031);
    screen->SetButtonState(3);
    ScreenDriver(*screen).Press(Qt::Key_Home);
    ASSERT_TRUE(screen->BtnSave.Enabled());
    ScreenDriver(*screen).Press(Qt::Key_F9);
    EXPECT_TRUE(screen->BtnSave.Enabled());
}

} // namespace
} // namespace Quillane::Testing
