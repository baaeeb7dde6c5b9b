// The keys of the arrival search, the ways to close it, and its result.

#include "platform/forms/core/KeyCodes.h"
#include "search/ArrivalSearch.h"

#include <QCalendarWidget>
#include <QDateEdit>

namespace Quillane::Testing {
namespace {

using SchArrivalsKeys = ArrivalSearch;

TEST_F(SchArrivalsKeys, TabOrderIsTextsListButtonsDates) {
    Open();
    Lines visited{screen->ActiveControlName()};
    for (int press = 0; press < 7; ++press) {
        Driver().Press(Qt::Key_Tab);
        visited.push_back(screen->ActiveControlName());
    }
    EXPECT_EQ(visited, (Lines{"TxtFilterId", "TxtFilter", "GrdSch", "BtnSelect", "BtnClose",
                              "DtpFromDate", "DtpToDate", "TxtFilterId"}));
    EXPECT_EQ(Sent(), Lines{}) << "moving the focus sends nothing";
}

TEST_F(SchArrivalsKeys, EnterMovesToTheNextBox) {
    Open();
    for (const Qt::Key enter : {Qt::Key_Return, Qt::Key_Enter}) {
        for (VisualControl* control : {static_cast<VisualControl*>(&screen->TxtFilterId),
                                       static_cast<VisualControl*>(&screen->TxtFilter),
                                       static_cast<VisualControl*>(&screen->DtpFromDate),
                                       static_cast<VisualControl*>(&screen->DtpToDate)}) {
            control->SetFocus();
            const VisualControl* next = screen->NextInTabOrder(control);
            Driver().Press(enter);
            EXPECT_EQ(screen->ActiveControlName(), next->Name()) << "from " << control->Name();
        }
    }
    EXPECT_TRUE(screen->IsLoaded()) << "Enter in the name selects nothing";
}

TEST_F(SchArrivalsKeys, ShiftEnterMovesForwardToo) {
    Open();
    Driver().Press(Qt::SHIFT | Qt::Key_Return);
    EXPECT_EQ(screen->ActiveControlName(), "TxtFilter");
}

TEST_F(SchArrivalsKeys, NameBoxSelectsOnEnterIfTheScreenDoesNotConsumeIt) {
    Open();
    int key = Key::Return;
    screen->TxtFilter.KeyDown(key, ShiftState::None);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 1042);
}

TEST_F(SchArrivalsKeys, GridHandlerSelectsOnlyOnEnterWithoutShift) {
    Open();
    int key = Key::Return;
    for (const int shift : {ShiftState::Shift, ShiftState::Ctrl, ShiftState::Alt}) {
        screen->GrdSch.KeyDown(key, shift);
        EXPECT_TRUE(screen->IsLoaded());
    }
    screen->GrdSch.KeyDown(key, ShiftState::None);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 1042);
}

TEST_F(SchArrivalsKeys, EnterInTheListSelectsTheCurrentLine) {
    Open();
    Driver().Press(Qt::Key_Tab).Press(Qt::Key_Tab).Press(Qt::Key_Down).Press(Qt::Key_Down);
    EXPECT_EQ(screen->ActiveControlName(), "GrdSch");
    Driver().Press(Qt::Key_Return);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 1040);
}

TEST_F(SchArrivalsKeys, EnterWithModifiersInTheListSelectsToo) {
    for (const auto shift : {Qt::SHIFT, Qt::CTRL}) {
        Open();
        screen->GrdSch.SetFocus();
        Driver().Press(Qt::Key_End).Press(shift | Qt::Key_Return);
        EXPECT_FALSE(screen->IsLoaded());
        EXPECT_EQ(screen->SelectedArrivalId, 1031);
    }
}

TEST_F(SchArrivalsKeys, DoubleClickSelectsTheLineUnderTheMouse) {
    Open();
    screen->GrdSch.SetFocus();
    Driver().Press(Qt::Key_End);
    DoubleClickFirstLine();
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_GT(screen->SelectedArrivalId, 1036);
    EXPECT_LE(screen->SelectedArrivalId, 1042);
}

TEST_F(SchArrivalsKeys, EnterOnAButtonPressesIt) {
    Open();
    screen->GrdSch.SetFocus();
    Driver().Press(Qt::Key_Down);
    screen->BtnSelect.SetFocus();
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(screen->SelectedArrivalId, 1041);
    EXPECT_FALSE(screen->IsLoaded());

    Open();
    screen->BtnClose.SetFocus();
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(screen->SelectedArrivalId, 0);
    EXPECT_FALSE(screen->IsLoaded());
}

TEST_F(SchArrivalsKeys, EscAndCtrlQCloseWithZeroFromEveryControl) {
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Escape), Qt::SHIFT | Qt::Key_Escape, Qt::CTRL | Qt::Key_Q}) {
        for (const std::string_view name : {"TxtFilterId", "TxtFilter", "GrdSch", "BtnSelect",
                                            "BtnClose", "DtpFromDate", "DtpToDate"}) {
            Open();
            Driver().Named(name).SetFocus();
            Driver().Press(key);
            EXPECT_FALSE(screen->IsLoaded()) << name;
            EXPECT_EQ(screen->SelectedArrivalId, 0);
        }
    }
}

TEST_F(SchArrivalsKeys, OnlyCtrlWithoutOtherModifiersClosesOnQ) {
    Open();
    screen->GrdSch.SetFocus();
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Q), Qt::SHIFT | Qt::Key_Q, Qt::CTRL | Qt::SHIFT | Qt::Key_Q,
          Qt::CTRL | Qt::ALT | Qt::Key_Q})
        Driver().Press(key);
    EXPECT_TRUE(screen->IsLoaded());
}

