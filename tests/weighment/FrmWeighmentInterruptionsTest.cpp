// Actions that interrupt each other: a press while a name is refused or a box is shown, a clear
// while a cell is edited, the line below a preview, a save inside a tick.

#include "weighment/WeighmentFixture.h"

#include <QMetaObject>

namespace Quillane::Testing {
namespace {

class FrmWeighmentInterruptions : public WeighmentScreenTest {
protected:
    void SetUp() override {
        ShowScreen();
        ASSERT_TRUE(WaitFor([this] { return screen->isActiveWindow(); }));
    }
    void BeginCell(std::string_view typed) {
        screen->Grid.SetFocus();
        ScreenDriver(*screen).Type(typed);
        ASSERT_TRUE(screen->Grid.IsEditing());
    }
};

// A capture with the focus on another control would write the reading without computing the gross.
TEST_F(FrmWeighmentInterruptions, UnlistedSellerPreventsACapture) {
    screen->TxtWeight.SetText("12540");
    screen->CboSeller.SetFocus();
    ScreenDriver driver(*screen);
    driver.Type("zzq").Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->ActiveControlName(), "CboSeller");
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "");
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "");
    screen->CboSeller.SetText("");
    driver.Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "12540");
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "12540");
}

TEST_F(FrmWeighmentInterruptions, UnlistedSellerPreventsASaveWithoutAMessage) {
    FillIn();
    screen->CboCommodity.SetFocus();
    ScreenDriver driver(*screen);
    driver.Type("zzq");
    Trace trace(*screen, line);
    driver.Click(screen->BtnSave);
    EXPECT_EQ(trace.Take(), Lines{"Validate CboCommodity"});
    EXPECT_EQ(screen->CboCommodity.Text(), "zzq");
}

// The box of the failed look-up is shown while the press moves the focus.
TEST_F(FrmWeighmentInterruptions, PressDuringWhichABoxIsShownHasNoEffect) {
    screen->TxtWeight.SetText("12540");
    database.Rename("Arrivals", "Away");
    ScreenDriver driver(*screen);
    Trace trace(*screen, line);
    driver.Click(screen->CmdGrossWeight);
    EXPECT_EQ(trace.Take(), (Lines{"Validate TxtArrivalId",
                                   "Select count(*) From Arrivals where ArrivalID = 1043",
                                   DatabaseBox("no such table: Arrivals"), "LostFocus TxtArrivalId",
                                   "GotFocus CmdGrossWeight"}));
    EXPECT_EQ(screen->TxtInitialGrossWeight.Text(), "");
    driver.Click(screen->CmdGrossWeight);
    EXPECT_EQ(screen->TxtGrossWeight.Text(), "12540");
}

TEST_F(FrmWeighmentInterruptions, ClearAnsweredNoKeepsThePendingCell) {
    BeginCell("Jute O");
    Trace trace(*screen, line);
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_L);
    EXPECT_EQ(trace.Take(),
              Lines{"Box \"Alert\" [question, Yes*/No] Are you sure to clear the entries?"});
    ASSERT_EQ(screen->BagRows.RowCount(), 1);
    EXPECT_EQ(screen->BagRows.Get(0, 0), "Jute Old");
    EXPECT_EQ(screen->ActiveControlName(), "Grid");
}

TEST_F(FrmWeighmentInterruptions, ClearRemovesThePendingCell) {
    const std::function<void(ScreenDriver&)> clears[] = {
        [](ScreenDriver& driver) { driver.Press(Qt::CTRL | Qt::Key_L); },
        [this](ScreenDriver& driver) { driver.Click(screen->BtnClear); }};
    for (const auto& clear : clears) {
        BeginCell("Jute O");
        Trace trace(*screen, line);
        trace.Answer("Are you sure to clear the entries?", BoxAnswer::Yes);
        ScreenDriver driver(*screen);
        clear(driver);
        EXPECT_EQ(screen->BagRows.RowCount(), 0);
        EXPECT_FALSE(screen->Grid.IsEditing());
        EXPECT_FALSE(screen->BtnSave.Enabled());
        EXPECT_EQ(screen->ActiveControlName(), "DtpArrivalDate");
    }
}

TEST_F(FrmWeighmentInterruptions, ReadingContinuesBelowThePreview) {
    FillIn();
    Trace trace(*screen, line);
    trace.Answer("Do you want to print?", BoxAnswer::Yes);
    VisitModal preview([this](Screen& shown) {
        line.Write("\r\n  23456 kg\r\n  23456 kg\r\n");
        EXPECT_TRUE(WaitFor([this] { return screen->TxtWeight.Text() == "23456"; }));
        EXPECT_EQ(screen->TxtArrivalId.Text(), "1043") << "the screen still holds the weighment";
        shown.Unload();
    });
    screen->BtnSave_Click();
    EXPECT_TRUE(preview.TookPlace());
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
}

// The tick has read the line before the save, and shows the reading after the save.
TEST_F(FrmWeighmentInterruptions, SaveDuringATickCompletesBoth) {
    FillIn();
    screen->Timer.SetEnabled(false);
    Trace trace(*screen, line);
    bool saved = false;
    line.Write("\r\n  12345 kg\r\n  12345 kg\r\n");
    // Processed by the tick itself, and by nothing before it.
    QMetaObject::invokeMethod(
        screen.get(),
        [&] {
            saved = true;
            screen->BtnSave_Click();
        },
        Qt::QueuedConnection);
    for (int look = 0; look < 1'000'000 && !saved; ++look)
        screen->ReadLiveWeight();
    ASSERT_TRUE(saved);
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1044");
    EXPECT_EQ(screen->TxtWeight.Text(), "12345");
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

} // namespace
} // namespace Quillane::Testing
