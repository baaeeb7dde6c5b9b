#include "office/window/ImportDialog.h"

#include "PageTest.h"

#include "office/window/ListsPage.h"
#include "office/window/WorkProgress.h"
#include "platform/forms/core/Text.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>

namespace Quillane::Office {
namespace {

class OfficeImport : public PageTest {
protected:
    OfficeImport() {
        WorkProgress::Moment = std::chrono::hours(1); // only InProgress shows the progress
        page->AskFileToRead = [this](QWidget*) { return ToQt(database.folder.File("list.csv")); };
        ShowPage(page);
    }
    ~OfficeImport() override { WorkProgress::Moment = before_; }

    static QTableView& View(QDialog& dialog) { return *dialog.findChild<QTableView*>(); }
    static std::string Shown(QDialog& dialog, int row) {
        std::string text;
        for (int column = 0; column < 4; ++column)
            text += (column ? " | " : "") +
                    FromQt(View(dialog).model()->index(row, column).data().toString());
        return text;
    }
    static QPushButton& WriteButton(QDialog& dialog) {
        for (auto* each : dialog.findChildren<QPushButton*>())
            if (each->text().contains("Write"))
                return *each;
        throw std::runtime_error("no button to write");
    }
    long Cities() { return static_cast<long>(ReadRows(database.other, CitiesTable()).size()); }

    void WriteNewCities(int count) {
        std::string text = "CityName\n";
        for (int city = 0; city < count; ++city)
            text += "Chak " + std::to_string(city) + "\n";
        database.folder.Write("list.csv", text);
    }

    ListsPage* page = new ListsPage(session);

private:
    std::chrono::milliseconds before_ = WorkProgress::Moment;
};

/// Acts once in the next progress window, when it has the focus.
class InProgress {
public:
    explicit InProgress(std::function<void(QProgressDialog&)> act) : act_(std::move(act)) {
        WorkProgress::Moment = std::chrono::milliseconds(0);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start(0);
    }
    ~InProgress() {
        WorkProgress::Moment = before_;
        EXPECT_TRUE(hasActed_) << "no progress was shown";
    }
    InProgress(const InProgress&) = delete;
    InProgress& operator=(const InProgress&) = delete;

private:
    void Look() {
        auto* dialog = dynamic_cast<QProgressDialog*>(QApplication::activeModalWidget());
        if (!dialog || hasActed_)
            return;
        hasActed_ = true;
        EXPECT_TRUE(Testing::WaitFor([&] { return QApplication::activeWindow() == dialog; }));
        act_(*dialog);
    }

