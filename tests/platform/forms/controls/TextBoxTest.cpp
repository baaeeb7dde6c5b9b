#include "platform/forms/controls/TextBox.h"

#include "platform/forms/TrialScreen.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>

#include <gtest/gtest.h>

#include <algorithm>

namespace Quillane::Testing {
namespace {

class TextBoxTest : public testing::Test {
protected:
    TextBoxTest() {
        screen.Show();
        box.Change = [this] { changes.push_back(box.Text()); };
    }

    QLineEdit& Edit() { return dynamic_cast<QLineEdit&>(box.Widget()); }

    TrialScreen screen;
    TextBox& box = screen.First;
    ScreenDriver driver{screen};
    Events changes;
};

TEST_F(TextBoxTest, ChangesOnceForEachEditOfTheOperator) {
    driver.Type("ab").Press(Qt::Key_Backspace);
    EXPECT_EQ((Events{"a", "ab", "a"}), changes);
}

TEST_F(TextBoxTest, ChangesInsideEachWriteAlsoOfTheSameText) {
    box.SetText("12");
    box.SetText("12");
    box.SetText("");
    box.SetText("");
    EXPECT_EQ((Events{"12", "12", "", ""}), changes);
}

TEST_F(TextBoxTest, ChangesOnceWhenTextIsPastedOverASelection) {
    box.SetText("old");
    changes.clear();
    box.SelectAll();
    QApplication::clipboard()->setText("new");
    driver.Press(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ((Events{"new"}), changes);
}

TEST_F(TextBoxTest, LimitsTypedAndPastedText) {
    box.SetMaxLength(4);
    driver.Type("12345");
    EXPECT_EQ("1234", box.Text());
    EXPECT_EQ(4u, changes.size());
    QApplication::clipboard()->setText("98765");
    box.SelectAll();
    driver.Press(Qt::CTRL | Qt::Key_V);
    EXPECT_EQ("9876", box.Text());
}

TEST_F(TextBoxTest, KeepsATextFromCodeThatIsLongerThanTheLimit) {
    box.SetMaxLength(4);
    box.SetText("1234567");
    EXPECT_EQ("1234567", box.Text());
    driver.Press(Qt::Key_End).Type("8");
    EXPECT_EQ("1234567", box.Text());
    driver.Press(Qt::Key_Backspace);
    EXPECT_EQ("123456", box.Text());
    driver.Type("9");
    EXPECT_EQ("123456", box.Text());
    driver.Press(Qt::Key_Backspace).Press(Qt::Key_Backspace).Press(Qt::Key_Backspace);
    driver.Type("9").Type("9");
    EXPECT_EQ("1239", box.Text());
    EXPECT_EQ(4, box.MaxLength());
}

class FilteredTextBox : public TextBoxTest {
protected:
    FilteredTextBox() {
        box.Admits = [this](std::string_view text) {
            asked.emplace_back(text);
            return text.find('x') == std::string_view::npos;
        };
    }

    static void Paste(ScreenDriver& by, const char* text) {
        QApplication::clipboard()->setText(text);
        by.Press(Qt::CTRL | Qt::Key_V);
    }
    QMenu* Menu() {
        QContextMenuEvent wanted(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                 Edit().mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&Edit(), &wanted);
        return qobject_cast<QMenu*>(QApplication::activePopupWidget());
    }
    /// The bool is true if the box accepted the text.
    bool Drop(const char* text) {
        QMimeData data;
        data.setText(text);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Edit(), &enter);
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&Edit(), &drop);
        return drop.isAccepted();
    }

