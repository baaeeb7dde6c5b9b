#include "office/window/UsersPage.h"

#include "PageTest.h"

#include "office/window/UserDialog.h"
#include "platform/forms/core/Text.h"
#include "signin/UserLogin.h"

namespace Quillane::Office {
namespace {

class OfficeUsers : public PageTest {
protected:
    OfficeUsers() { ShowPage(page); }

    static void Fill(QDialog& dialog, const char* name, const char* password, const char* again) {
        if (*name)
            Type(dialog, name);
        Press(dialog, Qt::ALT | Qt::Key_P);
        Type(dialog, password);
        Press(dialog, Qt::ALT | Qt::Key_T);
        Type(dialog, again);
    }
    void Choose(const std::string& name) {
        for (int row = 0; row < page->View()->model()->rowCount(); ++row)
            if (FromQt(page->View()->model()->index(row, 0).data().toString()) == name)
                page->View()->selectRow(row);
    }
    bool SignsIn(const char* name, const char* password) {
        UserLoginObject login;
        login.SetConnection(database.other);
        return login.SignIn(name, password) == UserLoginObject::Attempt::SignedIn;
    }
    int LevelOf(const std::string& name) {
        for (const User& user : ReadUsers(database.other))
            if (user.name == name)
                return user.level;
        return -1;
    }

    UsersPage* page = new UsersPage(session);
};

TEST_F(OfficeUsers, UserIsAddedByKeysAndTheFormShowsThePasswordRule) {
    {
        const Visit visit([](QDialog& dialog) {
            bool isShown = false;
            for (const auto* label : dialog.findChildren<QLabel*>())
                isShown = isShown || label->text() == ToQt(PasswordRule());
            EXPECT_TRUE(isShown);
            Fill(dialog, "Imran", "wheat-2026", "wheat-2026");
            LookAt(dialog, "user-form");
            Press(dialog, Qt::Key_Return);
        });
        Press(window, Qt::CTRL | Qt::Key_N);
    }
    EXPECT_TRUE(SignsIn("Imran", "wheat-2026"));
    EXPECT_EQ(LevelOf("Imran"), 2);
    LookAt(window, "users");
}

TEST_F(OfficeUsers, RefusalsKeepTheFormOpenWithTheReason) {
    const Visit visit([](QDialog& dialog) {
        const auto& form = static_cast<UserDialog&>(dialog);
        Fill(dialog, "nadia", "short", "short");
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_FALSE(form.Refusal().isEmpty());
        Press(dialog, Qt::ALT | Qt::Key_T);
        Type(dialog, "x");
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_EQ(form.Refusal(), "The two passwords differ. Please type both again.");
        for (const auto letter : {Qt::Key_P, Qt::Key_T}) {
            Press(dialog, Qt::ALT | letter);
            Press(dialog, Qt::CTRL | Qt::Key_A);
            Type(dialog, "wheat-2026");
        }
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_TRUE(form.Refusal().contains("Nadia")) << FromQt(form.Refusal());
        EXPECT_TRUE(dialog.isVisible());
        Press(dialog, Qt::Key_Escape);
    });
    Press(window, Qt::CTRL | Qt::Key_N);
    EXPECT_FALSE(SignsIn("nadia", "wheat-2026"));
}

TEST_F(OfficeUsers, ForgottenPasswordIsReplacedByAnotherUser) {
    AddUser(database.other, {"Imran", 2}, "wheat-2026", HashCost::Minimum);
    Press(window, Qt::Key_F5);
    Choose("Imran");
    {
        const Visit visit([](QDialog& dialog) {
            Fill(dialog, "", "barley-2026", "barley-2026");
            Press(dialog, Qt::Key_Return);
        });
        const Answers answers({"OK"});
        Press(window, Qt::CTRL | Qt::Key_P);
    }
    EXPECT_TRUE(SignsIn("Imran", "barley-2026"));
    EXPECT_FALSE(SignsIn("Imran", "wheat-2026"));
}

TEST_F(OfficeUsers, LastUserOfLevelOneIsNeitherChangedNorRemoved) {
    Choose("Nadia");
    {
        const Visit visit([](QDialog& dialog) {
            auto& form = static_cast<UserDialog&>(dialog);
            form.LevelBox()->setFocus();
            Press(dialog, Qt::Key_Down);
            Press(dialog, Qt::CTRL | Qt::Key_S);
            EXPECT_TRUE(form.Refusal().contains("last user of level 1"));
            Press(dialog, Qt::Key_Escape);
        });
        Press(window, Qt::Key_F2);
    }
    const Answers answers({"Remove", "OK"});
    Press(window, Qt::Key_Delete);
    EXPECT_NE(answers.Texts().at(0).find("You are signed in as this user."), std::string::npos);
    EXPECT_NE(answers.Texts().at(1).find("last user of level 1"), std::string::npos);
    EXPECT_EQ(LevelOf("Nadia"), 1);
}

TEST_F(OfficeUsers, LevelIsChangedAndUserRemoved) {
    AddUser(database.other, {"Imran", 2}, "wheat-2026", HashCost::Minimum);
    Press(window, Qt::Key_F5);
    Choose("Imran");
    {
        const Visit visit([](QDialog& dialog) {
            static_cast<UserDialog&>(dialog).LevelBox()->setFocus();
            Press(dialog, Qt::Key_Up);
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        Press(window, Qt::Key_Return);
    }
    EXPECT_EQ(LevelOf("Imran"), 1);
    Choose("Imran");
    const Answers answers({"Remove"});
    Press(window, Qt::Key_Delete);
    EXPECT_EQ(LevelOf("Imran"), -1);
}

} // namespace
} // namespace Quillane::Office
