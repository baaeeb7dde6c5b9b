// Keys and clicks from the display server, like those of an operator.

#include "platform/forms/TrialScreen.h"
#include "platform/forms/core/Boxes.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QProcess>
#include <QWindow>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Quillane::Testing {
namespace {

class KeysOnDisplay : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(HasDisplay());
        screen.Show();
        ASSERT_TRUE(WaitFor([&] { return screen.isActiveWindow(); }));
        screen.Taken();
    }

    // Does not run the event loop: the keys wait until the screen handles them.
    static void Send(const QStringList& arguments) {
        ASSERT_EQ(0, QProcess::execute("xdotool", arguments));
    }

    static void ClickOn(const QWidget& widget) {
        const QPoint middle = widget.mapToGlobal(widget.rect().center());
        Send({"mousemove", QString::number(middle.x()), QString::number(middle.y()), "click", "1"});
    }

    TrialScreen screen;
};

TEST_F(KeysOnDisplay, TypedWhileTheScreenIsBusyReachTheControlsInOrder) {
    int enters = 0;
    screen.OnKeyDown = [&](int& key, int) {
        if (key == Key::Return) {
            key = 0;
            if (++enters == 1)
                Send({"key", "b", "Return", "c"});
            screen.SendTab();
        }
    };
    Send({"key", "a", "Return"});
    EXPECT_TRUE(WaitFor([&] { return screen.Third.Text() == "c"; }));
    EXPECT_EQ("a", screen.First.Text());
    EXPECT_EQ("b", screen.Second.Text());
}

TEST_F(KeysOnDisplay, WithAltReachTheScreenAndPressTheButton) {
    screen.LogKeys = true;
    screen.BtnGo.Click = [&] { screen.Log.push_back("Click"); };
    Send({"key", "alt+g"});
    EXPECT_TRUE(WaitFor([&] { return !screen.Log.empty() && screen.Log.back() == "Click"; }));
    EXPECT_EQ(
        (Events{"KeyDown 71 4", "Validate First", "LostFocus First", "GotFocus BtnGo", "Click"}),
        screen.Taken());
}

TEST_F(KeysOnDisplay, PressedInABoxDoNotReachTheScreen) {
    screen.LogKeys = true;
    BoxAnswer answer = BoxAnswer::Ok;
    {
        const VisitBox visit([](QDialog& box) {
            WaitFor([&] { return box.isActiveWindow(); });
            Send({"key", "Escape"});
            WaitFor([&] { return !BoxIsUp() || !box.isVisible(); });
        });
        answer = MsgBox({.text = "Save?", .title = "Alert", .buttons = BoxButtons::YesNo});
    }
    EXPECT_EQ(BoxAnswer::No, answer);
    EXPECT_EQ(Events{}, screen.Taken());
    Send({"key", "x"});
    EXPECT_TRUE(WaitFor([&] { return screen.First.Text() == "x"; }));
}

TEST_F(KeysOnDisplay, FollowTheFocusThatAClickHasMoved) {
    ClickOn(screen.Third.Widget());
    EXPECT_TRUE(WaitFor([&] { return screen.ActiveControlName() == "Third"; }));
    EXPECT_EQ((Events{"Validate First", "LostFocus First", "GotFocus Third"}), screen.Taken());
    Send({"key", "shift+Tab", "y"});
    EXPECT_TRUE(WaitFor([&] { return screen.Second.Text() == "y"; }));
}

const Box FirstQuestion = Question("Save?");
const Box SecondQuestion{.text = "Print?",
                         .title = "Confirmation",
                         .buttons = BoxButtons::YesNo,
                         .defaultButton = BoxAnswer::No};

/// One key shows two questions, one after the other.
class KeysTypedAheadOfBoxesOnDisplay : public KeysOnDisplay,
                                       public testing::WithParamInterface<int> {
protected:
    void SetUp() override {
        KeysOnDisplay::SetUp();
        SetBoxPresenter({});
        screen.OnKeyDown = [this](int& key, int) {
            if (key == 'S') {
                key = 0;
                answers.push_back(MsgBox(FirstQuestion));
                answers.push_back(MsgBox(SecondQuestion));
            }
        };
    }
    void TearDown() override { ForbidUnexpectedBoxes(); }

    /// Types while the program runs.
    static void Type(const QStringList& keys) {
        QProcess tool;
        tool.start("xdotool", QStringList{"key", "--delay", QString::number(GetParam())} + keys);
        ASSERT_TRUE(WaitFor([&] { return tool.state() == QProcess::NotRunning; }));
        ASSERT_EQ(0, tool.exitCode());
    }

    std::vector<BoxAnswer> answers;
};

TEST_P(KeysTypedAheadOfBoxesOnDisplay, AnswerTheBoxesInOrderThenReachTheScreen) {
    for (int times = 0; times < 5; ++times) {
        Type({"s", "y", "n", "a", "s", "Escape", "y", "b"});
        EXPECT_TRUE(WaitFor([&] { return screen.First.Text() == "ab"; })) << screen.First.Text();
        EXPECT_EQ((std::vector{BoxAnswer::Yes, BoxAnswer::No, BoxAnswer::No, BoxAnswer::Yes}),
                  std::exchange(answers, {}));
        screen.First.SetText("");
    }
}

