// Closing the screen, by its button and by the window's close box.

#include "platform/forms/core/EventBoundary.h"
#include "weighment/WeighmentFixture.h"

#include <QTimer>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::Lines;
using Testing::Question;
using Testing::ScreenDriver;
using Testing::Trace;
using Testing::WaitFor;

const Box CloseQuestion = Question("Are you sure to close without save?");

struct Way {
    const char* name;
    void (*close)(FrmWeighment&);
};

void PrintTo(const Way& way, std::ostream* out) {
    *out << way.name;
}

class FrmWeighmentClose : public Testing::WeighmentScreenTest,
                          public testing::WithParamInterface<Way> {
protected:
    void Close() { GetParam().close(*screen); }

    Box ClosedLine() {
        return Critical("Port 1 is closed: nothing can be read from it.", "Serial line");
    }
};

TEST_P(FrmWeighmentClose, ClosesWithoutAQuestionIfNothingIsUnsaved) {
    for (const int mode : {1, 3, 5}) {
        if (!screen->IsLoaded())
            screen->Show();
        screen->SetButtonState(mode);
        ASSERT_TRUE(screen->CM.PortOpen());
        Close();
        EXPECT_FALSE(screen->IsLoaded()) << mode;
        EXPECT_FALSE(screen->isVisible()) << mode;
        EXPECT_FALSE(screen->CM.PortOpen()) << mode;
    }
}

TEST_P(FrmWeighmentClose, AsksIfSomethingIsUnsavedAndClosesOnYes) {
    screen->SetButtonState(2);
    BoxAnswers answers;
    answers.Expect(CloseQuestion, BoxAnswer::Yes,
                   [this] { EXPECT_TRUE(screen->CM.PortOpen()) << "first the question"; });
    Close();
    EXPECT_FALSE(screen->IsLoaded());
    EXPECT_FALSE(screen->CM.PortOpen());
}

TEST_P(FrmWeighmentClose, StaysOpenOnNoWithTheLineClosedAndAnErrorAtEachTick) {
    FillIn();
    screen->TxtVehicleNo.SetFocus();
    BoxAnswers answers;
    answers.Expect(CloseQuestion, BoxAnswer::No);
    Close();
    EXPECT_TRUE(screen->isVisible());
    EXPECT_FALSE(screen->CM.PortOpen());
    EXPECT_TRUE(screen->Timer.Enabled());
    EXPECT_EQ(screen->TxtVehicleNo.Text(), "LEB-4217") << "nothing is lost";
    EXPECT_TRUE(screen->BtnSave.Enabled());

    answers.Expect(ClosedLine()).Expect(ClosedLine());
    EXPECT_TRUE(WaitFor([&] {
        if (answers.Remaining() == 0)
            screen->Timer.SetEnabled(false);
        return answers.Remaining() == 0;
    }));
}

TEST_P(FrmWeighmentClose, OpensTheLineAgainWithTheNextNewWeighment) {
    screen->SetButtonState(2);
    {
        BoxAnswers answers;
        answers.Expect(CloseQuestion, BoxAnswer::No);
        Close();
    }
    screen->NewWeighment();
    EXPECT_TRUE(screen->CM.PortOpen());
    line.Write("+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n");
    EXPECT_TRUE(WaitFor([&] { return screen->TxtWeight.Text() == "1250"; }));
}

TEST_P(FrmWeighmentClose, ChangesNoRow) {
    FillIn();
    screen->CboSeller.SetFocus();
    Trace trace(*screen, line);
    trace.Answer("Are you sure to close without save?", BoxAnswer::Yes);
    Close();
    Lines rest = trace.Take();
    std::erase_if(rest, [](const std::string& each) {
        return each.starts_with("Validate") || each.starts_with("LostFocus") ||
               each.starts_with("GotFocus");
    });
    EXPECT_EQ(rest,
              (Lines{"Box \"Alert\" [question, Yes*/No] Are you sure to close without save?"}));
}

TEST_P(FrmWeighmentClose, LoadsAgainTheNextTime) {
    Close();
    EXPECT_FALSE(screen->IsLoaded());
    screen->Show();
    EXPECT_TRUE(screen->CM.PortOpen());
    EXPECT_EQ(screen->TxtArrivalId.Text(), "1043");
    EXPECT_EQ(screen->CboSellerType.Text(), "ALL");
    EXPECT_EQ(screen->Timer.Interval(), 300);
}

TEST_P(FrmWeighmentClose, ClosingDuringATickEndsTheTick) {
    screen->Timer.SetEnabled(false);
    line.Write("+001250 kg\r\n+001250 kg\r\n+001250 kg\r\n");
    ASSERT_TRUE(WaitFor([&] { return line.Unread() == 0; }));
    QTimer::singleShot(0, [this] { Close(); });
    EXPECT_THROW(screen->ReadLiveWeight(), ScreenGone);
    EXPECT_EQ(screen->TxtWeight.Text(), "");
    EXPECT_FALSE(screen->CM.PortOpen());
}

const Way Ways[] = {
    {"Button", [](FrmWeighment& screen) { ScreenDriver(screen).Click(screen.BtnClose); }},
    {"CloseBox", [](FrmWeighment& screen) { screen.close(); }},
    {"CtrlQ", [](FrmWeighment& screen) { ScreenDriver(screen).Press(Qt::CTRL | Qt::Key_Q); }},
    {"EnterOnTheButton",
     [](FrmWeighment& screen) {
         screen.BtnClose.SetFocus();
         ScreenDriver(screen).Press(Qt::Key_Return);
     }},
};

INSTANTIATE_TEST_SUITE_P(By, FrmWeighmentClose, testing::ValuesIn(Ways),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
} // namespace Quillane
