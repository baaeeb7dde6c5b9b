// The file of the database is moved, deleted or replaced while a load is on the screen: the save
// reports this and keeps the entries.

#include "weighment/OpeningFixture.h"

#include <filesystem>

namespace Quillane {
namespace {

using namespace Testing;
namespace fs = std::filesystem;

class MovedFile : public OpeningTest {
protected:
    void SetUp() override {
        SKIP_ON_SQL_SERVER("its database is not a file of the station");
        OpeningTest::SetUp();
    }
    std::string File() const { return database.folder.File("Account1.db"); }
    std::string Elsewhere() const { return database.folder.File("elsewhere.db"); }
    void MoveAway() const { fs::rename(File(), Elsewhere()); }
    void PutBack() const { fs::rename(Elsewhere(), File()); }

    /// The entries. The lists of the bag cells keep the row at which the save has looked up their
    /// ids.
    Lines Entries() {
        Lines seen = Screenful();
        std::erase_if(seen, [](const std::string& each) { return each.starts_with("CboBag"); });
        return seen;
    }

    Box Refusal() const {
        return Critical("The database file " + File() +
                            " has been moved, deleted or replaced since this station opened it, "
                            "so nothing is saved any more.\nPut it back with its files -wal and "
                            "-shm, or note down what is on the screen and start the program "
                            "again.",
                        "Database");
    }
};

TEST_F(MovedFile, IsReportedAtTheSaveAndTheEntriesStay) {
    FillIn();
    const Lines entries = Entries();
    MoveAway();
    for (int press = 0; press < 2; ++press) {
        BoxAnswers boxes;
        boxes.Expect(Refusal());
        screen->BtnSave_Click();
        EXPECT_EQ(Entries(), entries);
        EXPECT_TRUE(screen->BtnSave.Enabled());
    }
    PutBack();
    Save();
    EXPECT_EQ(StoredCell("SELECT count(*) FROM ArrivalsBody WHERE ArrivalId = 1043"), "2");
}

TEST_F(MovedFile, IsReportedIfItMovesDuringTheSave) {
    FillIn();
    const Lines entries = Entries();
    for (const char* moment : {"BeginTrans", "Select * from Arrivals Where ArrivalId=1043",
                               "Select * From ArrivalsBody where arrivalid=1043", "CommitTrans"}) {
        SCOPED_TRACE(moment);
        Trace trace(*screen, line);
        trace.When(moment, [this] { MoveAway(); });
        screen->BtnSave_Click();
        const Lines done = trace.Take();
        EXPECT_EQ(done.back(), "Box \"Database\" [critical, OK] " + Refusal().text);
        EXPECT_EQ(std::count(done.begin(), done.end(), "RollbackTrans"), 1);
        EXPECT_EQ(Entries(), entries);
        PutBack();
        EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1043"), "0");
    }
    Save();
}

TEST_F(MovedFile, IsReportedAtTheRemovalAndTheLoadStaysOnTheScreen) {
    Open(1040);
    const Lines entries = Entries();
    BoxAnswers boxes;
    boxes.Expect(Question("Are you sure to remove this arrival?"), BoxAnswer::Yes,
                 [this] { MoveAway(); });
    boxes.Expect(Refusal());
    screen->BtnRemove_Click();
    EXPECT_EQ(Entries(), entries);
    PutBack();
    EXPECT_EQ(StoredCell("SELECT count(*) FROM Arrivals WHERE ArrivalID = 1040"), "1");
}

TEST_F(MovedFile, IsReportedIfACopyHasReplacedIt) {
    fs::copy_file(File(), Elsewhere());
    FillIn();
    const Lines entries = Entries();
    PutBack();
    BoxAnswers boxes;
    boxes.Expect(Refusal());
    screen->BtnSave_Click();
    EXPECT_EQ(Entries(), entries);
}

} // namespace
} // namespace Quillane