    Events asked;
};

TEST_F(FilteredTextBox, RefusesATypedCharacterAlsoWithAlt) {
    driver.Type("ax").Press(Qt::ALT | Qt::Key_X).Type("b").Press(Qt::Key_Backspace);
    EXPECT_EQ("a", box.Text());
    EXPECT_EQ((Events{"a", "ab", "a"}), changes);
}

TEST_F(FilteredTextBox, RefusesAWholePastedTextAndKeepsTheSelection) {
    box.SetText("old");
    box.SelectAll();
    changes.clear();
    Paste(driver, "1x2");
    EXPECT_EQ("old", box.Text());
    EXPECT_EQ("old", box.SelectedText());
    EXPECT_TRUE(changes.empty());
    Paste(driver, "12");
    EXPECT_EQ("12", box.Text());
    EXPECT_EQ((Events{"12"}), changes);
    EXPECT_EQ((Events{"1x2", "12"}), asked);
}

TEST_F(FilteredTextBox, RefusesAWholeTextPastedByTheMenu) {
    for (const char* text : {"1x2", "12"}) {
        QMenu* menu = Menu();
        ASSERT_NE(menu, nullptr);
        const auto actions = menu->actions();
        const auto paste = std::ranges::find_if(
            actions, [](const QAction* action) { return action->text().startsWith("&Paste"); });
        ASSERT_NE(paste, actions.end());
        // The pasted text is decisive, not the contents of the clipboard when the menu was shown.
        QApplication::clipboard()->setText(text);
        (*paste)->trigger();
        menu->close();
    }
    EXPECT_EQ("12", box.Text());
    EXPECT_EQ((Events{"12"}), changes);
}

TEST_F(FilteredTextBox, RefusesAWholeDroppedText) {
    EXPECT_FALSE(Drop("1x2"));
    EXPECT_EQ("", box.Text());
    EXPECT_TRUE(Drop("12"));
    EXPECT_EQ("12", box.Text());
    EXPECT_EQ((Events{"12"}), changes);
}

TEST_F(FilteredTextBox, RefusesAWholeCommittedText) {
    driver.Commit("1x2");
    EXPECT_EQ("", box.Text());
    driver.Commit("12");
    EXPECT_EQ("12", box.Text());
    EXPECT_EQ((Events{"12"}), changes);
}

// Off screen there is no selection that could be pasted.
class FilteredTextBoxOnDisplay : public FilteredTextBox {};

TEST_F(FilteredTextBoxOnDisplay, RefusesAWholeTextOfTheMiddleButton) {
    ASSERT_TRUE(HasDisplay());
    QClipboard& clipboard = *QApplication::clipboard();
    for (const char* text : {"1x2", "12"}) {
        clipboard.setText(text, QClipboard::Selection);
        QMouseEvent letGo(QEvent::MouseButtonRelease, QPointF(5, 5),
                          Edit().mapToGlobal(QPointF(5, 5)), Qt::MiddleButton, Qt::NoButton,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&Edit(), &letGo);
    }
    EXPECT_EQ("12", box.Text());
    EXPECT_EQ((Events{"12"}), changes);
}

TEST_F(FilteredTextBox, IsNotAskedForAWriteFromCode) {
    box.SetText("x");
    EXPECT_EQ("x", box.Text());
    EXPECT_TRUE(asked.empty());
    driver.Press(Qt::Key_End).Press(Qt::Key_Backspace);
    EXPECT_EQ("", box.Text());
    EXPECT_TRUE(asked.empty()) << "nor for removed text";
}

TEST_F(TextBoxTest, TakesACommittedTextOnlyWhileItIsNotLocked) {
    box.SetText("4320");
    box.SetLocked(true);
    driver.Commit("5");
    EXPECT_EQ("4320", box.Text());
    box.SetLocked(false);
    driver.Commit("5");
    EXPECT_EQ("43205", box.Text());
}

TEST_F(TextBoxTest, HasNoLimitUnlessOneIsSet) {
    EXPECT_EQ(0, box.MaxLength());
    const std::string text(40000, 'x');
    box.SetText(text);
    EXPECT_EQ(text, box.Text());
}

TEST_F(TextBoxTest, TakesTheFocusButNoTypingWhileItIsLocked) {
    box.SetLocked(true);
    driver.Type("a");
    EXPECT_TRUE(box.Locked());
    EXPECT_EQ("", box.Text());
    EXPECT_TRUE(box.CanTakeFocus());
    box.SetText("12540");
    EXPECT_EQ("12540", box.Text());
}

TEST_F(TextBoxTest, KeepsTextBeyondAscii) {
    box.SetText("گندم é");
    EXPECT_EQ("گندم é", box.Text());
}

TEST_F(TextBoxTest, SelectsItsTextOnlyWhenAsked) {
    box.SetText("text");
    screen.Second.SetFocus();
    driver.Press(Qt::Key_Backtab);
    EXPECT_EQ("", box.SelectedText());
    box.SelectAll();
    EXPECT_EQ("text", box.SelectedText());
}

class MarkedBoxUnderTheMouse : public TextBoxTest {
protected:
    MarkedBoxUnderTheMouse() {
        screen.Third.SetText("17");
        screen.Third.GotFocus = [this] { screen.Third.SelectAll(); };
    }

