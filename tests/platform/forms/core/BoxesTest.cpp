#include "platform/forms/core/Boxes.h"

#include "platform/forms/TrialScreen.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace Quillane::Testing {
namespace {

BoxAnswer AnswerWith(const Box& box, Qt::Key key) {
    const VisitBox visit([key](QDialog& shown) {
        const QPointer<QDialog> open = &shown;
        PressIn(shown, key);
        WaitFor([&] { return !open || !open->isVisible(); });
    });
    return MsgBox(box);
}

TEST(MessageBox, ShowsItsTextPlainlyUnderItsTitle) {
    const VisitBox visit([](QDialog& shown) {
        auto& box = dynamic_cast<QMessageBox&>(shown);
        EXPECT_EQ("<b>Seller</b> & Co", box.text().toStdString());
        EXPECT_EQ(Qt::PlainText, box.textFormat());
        EXPECT_EQ("Alert", box.windowTitle().toStdString());
        EXPECT_EQ(QMessageBox::Question, box.icon());
        EXPECT_EQ(QMessageBox::Yes | QMessageBox::No, box.standardButtons());
        box.reject();
    });
    MsgBox(Question("<b>Seller</b> & Co"));
}

// The title bar also has the icon and the buttons of the frame.
TEST(MessageBox, IsWideEnoughForItsTitleIfItsTextIsShort) {
    for (const char* title : {"Quillane", "Confirmation", "A title of many words, as a file's"}) {
        const VisitBox visit([&](QDialog& shown) {
            EXPECT_GE(shown.width(), shown.fontMetrics().horizontalAdvance(title) + 140) << title;
            PressIn(shown, Qt::Key_Return);
        });
        MsgBox(Critical("Overflow", title));
    }
}

TEST(MessageBox, MayHaveAnEmptyTitle) {
    const VisitBox visit([](QDialog& shown) {
        EXPECT_EQ("", shown.windowTitle().toStdString());
        PressIn(shown, Qt::Key_Return);
    });
    EXPECT_EQ(BoxAnswer::Ok, MsgBox({.text = "Text"}));
}

TEST(MessageBox, TakesEnterForItsDefaultButtonAndEscapeForNo) {
    Box box = Question("Save?");
    EXPECT_EQ(BoxAnswer::Yes, AnswerWith(box, Qt::Key_Return));
    EXPECT_EQ(BoxAnswer::No, AnswerWith(box, Qt::Key_Escape));
    EXPECT_EQ(BoxAnswer::No, AnswerWith(box, Qt::Key_N));
    box.defaultButton = BoxAnswer::No;
    EXPECT_EQ(BoxAnswer::No, AnswerWith(box, Qt::Key_Return));
    EXPECT_EQ(BoxAnswer::Yes, AnswerWith(box, Qt::Key_Y));
}

TEST(MessageBox, TakesEscapeForItsOnlyButton) {
    EXPECT_EQ(BoxAnswer::Ok, AnswerWith(Alert("Text"), Qt::Key_Escape));
}

/// Shows a box, looks at it, and answers it by Enter.
void LookAt(const Box& box, const std::function<void(QMessageBox&)>& look) {
    const VisitBox visit([&look](QDialog& shown) {
        look(dynamic_cast<QMessageBox&>(shown));
        PressIn(shown, Qt::Key_Return);
    });
    MsgBox(box);
}

QRect ButtonOnDisplay(QMessageBox& box) {
    const QWidget& button = *box.button(QMessageBox::Ok);
    return {button.mapToGlobal(QPoint(0, 0)), button.size()};
}

std::string LongText(std::size_t letters, std::string_view part) {
    std::string text;
    while (text.size() < letters)
        text += part;
    text.resize(letters);
    return text;
}

TEST(MessageBox, OfALongTextFitsTheDisplayAndStatesTheLengthOfTheText) {
    const char* const parts[] = {"the server refuses the statement ", "x", "line\r\n",
                                 "SELECT(ABC,DEF);"};
    for (const char* part : parts)
        for (const std::size_t letters : {10'000U, 1'000'000U}) {
            LookAt(Critical(LongText(letters, part), "Database"), [&](QMessageBox& box) {
                const QRect display = box.screen()->availableGeometry();
                EXPECT_TRUE(display.contains(box.geometry())) << part << letters;
                EXPECT_TRUE(display.contains(ButtonOnDisplay(box))) << part << letters;
                EXPECT_LT(box.text().size(), 5000);
                EXPECT_TRUE(box.text().startsWith(QString::fromUtf8(part).left(4)));
                EXPECT_TRUE(box.text().endsWith(" letters in all: Ctrl+C copies the whole text.)"));
                EXPECT_EQ(box.text().contains("(1,000,000 letters"), letters == 1'000'000);
            });
        }
}

TEST(MessageBox, ShowsATextThatFitsUnchanged) {
    for (const std::string& text :
         {std::string("The database file /var/lib/quillane/Account1.db is read-only."),
          LongText(600, "words of a usual length "), std::string("two\r\nlines\r\n")})
        LookAt(Critical(text, "Database"),
               [&](QMessageBox& box) { EXPECT_EQ(box.text().toStdString(), text); });
}

TEST(MessageBox, BreaksAWordThatIsWiderThanTheDisplay) {
    const std::string word(400, 'x');
    LookAt(Critical("near " + word, "Database"), [&](QMessageBox& box) {
        EXPECT_TRUE(box.screen()->availableGeometry().contains(box.geometry()));
        EXPECT_EQ(box.text().remove('\n').toStdString(), "near " + word);
    });
}

TEST(MessageBox, CopiesItsWholeText) {
    for (const std::string& text :
         {std::string("Overflow"), LongText(1'000'000, "a text\r\nof many lines ")})
        LookAt(Critical(text, "Quillane"), [&](QMessageBox& box) {
            QGuiApplication::clipboard()->clear();
            PressIn(box, Qt::CTRL | Qt::Key_C);
            EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString() == text, true);
            EXPECT_TRUE(box.isVisible());
        });
}

TEST(MessageBox, IsShownUntilItIsAnswered) {
    EXPECT_FALSE(BoxIsUp());
    {
        const VisitBox visit([](QDialog& shown) {
            EXPECT_TRUE(BoxIsUp());
            shown.reject();
        });
        MsgBox(Alert("Text"));
    }
    EXPECT_FALSE(BoxIsUp());
}

std::string EnterInto(const InputPrompt& prompt, std::function<void(QDialog&)> act) {
    const VisitBox visit(std::move(act));
    return InputBox(prompt);
}

TEST(InputBoxOfAScreen, ReturnsTheTypedText) {
    const InputPrompt prompt{.prompt = "Company", .title = "Name", .defaultText = "VELTRANE"};
    EXPECT_EQ("VELTRANE", EnterInto(prompt, [](QDialog& shown) {
                  EXPECT_EQ("Name", shown.windowTitle().toStdString());
                  PressIn(shown, Qt::Key_Return);
              }));
    EXPECT_EQ("Q", EnterInto(prompt, [](QDialog& shown) {
                  shown.findChild<QLineEdit*>()->setText("Q");
                  PressIn(shown, Qt::Key_Return);
              }));
}

TEST(InputBoxOfAScreen, ReturnsTheEmptyTextIfItIsCancelled) {
    EXPECT_EQ("", EnterInto({.prompt = "Company", .title = "Name", .defaultText = "VELTRANE"},
                            [](QDialog& shown) { PressIn(shown, Qt::Key_Escape); }));
}

TEST(ProgramTitleOfBoxes, IsTheApplicationsName) {
    EXPECT_EQ("Quillane", ProgramTitle());
}

TEST(BoxAnswersGivenInAdvance, AreGivenInOrder) {
    BoxAnswers answers;
    answers.Expect(Question("Save?"), BoxAnswer::No)
        .ExpectInput({.prompt = "Name", .title = "T", .defaultText = ""}, "X")
        .Allow(Alert("Port"));
    MsgBox(Alert("Port"));
    EXPECT_EQ(BoxAnswer::No, MsgBox(Question("Save?")));
    MsgBox(Alert("Port"));
    EXPECT_EQ("X", InputBox({.prompt = "Name", .title = "T", .defaultText = ""}));
    EXPECT_EQ(0u, answers.Remaining());
}

TEST(BoxAnswersGivenInAdvance, FailTheTestWhenABoxIsUnexpected) {
    EXPECT_NONFATAL_FAILURE(MsgBox(Alert("Surprise")), "Unexpected box \"Surprise\"");
    BoxAnswers answers;
    EXPECT_NONFATAL_FAILURE(MsgBox(Question("Surprise")), "Unexpected box \"Surprise\"");
}

TEST(BoxAnswersGivenInAdvance, FailTheTestWhenTheBoxDiffersInAnyPart) {
    const Box expected = Question("Save?");
    Box others[] = {expected, expected, expected, expected, expected};
    others[0].text = "save?";
    others[1].title = "alert";
    others[2].icon = BoxIcon::None;
    others[3].buttons = BoxButtons::Ok;
    others[4].defaultButton = BoxAnswer::No;
    for (const Box& other : others) {
        BoxAnswers answers;
        answers.Expect(expected);
        EXPECT_NONFATAL_FAILURE(MsgBox(other), "Save?");
    }
}

TEST(BoxAnswersGivenInAdvance, FailTheTestWhenTheyAreNotUsed) {
    EXPECT_NONFATAL_FAILURE({ BoxAnswers().Expect(Alert("Late")); }, "Never asked: box \"Late\"");
}

} // namespace
} // namespace Quillane::Testing