    std::function<void(QProgressDialog&)> act_;
    std::chrono::milliseconds before_ = WorkProgress::Moment;
    QTimer timer_;
    bool hasActed_ = false;
};

TEST_F(OfficeImport, PreviewShowsNewChangedUnchangedAndFaultyAndWritesNothing) {
    const Row city = ReadRows(database.other, CitiesTable()).at(0);
    const Row second = ReadRows(database.other, CitiesTable()).at(1);
    database.folder.Write("list.csv", "CityId;CityName\n;Rahwali\n" + city[0] + ";Renamed\n" +
                                          second[0] + ";" + second[1] + "\n77;\n");
    const long before = Cities();
    const Visit visit([&](QDialog& dialog) {
        LookAt(dialog, "import");
        EXPECT_EQ(View(dialog).model()->rowCount(), 1); // the faulty ones first
        EXPECT_NE(Shown(dialog, 0).find("5 | Faulty"), std::string::npos) << Shown(dialog, 0);
        EXPECT_FALSE(WriteButton(dialog).isEnabled());
        dialog.findChild<QComboBox*>()->setFocus();
        Press(dialog, Qt::Key_Home);
        EXPECT_EQ(View(dialog).model()->rowCount(), 4);
        EXPECT_EQ(Shown(dialog, 0), "2 | New | Rahwali | ");
        EXPECT_EQ(Shown(dialog, 1),
                  "3 | Changed | Renamed | City: \"" + city[1] + "\" becomes \"Renamed\". ");
        Press(dialog, Qt::Key_Escape);
    });
    Press(window, Qt::CTRL | Qt::Key_I);
    EXPECT_EQ(Cities(), before);
}

TEST_F(OfficeImport, FaultyLinesAreLeftOutOnlyWhenTheUserChoosesIt) {
    database.folder.Write("list.csv", "CityId,CityName\n,Rahwali\n77,\n");
    const long before = Cities();
    {
        const Visit visit([](QDialog& dialog) {
            Press(dialog, Qt::CTRL | Qt::Key_S);
            EXPECT_TRUE(dialog.isVisible());
            Press(dialog, Qt::ALT | Qt::Key_L);
            EXPECT_TRUE(WriteButton(dialog).isEnabled());
            Press(dialog, Qt::CTRL | Qt::Key_S);
            EXPECT_FALSE(dialog.isVisible());
        });
        const Answers answers({"OK"});
        Press(window, Qt::CTRL | Qt::Key_I);
        EXPECT_EQ(answers.Texts().at(0), "1 row written.");
    }
    EXPECT_EQ(Cities(), before + 1);
}

TEST_F(OfficeImport, UnreadableFileIsRefusedWithTheReason) {
    for (const char* text : {"CityName\nM\xFCnchen\n", ""}) {
        database.folder.Write("list.csv", text);
        const Answers answers({"OK"});
        Press(window, Qt::CTRL | Qt::Key_I);
        EXPECT_FALSE(answers.Texts().at(0).empty());
    }
}

TEST_F(OfficeImport, RowChangedByAnotherUserRefusesTheWholeImport) {
    const Row city = ReadRows(database.other, CitiesTable()).at(0);
    database.folder.Write("list.csv", "CityId,CityName\n,Rahwali\n" + city[0] + ",Ours\n");
    const long before = Cities();
    const Visit visit([&](QDialog& dialog) {
        WriteRows(database.other, CitiesTable(),
                  std::vector{database.Changed(CitiesTable(), city[0], "CityName", "Theirs")});
        const Answers answers({"OK"});
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_NE(answers.Texts().at(0).find("it is now \"Theirs\", your entry is \"Ours\""),
                  std::string::npos);
    });
    Press(window, Qt::CTRL | Qt::Key_I);
    EXPECT_EQ(Cities(), before);
    EXPECT_EQ(database.Stored(CitiesTable(), city[0])[1], "Theirs");
}

TEST_F(OfficeImport, FailureOfTheDatabaseLeavesThePreviewOpen) {
    database.folder.Write("list.csv", "CityName\nRahwali\nKamoke\n");
    database.Refuse({.write = "INSERT", .table = "Cities", .words = "the disk is full"});
    const long before = Cities();
    const Visit visit([&](QDialog& dialog) {
        {
            const Answers answers({"OK"});
            Press(dialog, Qt::CTRL | Qt::Key_S);
        }
        EXPECT_TRUE(dialog.isVisible());
        Press(dialog, Qt::Key_Escape);
    });
    Press(window, Qt::CTRL | Qt::Key_I);
    EXPECT_EQ(Cities(), before);
}

TEST_F(OfficeImport, ComparingShowsItsProgressAndEscCancelsIt) {
    WriteNewCities(2000);
    const long before = Cities();
    const Answers answers({"OK"});
    const InProgress progress([](QProgressDialog& dialog) {
        EXPECT_EQ(dialog.labelText(), "Comparing the file with the list...");
        EXPECT_GT(dialog.value(), 0);
        EXPECT_LT(dialog.value(), dialog.maximum());
        LookAt(dialog, "import-progress");
        Press(dialog, Qt::Key_Escape);
    });
    Press(window, Qt::CTRL | Qt::Key_I);
    EXPECT_EQ(answers.Texts().at(0), "The import was cancelled. Nothing was written.");
    EXPECT_EQ(Cities(), before);
}

TEST_F(OfficeImport, WritingIsCancelledByAClickAndWritesNothing) {
    WriteNewCities(2000);
    const long before = Cities();
    const Visit visit([](QDialog& dialog) {
        const Answers answers({"OK"});
        const InProgress progress([](QProgressDialog& shown) {
            EXPECT_EQ(shown.labelText(), "Writing the rows...");
            QTest::mouseClick(shown.findChild<QPushButton*>(), Qt::LeftButton);
        });
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_EQ(answers.Texts().at(0), "The import was cancelled. Nothing has been written.");
        EXPECT_TRUE(dialog.isVisible());
        Press(dialog, Qt::Key_Escape);
    });
    Press(window, Qt::CTRL | Qt::Key_I);
    EXPECT_EQ(Cities(), before);
}

TEST_F(OfficeImport, WritingWithItsProgressShownWritesAllRows) {
    WriteNewCities(2000);
    const long before = Cities();
    {
        const Visit visit([](QDialog& dialog) {
            const InProgress progress([](QProgressDialog&) {});
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        const Answers answers({"OK"});
        Press(window, Qt::CTRL | Qt::Key_I);
        EXPECT_EQ(answers.Texts().at(0), "2000 rows written.");
    }
    EXPECT_EQ(Cities(), before + 2000);
}

} // namespace
} // namespace Quillane::Office
