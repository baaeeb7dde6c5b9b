// The box that F1 shows at the sign-in.

#include "shell/About.h"

#include "data/Con.h"
#include "platform/host/StationFolder.h"
#include "platform/host/SystemInfo.h"
#include "platform/host/Version.h"
#include "station/StationDatabase.h"
#include "support/BoxAnswers.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

using Testing::BoxAnswers;

class About : public testing::Test {
protected:
    About() {
        Con = std::make_unique<Connection>();
        SetStationFolder("/gate/north");
    }
    ~About() override {
        Con.reset();
        SetStationFolder("");
    }

    static bool Tells(const std::string& line) {
        return ("\r\n" + AboutText() + "\r\n").find("\r\n" + line + "\r\n") != std::string::npos;
    }

    StationDatabase database;
};

TEST_F(About, TextNamesProgramStationAndDatabase) {
    database.Open(*Con);
    EXPECT_TRUE(AboutText().starts_with("Quillane " + std::string(QuillaneVersion()) + "\r\n"));
    EXPECT_NE(AboutText().find("System: " + SystemInfo::OsName()), std::string::npos);
    EXPECT_NE(AboutText().find("Toolkit: Qt 6."), std::string::npos);
    EXPECT_TRUE(Tells("Station folder: /gate/north"));
    EXPECT_NE(AboutText().find("Schema version: "), std::string::npos);
    EXPECT_EQ(AboutText().find("unknown"), std::string::npos) << AboutText();
}

TEST_F(About, TextNamesFileAndEngineOfAnEmbeddedDatabase) {
    SKIP_ON_SQL_SERVER("a file");
    database.Open(*Con);
    EXPECT_TRUE(Tells("Database: " + database.folder.File("Account1.db")));
    EXPECT_NE(AboutText().find("Engine: SQLite 3."), std::string::npos);
}

TEST_F(About, TextContainsNoPassword) {
    database.Open(*Con);
    EXPECT_EQ(AboutText().find("PWD"), std::string::npos);
    EXPECT_EQ(AboutText().find("UID"), std::string::npos);
}

TEST_F(About, TextIsCompleteIfTheDatabaseFails) {
    const std::string closed = "unknown (Operation is not allowed when the object is closed.)";
    EXPECT_TRUE(Tells("Database: " + closed)) << AboutText();
    EXPECT_TRUE(Tells("Engine: " + closed));
    EXPECT_TRUE(Tells("Schema version: " + closed));
    EXPECT_TRUE(Tells("Station folder: /gate/north"));
}

TEST_F(About, TextIsShownInABox) {
    database.Open(*Con);
    BoxAnswers answers;
    answers.Expect(
        {.text = AboutText() + "\r\n\r\nPress Ctrl+C to copy this text for a fault report.",
         .title = "About Quillane",
         .icon = BoxIcon::Information,
         .buttons = BoxButtons::Ok});
    ShowAbout();
}

} // namespace
} // namespace Quillane
