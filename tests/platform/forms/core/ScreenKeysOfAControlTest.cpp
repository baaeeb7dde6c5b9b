#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane::Testing {
namespace {

class HandlingBox : public TextBox {
public:
    HandlingBox(TrialScreen& screen, std::string name)
        : TextBox(screen, std::move(name)), log_(screen.Log) {}

    bool HandleKey(int key, int shift) override {
        if (key == Key::Shift || key == Key::Control || key == Key::Alt)
            return false;
        log_.push_back("HandleKey " + std::to_string(key) + " " + std::to_string(shift));
        return key == 'X';
    }
    void CommitEdit() override { log_.push_back("CommitEdit"); }

private:
    std::vector<std::string>& log_;
};

class ScreenKeysOfAControl : public testing::Test {
protected:
    ScreenKeysOfAControl() {
        box.SetTabIndex(0);
        screen.First.SetTabIndex(6);
        screen.Show();
        screen.LogKeys = true;
        screen.Taken();
    }

    TrialScreen screen;
    HandlingBox box{screen, "Box"};
    ScreenDriver driver{screen};
};

TEST_F(ScreenKeysOfAControl, AreHandledByItBetweenKeyDownAndKeyPress) {
    driver.Type("a").Type("x");
    EXPECT_EQ(
        (Events{"KeyDown 65 0", "HandleKey 65 0", "KeyPress 97", "KeyDown 88 0", "HandleKey 88 0"}),
        screen.Taken());
    EXPECT_EQ("a", box.Text());
}

TEST_F(ScreenKeysOfAControl, AreNotHandledByItIfTheScreenMovesTheFocus) {
    screen.OnKeyDown = [this](int&, int) { screen.Third.SetFocus(); };
    driver.Press(Qt::Key_Insert);
    EXPECT_EQ(
        (Events{"KeyDown 45 0", "CommitEdit", "Validate Box", "LostFocus Box", "GotFocus Third"}),
        screen.Taken());
}

TEST_F(ScreenKeysOfAControl, AreNotHandledByItIfTheScreenIsShownAgain) {
    screen.OnKeyDown = [this](int&, int) {
        screen.Unload();
        screen.Show();
    };
    driver.Press(Qt::Key_Insert);
    EXPECT_EQ((Events{"KeyDown 45 0", "Form_Unload", "Form_Load", "GotFocus Box"}), screen.Taken());
}

// Its KeyDown is logged as its own and then runs an action of the test.
void ListenToKeysOf(HandlingBox& box, TrialScreen& screen, const std::function<void(int&)>& act) {
    box.KeyDown = [&screen, act](int& key, int shift) {
        if (key == Key::Shift || key == Key::Alt)
            return;
        screen.Log.push_back("Box_KeyDown " + std::to_string(key) + " " + std::to_string(shift));
        act(key);
    };
}

TEST_F(ScreenKeysOfAControl, ReachItsKeyDownAfterTheScreensAndBeforeItsOwnHandling) {
    ListenToKeysOf(box, screen, [](int&) {});
    driver.Type("a").Press(Qt::SHIFT | Qt::Key_Return);
    EXPECT_EQ((Events{"KeyDown 65 0", "Box_KeyDown 65 0", "HandleKey 65 0", "KeyPress 97",
                      "KeyDown 13 1", "Box_KeyDown 13 1", "HandleKey 13 1"}),
              screen.Taken());
    EXPECT_EQ("a", box.Text());
}

TEST_F(ScreenKeysOfAControl, AreSwallowedByItsKeyDown) {
    ListenToKeysOf(box, screen, [](int& key) { key = 0; });
    driver.Type("a").Press(Qt::Key_Tab);
    EXPECT_EQ((Events{"KeyDown 65 0", "Box_KeyDown 65 0", "KeyDown 9 0", "Box_KeyDown 9 0"}),
              screen.Taken());
    EXPECT_EQ("", box.Text());
    EXPECT_EQ("Box", screen.ActiveControlName());
}

TEST_F(ScreenKeysOfAControl, DoNotReachItsKeyDownIfTheScreenSwallowsThem) {
    ListenToKeysOf(box, screen, [](int&) {});
    screen.OnKeyDown = [](int& key, int) { key = 0; };
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0"}), screen.Taken());
}

TEST_F(ScreenKeysOfAControl, ReachTheKeyDownOfNoOtherControl) {
    ListenToKeysOf(box, screen, [](int&) {});
    screen.OnKeyDown = [this](int& key, int) { key == 'A' ? screen.Third.SetFocus() : void(); };
    driver.Type("a").Type("b");
    EXPECT_EQ((Events{"KeyDown 65 0", "CommitEdit", "Validate Box", "LostFocus Box",
                      "GotFocus Third", "KeyPress 97", "KeyDown 66 0", "KeyPress 98"}),
              screen.Taken());
}

TEST_F(ScreenKeysOfAControl, AreUsedUpIfItsKeyDownMovesTheFocus) {
    screen.BtnGo.Click = [this] { screen.Log.push_back("Click"); };
    ListenToKeysOf(box, screen, [this](int&) { screen.Third.SetFocus(); });
    for (const QKeyCombination key : {QKeyCombination(Qt::Key_A), QKeyCombination(Qt::Key_Tab),
                                      QKeyCombination(Qt::Key_Down), Qt::ALT | Qt::Key_G}) {
        driver.Press(key);
        EXPECT_EQ("Third", screen.ActiveControlName()) << key.toCombined();
        EXPECT_EQ("GotFocus Third", screen.Taken().back()) << key.toCombined();
        box.SetFocus();
    }
    EXPECT_EQ("", box.Text());
    EXPECT_EQ("", screen.Third.Text());
}

TEST_F(ScreenKeysOfAControl, EndIfItsKeyDownClosesTheScreen) {
    ListenToKeysOf(box, screen, [this](int&) { screen.Unload(); });
    driver.Type("a");
    EXPECT_EQ((Events{"KeyDown 65 0", "Box_KeyDown 65 0", "Form_Unload"}), screen.Taken());
    screen.Show();
    screen.Taken();
    ListenToKeysOf(box, screen, [this](int&) {
        screen.Unload();
        screen.Show();
    });
    driver.Type("a");
    EXPECT_EQ(
        (Events{"KeyDown 65 0", "Box_KeyDown 65 0", "Form_Unload", "Form_Load", "GotFocus Box"}),
        screen.Taken());
    EXPECT_EQ("", box.Text());
}

TEST_F(ScreenKeysOfAControl, CommitItsPendingEditBeforeAShortcutActs) {
    driver.Press(Qt::CTRL | Qt::Key_S);
    EXPECT_EQ((Events{"CommitEdit", "KeyDown 83 2", "HandleKey 83 2"}), screen.Taken());
    driver.Press(Qt::CTRL | Qt::SHIFT | Qt::Key_Delete);
    EXPECT_EQ((Events{"CommitEdit", "KeyDown 46 3", "HandleKey 46 3"}), screen.Taken());
}

TEST_F(ScreenKeysOfAControl, ThatEditTextKeepItsPendingEdit) {
    for (const QKeyCombination key :
         {Qt::CTRL | Qt::Key_C, Qt::CTRL | Qt::Key_V, Qt::CTRL | Qt::Key_X, Qt::CTRL | Qt::Key_Z,
          Qt::CTRL | Qt::Key_Left, Qt::CTRL | Qt::Key_Delete, Qt::ALT | Qt::Key_Down,
          Qt::CTRL | Qt::Key_Control, QKeyCombination(Qt::Key_F4)}) {
        driver.Press(key);
        const Events log = screen.Taken();
        EXPECT_EQ(0, std::ranges::count(log, "CommitEdit")) << key.toCombined();
    }
}

TEST_F(ScreenKeysOfAControl, CommitItsPendingEditBeforeItIsLeft) {
    driver.Press(Qt::Key_Tab);
    EXPECT_EQ((Events{"KeyDown 9 0", "HandleKey 9 0", "CommitEdit", "Validate Box", "LostFocus Box",
                      "GotFocus Second"}),
              screen.Taken());
}

} // namespace
} // namespace Quillane::Testing