TEST_P(KeysTypedAheadOfBoxesOnDisplay, ReachAModalScreenThenTheScreenBelowInOrder) {
    for (int times = 0; times < 5; ++times) {
        TrialScreen above("Above");
        above.OnLoad = [&] { above.DoEvents(); };
        above.OnKeyDown = [&](int& key, int) {
            if (key == Key::Escape) {
                key = 0;
                above.Unload();
            }
        };
        screen.OnKeyDown = [&](int& key, int) {
            if (key == Key::F1) {
                above.ShowModal(&screen);
                screen.DoEvents();
                screen.Third.SetFocus();
            }
        };
        screen.First.SetFocus();
        Type({"a", "F1", "b", "Tab", "c", "Escape", "d"});
        EXPECT_TRUE(WaitFor([&] { return screen.Third.Text() == "d"; }));
        EXPECT_EQ("a", screen.First.Text());
        EXPECT_EQ("b", above.First.Text());
        EXPECT_EQ("c", above.Second.Text());
        screen.First.SetText("");
        screen.Third.SetText("");
    }
}

INSTANTIATE_TEST_SUITE_P(MillisecondsBetweenKeys, KeysTypedAheadOfBoxesOnDisplay,
                         testing::Values(0, 5, 20, 40, 100, 200),
                         testing::PrintToStringParamName());

/// Another program with a window that has the keyboard; it records the keys that it gets.
class OtherProgram {
public:
    OtherProgram() {
        tool_.start("xev", {"-event", "keyboard", "-name", "Other program"});
        EXPECT_TRUE(Answers({"search", "--sync", "--onlyvisible", "--name", "^Other program$"}));
        window_ = answer_.trimmed();
        Tool({"windowfocus", window_});
        EXPECT_TRUE(WaitFor([this] { return HasKeyboard(); }));
    }
    ~OtherProgram() {
        tool_.kill();
        tool_.waitForFinished();
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    bool HasKeyboard() { return Answers({"getwindowfocus", "-f"}) && answer_.trimmed() == window_; }
    bool WasTyped(const QByteArray& key) {
        typed_ += tool_.readAllStandardOutput();
        return typed_.contains("keysym 0x" + QByteArray::number(key[0], 16) + ", " + key);
    }

private:
    bool Answers(const QStringList& question) {
        QProcess tool;
        tool.start("xdotool", question);
        const bool ended = WaitFor([&] { return tool.state() == QProcess::NotRunning; });
        answer_ = tool.readAllStandardOutput();
        return ended && tool.exitCode() == 0;
    }
    void Tool(const QStringList& arguments) { EXPECT_TRUE(Answers(arguments)); }

    QProcess tool_;
    QString window_;
    QByteArray answer_;
    QByteArray typed_;
};

TEST_F(KeysOnDisplay, TypedInAnotherProgramDoNotReachANewBox) {
    OtherProgram other;
    ASSERT_TRUE(
        WaitFor([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
    {
        const VisitBox visit([&](QDialog& box) {
            EXPECT_TRUE(WaitFor([&] { return box.windowHandle()->isExposed(); }));
            Send({"key", "x"});
            EXPECT_TRUE(WaitFor([&] { return other.WasTyped("x"); }));
            EXPECT_TRUE(other.HasKeyboard());
            EXPECT_FALSE(box.isActiveWindow());
            box.reject();
        });
        MsgBox(Alert("Port closed"));
    }
    Send({"key", "y"});
    EXPECT_TRUE(WaitFor([&] { return other.WasTyped("y"); }));
    EXPECT_TRUE(other.HasKeyboard());
    EXPECT_EQ("", screen.First.Text());
}

TEST_F(KeysOnDisplay, AnswerABoxShownInTheBackgroundOnceTheProgramIsActive) {
    const OtherProgram other;
    ASSERT_TRUE(
        WaitFor([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
    {
        const VisitBox visit([this](QDialog& box) {
            EXPECT_TRUE(WaitFor([&] { return box.windowHandle()->isExposed(); }));
            Send({"windowfocus", QString::number(screen.winId()), "key", "Return"});
            EXPECT_TRUE(WaitFor([&] { return !box.isVisible(); }));
        });
        MsgBox(Alert("Port closed"));
    }
    Send({"key", "x"});
    EXPECT_TRUE(WaitFor([&] { return screen.First.Text() == "x"; }));
}

TEST_F(KeysOnDisplay, AndClicksDoNotReachTheScreenBelowABoxShownInTheBackground) {
    int clicks = 0;
    screen.BtnGo.Click = [&clicks] { ++clicks; };
    const OtherProgram other;
    ASSERT_TRUE(
        WaitFor([] { return QGuiApplication::applicationState() != Qt::ApplicationActive; }));
    const VisitBox visit([this](QDialog& box) {
        box.move(0, 0); // away from the screen
        EXPECT_TRUE(WaitFor([&] { return box.windowHandle()->isExposed() && box.x() < 100; }));
        ClickOn(screen.BtnGo.Widget());
        EXPECT_TRUE(WaitFor([&] { return box.isActiveWindow(); }));
        screen.windowHandle()->close();
        EXPECT_TRUE(screen.IsLoaded());
        ClickOn(*box.findChild<QAbstractButton*>());
        EXPECT_TRUE(WaitFor([&] { return !box.isVisible(); }));
    });
    MsgBox(Alert("Port closed"));
    EXPECT_EQ(0, clicks);
    ClickOn(screen.BtnGo.Widget());
    EXPECT_TRUE(WaitFor([&] { return clicks == 1; }));
}

} // namespace
} // namespace Quillane::Testing
