#include "shell/Desktop.h"

#include "SignIn.h"
#include "data/CompanyProfile.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/host/StationFile.h"
#include "platform/host/UserSettings.h"
#include "setup/DatabaseSetup.h"
#include "setup/EmbeddedSchema.h"
#include "signin/PasswordHash.h"
#include "signin/UserLogin.h"
#include "station/OpenedDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ProcessEnd.h"
#include "weighment/FrmWeighment.h"

#include <QLineEdit>
#include <QWindow>

#include <cstdlib>
#include <fstream>

namespace Quillane {
namespace {

using Testing::BoxAnswers;
using Testing::Critical;
using Testing::ProcessEnd;
using Testing::ScreenDriver;
using Testing::VisitModal;

/// The start screen of a signed-in user, with a separate settings store.
class StartScreen : public testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (std::filesystem::temp_directory_path() / "desk-XXXXXX").string();
        settings_ = ::mkdtemp(pattern.data());
        ::setenv("XDG_CONFIG_HOME", settings_.c_str(), 1);
        UserLogin->SetConnection(*Con);
        CompanyProfile->SetConnection(*Con);
        DatabaseSetup->SetConnection(*Con);
        CompanyProfile->Load();
        UserLogin->SignIn("ali", "wheat");
    }
    void TearDown() override {
        UserLogin.Release();
        CompanyProfile.Release();
        DatabaseSetup.Release();
        ::unsetenv("XDG_CONFIG_HOME");
        std::filesystem::remove_all(settings_);
    }

    static std::string StoredPaper() {
        return GetSetting("Riobrepiona", "PrinterSetting", "PrinterPage", "nothing");
    }
    static void StorePaper(const std::string& paper) {
        SaveSetting("Riobrepiona", "PrinterSetting", "PrinterPage", paper);
    }
    void ExpectEnd() const {
        EXPECT_EQ(end.Codes(), std::vector<int>{0});
        EXPECT_FALSE(CompanyProfile.Exists());
        EXPECT_FALSE(DatabaseSetup.Exists());
        EXPECT_FALSE(UserLogin.Exists());
        EXPECT_EQ(Con->State(), 1);
    }

    OpenedDatabase database;
    BoxAnswers boxes;
    ProcessEnd end;
    Desktop desktop;
    std::string settings_;
};

TEST_F(StartScreen, ControlsHaveTheirCaptions) {
    EXPECT_EQ(desktop.windowTitle(), "Veltrane: Quillane");
    std::vector<std::string> names;
    for (const Control* control : desktop.Controls())
        names.push_back(control->Name());
    EXPECT_EQ(names,
              (std::vector<std::string>{"BtnWeighment", "BtnExit", "CmdScaleSetting", "TxtWeight",
                                        "Frame1", "OptWhitePage", "OptPrintedPaper", "Image1"}));
    const auto captionOf = [](VisualControl& control, const char* property) {
        return control.Widget().property(property).toString();
    };
    EXPECT_EQ(captionOf(desktop.BtnWeighment, "text"), "Weighment");
    EXPECT_EQ(captionOf(desktop.BtnExit, "text"), "Exit");
    EXPECT_EQ(captionOf(desktop.CmdScaleSetting, "text"), "Scale Setting ");
    EXPECT_EQ(captionOf(desktop.Frame1, "title"), "Printer Setting");
    EXPECT_EQ(captionOf(desktop.OptWhitePage, "text"), "Print on white paper");
    EXPECT_EQ(captionOf(desktop.OptPrintedPaper, "text"), "Print on printed paper");
}

TEST_F(StartScreen, WeightBoxIsEmptyBoldRedOnBlack) {
    EXPECT_EQ(desktop.TxtWeight.Text(), "");
    EXPECT_EQ(desktop.TxtWeight.ForeColor(), 0x0000FFU);
    EXPECT_EQ(desktop.TxtWeight.BackColor(), 0x000000U);
    const auto& box = dynamic_cast<QLineEdit&>(desktop.TxtWeight.Widget());
    EXPECT_EQ(box.font().family(), "Arial");
    EXPECT_TRUE(box.font().bold());
    EXPECT_EQ(box.font().pointSizeF(), 21.75);
    EXPECT_TRUE(box.alignment().testFlag(Qt::AlignHCenter));
    EXPECT_FALSE(desktop.TxtWeight.Change || desktop.TxtWeight.GotFocus ||
                 desktop.TxtWeight.LostFocus || desktop.TxtWeight.Validate);
}

TEST_F(StartScreen, EveryControlHasAnAccessibleName) {
    for (Control* control : desktop.Controls()) {
        QWidget& widget = dynamic_cast<VisualControl&>(*control).Widget();
        const bool named = !widget.accessibleName().isEmpty() ||
                           !widget.property("text").toString().isEmpty() ||
                           !widget.property("title").toString().isEmpty();
        EXPECT_TRUE(named) << control->Name();
    }
    EXPECT_EQ(desktop.Image1.ToolTip(), "Sign in as another user");
}

TEST_F(StartScreen, TabOrderStartsAtTheWeighment) {
    desktop.Show();
    std::vector<std::string> walked;
    for (int step = 0; step < 7; ++step) {
        walked.push_back(desktop.ActiveControlName());
        ScreenDriver(desktop).Press(Qt::Key_Tab);
    }
    EXPECT_EQ(walked, (std::vector<std::string>{"BtnWeighment", "CmdScaleSetting", "OptWhitePage",
                                                "OptPrintedPaper", "TxtWeight", "BtnExit",
                                                "BtnWeighment"}));
}

