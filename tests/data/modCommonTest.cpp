#include "data/modCommon.h"

#include "ListScreen.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"
#include "support/BoxAnswers.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;

// ---- ShowError ----

template <typename Thrown>
void Trap(const Thrown& thrown) {
    try {
        throw thrown;
    } catch (...) {
        ShowError();
    }
}

TEST(ShowError, TextIsTheDescriptionAndTitleTheSource) {
    BoxAnswers boxes;
    boxes.Expect(Critical("Incorrect syntax near 's'.", "Database"));
    Trap(Failure(FailureNumber::Database, "Incorrect syntax near 's'.", FailureSource::Database));
}

TEST(ShowError, EmptySourceGivesAnEmptyTitle) {
    BoxAnswers boxes;
    boxes.Expect(Critical("Something went wrong.", ""));
    Trap(Failure(1, "Something went wrong.", ""));
}

TEST(ShowError, StandardExceptionsAreShown) {
    BoxAnswers boxes;
    boxes.Expect(Critical("Out of memory", "Quillane"));
    boxes.Expect(Critical("a broken rule", "Quillane"));
    Trap(std::bad_alloc());
    Trap(std::runtime_error("a broken rule"));
}

TEST(ShowError, EndOfAScreenIsNotCaught) {
    const BoxAnswers boxes;
    EXPECT_THROW(Trap(ScreenGone()), ScreenGone);
}

// ---- AllowNumericKey ----

struct KeyCase {
    int key;
    std::string text;
    bool allowPoint;
    int left;

    friend void PrintTo(const KeyCase& each, std::ostream* out) { *out << each.key << each.text; }
};

class AllowNumericKeyTest : public testing::TestWithParam<KeyCase> {};

TEST_P(AllowNumericKeyTest, OtherKeysAreSetToZero) {
    ListScreen screen;
    screen.TxtWeight.SetText(GetParam().text);
    int key = GetParam().key;
    AllowNumericKey(key, screen.TxtWeight, GetParam().allowPoint);
    EXPECT_EQ(key, GetParam().left);
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, AllowNumericKeyTest,
                         testing::Values(KeyCase{'0', "", false, '0'},
                                         KeyCase{'9', "1.5", false, '9'},
                                         KeyCase{'5', "", true, '5'}, KeyCase{8, "12", false, 8},
                                         KeyCase{'.', "12", false, 0},
                                         KeyCase{'.', "12", true, '.'}, KeyCase{'.', "", true, '.'},
                                         KeyCase{'.', "1.2", true, 0}, KeyCase{'-', "", true, 0},
                                         KeyCase{',', "", true, 0}, KeyCase{' ', "", true, 0},
                                         KeyCase{'a', "", true, 0}, KeyCase{'0' - 1, "", true, 0},
                                         KeyCase{'9' + 1, "", true, 0}, KeyCase{13, "", true, 0},
                                         KeyCase{27, "", false, 0}, KeyCase{0x0665, "", true, 0},
                                         KeyCase{0, "", true, 0}));

TEST(AllowNumericText, OnlyDigitsAreAccepted) {
    ListScreen screen;
    for (const char* text : {"", "0", "12540", "0042"})
        EXPECT_TRUE(AllowNumericText(text, screen.TxtWeight)) << text;
    for (const char* text : {"-999", "-1e9", "1.5", "1 2", " 1", "1\n", "1\b2", "x", "5x", "+5",
                             "\xD9\xA5", "1\xD9\xA5"})
        EXPECT_FALSE(AllowNumericText(text, screen.TxtWeight)) << text;
}

// ---- MarkActiveText ----

class MarkActiveTextTest : public testing::Test {
protected:
    void TearDown() override { screen.Unload(); }
    ListScreen screen;
};

