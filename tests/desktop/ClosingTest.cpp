// The ways to close a screen, with the window's close button among them.

#include "Station.h"
#include "data/CompanyProfile.h"
#include "platform/runtime/Numbers.h"
#include "setup/DatabaseSetup.h"
#include "shell/Desktop.h"
#include "signin/UserLogin.h"

#include <QApplication>
#include <QProcess>

namespace Quillane::Testing {
namespace {

struct Way {
    const char* name;
    void (*close)(Operator& by, FrmWeighment& screen);
};

/// The size of the frame as the display server reports it. The toolkit reads it only once, possibly
/// before a slow window manager has drawn the frame.
int HeightOfTitle(const FrmWeighment& screen) {
    QProcess tool;
    tool.start("xprop", {"-id", QString::number(screen.winId()), "-notype", "_NET_FRAME_EXTENTS"});
    tool.waitForFinished();
    const QList<QByteArray> extents = tool.readAllStandardOutput().split(',');
    constexpr int top = 2; // after left and right
    return extents.size() > top ? extents[top].trimmed().toInt() : 0;
}

/// The window manager's close button, at the right end of the title bar.
void ByCloseBox(Operator& by, FrmWeighment& screen) {
    int title = 0;
    by.Until("the window's frame", [&] { return (title = HeightOfTitle(screen)) > 0; });
    const QPoint place(screen.width() - 8, -title / 2);
    by.Click(screen, [&] { return place; });
}

void ByAltF4(Operator& by, FrmWeighment& /*screen*/) {
    by.Press({"alt+F4"});
}

void ByCtrlQ(Operator& by, FrmWeighment& /*screen*/) {
    by.Press({"ctrl+q"});
}

void ByButton(Operator& by, FrmWeighment& screen) {
    by.Click(screen.BtnClose);
}

constexpr const char* Question = "Are you sure to close without save?";

class ClosingWeighment : public Station, public testing::WithParamInterface<Way> {};

TEST_P(ClosingWeighment, AsksIfSomethingIsUnsaved) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        by.Click(screen.TxtVehicleNo);
        by.Type("k5");
        GetParam().close(by, screen);
        by.Answer("Alert", Question, {"Return"});
        by.UntilInFront("Veltrane: Quillane");
    });
    EXPECT_EQ(boxes->All().size(), 1U);
    EXPECT_TRUE(end->Codes().empty());
}

TEST_P(ClosingWeighment, AsksNothingIfNothingIsUnsaved) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        GetParam().close(by, screen);
        by.UntilInFront("Veltrane: Quillane");
        // The line can be opened by the next screen.
        by.OpenWeighment();
        by.UntilReading(12540);
    });
    EXPECT_TRUE(boxes->All().empty());
}

TEST_P(ClosingWeighment, AnswerNoKeepsTheScreenOpenWithTheLineClosed) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        by.Click(screen.TxtVehicleNo);
        by.Type("k5");
        GetParam().close(by, screen);
        by.Answer("Alert", Question, {"n"});
        for (int times = 0; times < 2; ++times)
            by.Answer("Serial line", "Port 1 is closed: nothing can be read from it.", {"Return"});
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "k5");
        // A new weighment opens it again.
        by.PastLineBoxes(
            [&] { by.Press({"ctrl+l"}); }, "the question before clearing",
            [this] { return boxes->All().back().text == "Are you sure to clear the entries?"; });
        by.Answer("Alert", "Are you sure to clear the entries?", {"Return"});
        by.UntilReading(12540);
        EXPECT_EQ(by.See([&] { return screen.TxtVehicleNo.Text(); }), "");
    });
    EXPECT_EQ(boxes->MostAtOnce(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Screen, ClosingWeighment,
                         testing::Values(Way{"ByCloseBox", ByCloseBox}, Way{"ByAltF4", ByAltF4},
                                         Way{"ByCtrlQ", ByCtrlQ}, Way{"ByButton", ByButton}),
                         [](const auto& way) { return std::string(way.param.name); });

class ClosingStation : public Station {
protected:
    void ExpectEnd() const {
        EXPECT_EQ(end->Codes(), std::vector<int>{0});
        EXPECT_FALSE(UserLogin.Exists());
        EXPECT_FALSE(CompanyProfile.Exists());
        EXPECT_FALSE(DatabaseSetup.Exists());
        EXPECT_TRUE(boxes->All().empty());
    }
};

TEST_F(ClosingStation, CloseKeyOfTheWindowEndsTheProcess) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        by.Press({"alt+F4"});
        by.Until("the end", [this] { return !end->Codes().empty(); });
    });
    ExpectEnd();
}

TEST_F(ClosingStation, ExitButtonEndsTheProcess) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        by.Press({"shift+Tab", "space"});
        by.Until("the end", [this] { return !end->Codes().empty(); });
    });
    ExpectEnd();
}

TEST_F(ClosingStation, CancelledSignInEndsTheProcessWithoutAMessage) {
    Work([this](Operator& by) {
        by.UntilInFront("Sign in");
        by.Press({"Escape"});
        by.Until("the end", [this] { return !end->Codes().empty(); });
    });
    ExpectEnd();
}

class SigningInAgain : public Station {
protected:
    static void ClickPicture(Operator& by) {
        by.UntilInFront("Veltrane: Quillane");
        by.Click(by.See([]() -> VisualControl& { return TheDesktop->Image1; }));
        by.UntilInFront("Sign in");
    }
};

TEST_F(SigningInAgain, AsAUserOfLevelTwoHidesWhatNeedsFullRights) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        FrmWeighment& first = by.OpenWeighment();
        EXPECT_TRUE(by.See([&] { return first.ChkManualWeight.Widget().isVisible(); }));
        EXPECT_TRUE(by.See([&] { return first.ChkFinalized.Widget().isVisible(); }));
        by.Press({"ctrl+q"});
        ClickPicture(by);
        by.SignIn(SampleUserName, SampleUserName);
        FrmWeighment& screen = by.OpenWeighment();
        by.UntilReading(12540);
        by.Picture("level-2");
        for (VisualControl* hidden :
             std::initializer_list<VisualControl*>{&screen.ChkManualWeight, &screen.ChkFinalized,
                                                   &screen.FrminVisible, &screen.TxtShortage})
            EXPECT_FALSE(by.See([&] { return hidden->Widget().isVisible(); })) << hidden->Name();
        by.Press({"Return", "Return", "Return", "Return", "Return", "Return", "Return", "Return",
                  "Return", "Return", "Return", "Return"});
        by.UntilActive("BtnSave");
        by.ClickInto(screen.TxtWeight);
        by.Type("7");
        by.Press({"Tab"});
        by.UntilActive("TxtInitialGrossWeight");
        EXPECT_EQ(by.See([&] { return Val(screen.TxtWeight.Text()); }), 12540);
        EXPECT_TRUE(end->Codes().empty());
    });
}

TEST_F(SigningInAgain, CancelledEndsTheStation) {
    Work([this](Operator& by) {
        by.SignIn("Nadia", "grain");
        ClickPicture(by);
        by.Press({"Escape"});
        by.Until("the end", [this] { return !end->Codes().empty(); });
    });
    EXPECT_EQ(end->Codes(), std::vector<int>{0});
}

} // namespace
} // namespace Quillane::Testing