TEST_F(StartScreen, CompanyAndUserAreShown) {
    desktop.Show();
    QStringList texts;
    for (const QLabel* label : desktop.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains("Veltrane"));
    EXPECT_TRUE(texts.contains("Signed in: ali"));
}

// ---- paper ----

TEST_F(StartScreen, FirstStartStoresWhitePaper) {
    desktop.Show();
    EXPECT_TRUE(desktop.OptWhitePage.Value());
    EXPECT_FALSE(desktop.OptPrintedPaper.Value());
    EXPECT_EQ(StoredPaper(), "WhitePaper");
}

TEST_F(StartScreen, OtherStoredTextMeansPrintedPaper) {
    for (const char* stored : {"PrintedPaper", "whitepaper", "", "WhitePaper "}) {
        StorePaper(stored);
        Desktop other;
        other.Show();
        EXPECT_FALSE(other.OptWhitePage.Value()) << stored;
        EXPECT_TRUE(other.OptPrintedPaper.Value()) << stored;
        EXPECT_EQ(StoredPaper(), "PrintedPaper") << stored;
    }
}

TEST_F(StartScreen, EachChoiceIsStored) {
    desktop.Show();
    ScreenDriver operatorHand(desktop);
    // The centre of the control may be to the right of its text, where a click has no effect.
    const auto clickCircle = [&](OptionButton& option) {
        operatorHand.Click(option.Widget(), QPoint(8, option.Widget().height() / 2));
    };
    clickCircle(desktop.OptPrintedPaper);
    EXPECT_EQ(StoredPaper(), "PrintedPaper");
    clickCircle(desktop.OptWhitePage);
    EXPECT_EQ(StoredPaper(), "WhitePaper");
}

TEST_F(StartScreen, DamagedSettingsEndTheProcess) {
    StorePaper("WhitePaper");
    std::ofstream(SettingsFile("Riobrepiona")) << "invalid text";
    boxes.Expect(
        Critical("The settings file " + SettingsFile("Riobrepiona") +
                     " is damaged. Rename it; the program then starts with the default choices.",
                 "Quillane"));
    RunEvent([&] { desktop.Show(); });
    EXPECT_EQ(end.Codes(), std::vector<int>{1});
}

// ---- the other screens ----

TEST_F(StartScreen, WeighmentScreenIsModal) {
    TheStation().Ports[1] = "/nowhere/indicator";
    desktop.Show();
    std::string shown;
    const BoxAnswers anyBoxes;
    SetBoxPresenter({.message = [](const Box&) { return BoxAnswer::Yes; }, .input = {}});
    {
        const VisitModal visit([&](Screen& screen) {
            shown = screen.Name();
            EXPECT_TRUE(screen.isModal());
            EXPECT_EQ(screen.windowHandle()->transientParent(), desktop.windowHandle());
            screen.Unload();
        });
        ScreenDriver(desktop).Press(Qt::Key_Return);
    }
    Testing::ForbidUnexpectedBoxes();
    TheStation() = StationFile();
    EXPECT_EQ(shown, "FrmWeighment");
    EXPECT_TRUE(desktop.IsLoaded());
}

// ---- signing in again ----

TEST_F(StartScreen, AnotherUserCanSignIn) {
    database.Run("Insert Into StationUsers (UserName, PasswordHash, UserLevel) Values ('gate', '" +
                 HashPassword("truck", HashCost::Minimum) + "', 2)");
    desktop.Show();
    const VisitModal visit([&](Screen& screen) {
        // The previous user is signed out before the dialog is shown.
        EXPECT_EQ(UserLogin->UserLevel(), 0);
        SignInAs("gate", "truck")(screen);
    });
    ScreenDriver(desktop).Click(desktop.Image1);
    EXPECT_EQ(UserLogin->UserLevel(), 2);
    EXPECT_TRUE(end.Codes().empty());
    EXPECT_TRUE(desktop.isVisible());
    QStringList texts;
    for (const QLabel* label : desktop.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_TRUE(texts.contains("Signed in: gate"));
}

// The start does this in the reverse order.
TEST_F(StartScreen, ConnectionIsSetAfterTheNewSignIn) {
    CreateEmbeddedDatabase(settings_ + "/Account2.db", {.companyName = "Other",
                                                        .companyAddress = "",
                                                        .companyPhone = "",
                                                        .companyEmail = "",
                                                        .userName = "rana",
                                                        .password = "barley",
                                                        .hashCost = HashCost::Minimum});
    Connection other;
    other.SetEmbeddedSupport({.folder = settings_, .registerFunctions = {}});
    other.Open("Server=(embedded);Database=Account2");
    UserLogin->SetConnection(other);
    desktop.Show();
    for (const auto& [name, password] : {std::pair("rana", "barley"), std::pair("ali", "wheat")}) {
        const VisitModal visit(SignInAs(name, password));
        ScreenDriver(desktop).Click(desktop.Image1);
        EXPECT_EQ(UserLogin->UserName(), name);
    }
}

TEST_F(StartScreen, CancelledSignInEndsTheProgram) {
    desktop.Show();
    const VisitModal visit(GiveUp());
    ScreenDriver(desktop).Click(desktop.Image1);
    ExpectEnd();
}

// ---- the end ----

TEST_F(StartScreen, ExitButtonEndsTheProcess) {
    desktop.Show();
    ScreenDriver(desktop).Click(desktop.BtnExit);
    ExpectEnd();
}

TEST_F(StartScreen, ClosingTheWindowEndsTheProcess) {
    desktop.Show();
    desktop.close();
    ExpectEnd();
}

TEST_F(StartScreen, UnloadingEndsTheProcess) {
    desktop.Show();
    desktop.Unload();
    ExpectEnd();
}

} // namespace
} // namespace Quillane