TEST_F(SchArrivalsKeys, EscAndCtrlQDoNothingIfTheCloseButtonIsDisabled) {
    Open();
    screen->BtnClose.SetEnabled(false);
    Driver().Press(Qt::Key_Escape).Press(Qt::CTRL | Qt::Key_Q);
    EXPECT_TRUE(screen->IsLoaded());
}

TEST_F(SchArrivalsKeys, EscClosesAnOpenCalendarFirst) {
    Open();
    screen->DtpFromDate.SetFocus();
    auto& edit = dynamic_cast<QDateEdit&>(screen->DtpFromDate.Widget());
    Driver().Press(Qt::Key_F4);
    ASSERT_TRUE(WaitFor([&] { return edit.calendarWidget()->isVisible(); }));
    Driver().Press(Qt::Key_Right).Press(Qt::Key_Escape);
    EXPECT_FALSE(edit.calendarWidget()->isVisible());
    ASSERT_TRUE(screen->IsLoaded());
    EXPECT_EQ(Sent(), (Lines{Statement("", "2025-11-21"), Statement()}))
        << "the former day is restored";
    Driver().Press(Qt::Key_Escape);
    EXPECT_FALSE(screen->IsLoaded());
}

TEST_F(SchArrivalsKeys, EmptyListSelectsNothing) {
    Open();
    Driver().Type("x");
    screen->BtnSelect.Click();
    DoubleClickFirstLine();
    screen->GrdSch.SetFocus();
    Driver().Press(Qt::Key_Return).Press(Qt::SHIFT | Qt::Key_Return);
    screen->BtnSelect.SetFocus();
    Driver().Press(Qt::Key_Return);
    EXPECT_TRUE(screen->IsLoaded());
    Driver().Press(Qt::Key_Escape);
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 0);
}

TEST_F(SchArrivalsKeys, IdOf32BitsIsReturned) {
    AddArrival("40000", "2026-11-20");
    AddArrival("2147483647", "2026-11-20");
    for (const std::int32_t id : {40000, 2147483647}) {
        Open();
        Driver().Type(std::to_string(id));
        EXPECT_EQ(Ids(), Lines{std::to_string(id)});
        screen->BtnSelect.Click();
        EXPECT_EQ(screen->SelectedArrivalId, id);
        EXPECT_FALSE(screen->IsLoaded());
    }
}

TEST_F(SchArrivalsKeys, IdBeyond32BitsIsReportedOnceAndTheScreenStays) {
    SKIP_ON_SQL_SERVER("its column holds no such id");
    AddArrival("9999999999", "2026-11-20");
    Open();
    Driver().Type("9999999999");
    EXPECT_EQ(Sent().back(), Statement(" And Arrivals.ArrivalId = 9999999999"));
    EXPECT_EQ(Ids(), Lines{"9999999999"});
    screen->GrdSch.SetFocus();
    BoxAnswers answers;
    answers.Expect(Critical("Overflow", "Quillane"));
    Driver().Press(Qt::Key_Return);
    EXPECT_EQ(answers.Remaining(), 0U);
    EXPECT_TRUE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 0);
}

TEST_F(SchArrivalsKeys, CloseButtonSetsTheSelectedIdToZero) {
    Open();
    screen->SelectedArrivalId = 1041;
    screen->BtnClose.Click();
    EXPECT_EQ(screen->SelectedArrivalId, 0);
}

TEST_F(SchArrivalsKeys, ClosingTheWindowReturnsZero) {
    Open();
    screen->GrdSch.SetFocus();
    Driver().Press(Qt::Key_Down);
    screen->close();
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_EQ(screen->SelectedArrivalId, 0);
}

TEST_F(SchArrivalsKeys, ClosingReleasesTheRows) {
    Open();
    ASSERT_EQ(screen->GrdSch.Rows(), 12);
    screen->BtnClose.Click();
    EXPECT_EQ(screen->GrdSch.Rows(), 0);
    EXPECT_EQ(Sent(), Lines{});
}

TEST_F(SchArrivalsKeys, ScreenIsResetEachTimeItIsShown) {
    SchArrivals search;
    RunModal(search, [&](Screen& shown) {
        ScreenDriver driver(shown);
        driver.Type("1040").Press(Qt::Key_Return).Type("noor");
        search.DtpFromDate.SetFocus();
        driver.Press(Qt::Key_Down);
        search.BtnSelect.Click();
    });
    EXPECT_EQ(search.SelectedArrivalId, 1040);
    Sent();
    RunModal(search, [&](Screen& shown) {
        EXPECT_EQ(Sent(), Lines{Statement()});
        EXPECT_EQ(search.SelectedArrivalId, 0);
        EXPECT_EQ(search.TxtFilterId.Text(), "");
        EXPECT_EQ(search.TxtFilter.Text(), "");
        EXPECT_EQ(search.ActiveControlName(), "TxtFilterId");
        EXPECT_EQ(search.GrdSch.Rows(), 12);
        ScreenDriver(shown).Type("1").Press(Qt::Key_Escape);
        EXPECT_EQ(Sent(), Lines{Statement(" And Arrivals.ArrivalId = 1")})
            << "a text box still refreshes the list";
    });
    EXPECT_EQ(search.SelectedArrivalId, 0);
}

} // namespace
} // namespace Quillane::Testing