TEST_F(MarkActiveTextTest, ActiveBoxIsSelectedAndTinted) {
    screen.TxtWeight.SetText("12540");
    screen.Show();
    ASSERT_EQ(screen.ActiveControl(), &screen.TxtWeight);
    MarkActiveText(screen);
    EXPECT_EQ(screen.TxtWeight.SelectedText(), "12540");
    EXPECT_EQ(screen.TxtWeight.BackColor(), 0xC0FFFFU);
    EXPECT_EQ(screen.ActiveControl(), &screen.TxtWeight);
    EXPECT_EQ(screen.TxtName.BackColor(), White);
}

TEST_F(MarkActiveTextTest, TintStaysWhenTheFocusMoves) {
    screen.TxtWeight.GotFocus = [this] { MarkActiveText(screen); };
    screen.TxtName.GotFocus = [this] { MarkActiveText(screen); };
    screen.Show();
    screen.TxtName.SetFocus();
    EXPECT_EQ(screen.TxtWeight.BackColor(), 0xC0FFFFU);
    EXPECT_EQ(screen.TxtName.BackColor(), 0xC0FFFFU);
    EXPECT_EQ(screen.ActiveControl(), &screen.TxtName);
}

TEST_F(MarkActiveTextTest, HiddenScreenIsNotChanged) {
    screen.Load();
    MarkActiveText(screen);
    EXPECT_EQ(screen.TxtWeight.BackColor(), White);
}

TEST_F(MarkActiveTextTest, OtherControlsAreNotChanged) {
    screen.CboFirst.SetTabIndex(2);
    screen.Show();
    screen.CboFirst.SetFocus();
    MarkActiveText(screen);
    EXPECT_EQ(screen.CboFirst.BackColor(), White);
    EXPECT_EQ(screen.ActiveControl(), &screen.CboFirst);
}

// ---- GetCompanyName ----

class CompanyName : public testing::Test {
protected:
    void SetUp() override {
        TheStation().CompanyNames[1] = "Veltrane Mills";
        TheStation().CompanyNames[2] = "Brellix";
        TheStation().CompanyNames[9] = "Málaga ملز";
    }
    void TearDown() override { TheStation() = StationFile(); }

    void ExpectQuestion(const std::string& answer) {
        TheStation().AskCompanyName = -1;
        boxes.ExpectInput({.prompt = "Give the Company Name \r\ni-e: BRELLIX\r\nLeave empty if you "
                                     "dont want.",
                           .title = "Company Name",
                           .defaultText = ""},
                          answer);
    }

    BoxAnswers boxes;
};

TEST_F(CompanyName, IsInCapitalsByItsNumber) {
    EXPECT_EQ(GetCompanyName(2), "BRELLIX");
    EXPECT_EQ(GetCompanyName(9), "MÁLAGA ملز");
    for (const int number : {1, 0, -1, -32768, 10, 32767})
        EXPECT_EQ(GetCompanyName(static_cast<std::int16_t>(number)), "VELTRANE MILLS") << number;
}

TEST_F(CompanyName, EmptyNameIsReplacedByTheFirstAsStored) {
    EXPECT_EQ(GetCompanyName(5), "Veltrane Mills");
    TheStation().CompanyNames[1] = "";
    EXPECT_EQ(GetCompanyName(5), "");
    EXPECT_EQ(GetCompanyName(1), "");
}

TEST_F(CompanyName, OnlyMinusOneAsksTheOperator) {
    for (const int ask : {0, 1, -2}) {
        TheStation().AskCompanyName = ask;
        EXPECT_EQ(GetCompanyName(2), "BRELLIX");
    }
}

TEST_F(CompanyName, AnswerIsStoredInCapitalsAsTheFirstName) {
    ExpectQuestion("mill of the north");
    EXPECT_EQ(GetCompanyName(2), "MILL OF THE NORTH");
    EXPECT_EQ(TheStation().CompanyNames[1], "MILL OF THE NORTH");
    EXPECT_EQ(TheStation().CompanyNames[2], "Brellix");
}

TEST_F(CompanyName, EmptyAnswerKeepsTheName) {
    ExpectQuestion("");
    EXPECT_EQ(GetCompanyName(5), "Veltrane Mills");
    EXPECT_EQ(TheStation().CompanyNames[1], "Veltrane Mills");
}

} // namespace
} // namespace Quillane