    QLineEdit& Marked() { return dynamic_cast<QLineEdit&>(screen.Third.Widget()); }
};

TEST_F(MarkedBoxUnderTheMouse, PressThatBringsTheFocusKeepsTheSelection) {
    driver.Click(screen.Third);
    EXPECT_EQ("Third", screen.ActiveControlName());
    EXPECT_EQ("17", screen.Third.SelectedText());
    driver.Type("5");
    EXPECT_EQ("5", screen.Third.Text());
}

TEST_F(MarkedBoxUnderTheMouse, SmallMovesDuringThePressKeepTheSelection) {
    const QPoint middle = Marked().rect().center();
    driver.Drag(Marked(), middle, middle - QPoint(30, 0));
    EXPECT_EQ("17", screen.Third.SelectedText());
}

TEST_F(MarkedBoxUnderTheMouse, NextDragSelects) {
    screen.Third.SetText("LEA-4521");
    driver.Click(screen.Third);
    const int height = Marked().height() / 2;
    driver.Drag(Marked(), QPoint(4, height), QPoint(20, height));
    EXPECT_NE("LEA-4521", screen.Third.SelectedText());
    EXPECT_EQ('L', screen.Third.SelectedText().at(0));
}

TEST_F(MarkedBoxUnderTheMouse, NextPressMovesTheCaret) {
    driver.Click(screen.Third);
    driver.Click(Marked(), QPoint(4, Marked().height() / 2));
    EXPECT_EQ("", screen.Third.SelectedText());
    driver.Type("5");
    EXPECT_EQ("517", screen.Third.Text());
}

TEST_F(MarkedBoxUnderTheMouse, EachPressThatBringsTheFocusSelectsAgain) {
    driver.Click(screen.Third).Click(screen.Third).Click(screen.First).Click(screen.Third);
    EXPECT_EQ("17", screen.Third.SelectedText());
}

TEST_F(TextBoxTest, PressThatBringsTheFocusKeepsTheCaret) {
    screen.Third.SetText("LEA-4521");
    auto& edit = dynamic_cast<QLineEdit&>(screen.Third.Widget());
    driver.Click(edit, QPoint(4, edit.height() / 2)).Type("x");
    EXPECT_EQ("LEA-4521x", screen.Third.Text());
}

TEST_F(TextBoxTest, TextFromCodeIsVisibleImmediately) {
    const auto picture = [this] { return box.Widget().grab().toImage(); };
    screen.Second.SetFocus(); // without a caret
    QApplication::processEvents();
    box.SetText("12540");
    const QImage atOnce = picture();
    QApplication::processEvents();
    EXPECT_EQ(atOnce, picture());
    box.SetText("");
    EXPECT_NE(atOnce, picture());

    box.SetFocus();
    box.SetText("4320");
    box.SelectAll();
    EXPECT_EQ("4320", box.SelectedText());
    box.SetText("81");
    EXPECT_EQ("", box.SelectedText());
    box.SetText("125");
    driver.Press(Qt::Key_Backspace).Type("40");
    EXPECT_EQ("1240", box.Text());
}

TEST_F(TextBoxTest, DisabledBoxIsGreyAndLegible) {
    box.SetEnabled(false);
    const QPalette palette = Edit().palette();
    EXPECT_EQ(QColor(0xE0, 0xE0, 0xE0), palette.color(QPalette::Disabled, QPalette::Base));
    EXPECT_LT(palette.color(QPalette::Disabled, QPalette::Text).lightness(), 80);
    box.SetBackColor(0xC0FFFF);
    EXPECT_EQ(QColor(0xFF, 0xFF, 0xC0), Edit().palette().color(QPalette::Disabled, QPalette::Base));
}

TEST_F(TextBoxTest, HasTheAppearanceThatIsSet) {
    box.SetAlignment(TextBox::Alignment::Right);
    EXPECT_TRUE(Edit().alignment() & Qt::AlignRight);
    box.SetAlignment(TextBox::Alignment::Centre);
    EXPECT_TRUE(Edit().alignment() & Qt::AlignHCenter);
    box.SetFont("Arial", 21.75, true);
    EXPECT_DOUBLE_EQ(21.75, Edit().font().pointSizeF());
    EXPECT_TRUE(Edit().font().bold());
    box.SetPassword(true);
    EXPECT_EQ(QLineEdit::Password, Edit().echoMode());
}

} // namespace
} // namespace Quillane::Testing
