#include "office/window/ListsPage.h"

#include "PageTest.h"

#include "office/window/RowDialog.h"
#include "platform/forms/core/Text.h"

#include <QMessageBox>

namespace Quillane::Office {
namespace {

class OfficeLists : public PageTest {
protected:
    OfficeLists() { ShowPage(page); }

    void GoTo(const Table& table) {
        for (int list = 0; list < page->Lists()->count(); ++list)
            if (page->Lists()->tabText(list) == ToQt(table.title))
                page->Lists()->setCurrentIndex(list);
    }
    std::string Cell(int row, const char* column) {
        const auto place = static_cast<int>(
            PlaceOf(*AllTables()[static_cast<std::size_t>(page->Lists()->currentIndex())], column));
        return FromQt(page->Shown().index(row, place).data().toString());
    }
    std::string ChosenName() {
        return FromQt(page->View()->currentIndex().siblingAtColumn(1).data().toString());
    }
    /// Opens the form for a new party and acts in it.
    void InFormOfNewParty(const std::function<void(QDialog&)>& act) {
        GoTo(PartiesTable());
        const Visit visit(act);
        Press(window, Qt::CTRL | Qt::Key_N);
    }
    static void SetLine(QDialog& dialog, const char* column, const char* text) {
        static_cast<QLineEdit*>(static_cast<RowDialog&>(dialog).Field(column))->setFocus();
        Press(dialog, Qt::CTRL | Qt::Key_A);
        Type(dialog, text);
    }
    static std::string Notices(QDialog& dialog) {
        std::string text;
        for (const auto* each : dialog.findChildren<QLabel*>())
            if (dynamic_cast<const Notice*>(each))
                text += FromQt(each->text());
        return text;
    }

    ListsPage* page = new ListsPage(session);
};

TEST_F(OfficeLists, SearchFindsRowsByEachWordInAnyCellWhileTyping) {
    GoTo(PartiesTable());
    const int all = page->Shown().rowCount();
    ASSERT_GT(all, 2);
    const std::string name = Cell(1, "AccountName");
    const std::string city = Cell(1, "CityId");
    Press(window, Qt::CTRL | Qt::Key_F);
    Type(window, city.substr(0, 3) + " " + name.substr(0, 4));
    EXPECT_LT(page->Shown().rowCount(), all);
    ASSERT_GE(page->Shown().rowCount(), 1);
    EXPECT_EQ(Cell(0, "AccountName"), name);
    Type(window, "qqqq");
    EXPECT_EQ(page->Shown().rowCount(), 0);
}

TEST_F(OfficeLists, CityIsAddedByKeys) {
    {
        const Visit visit([](QDialog& dialog) {
            Type(dialog, "Rahwali");
            Press(dialog, Qt::Key_Return);
        });
        Press(window, Qt::CTRL | Qt::Key_N);
    }
    EXPECT_EQ(database.Text("Select CityName From Cities Where CityName = 'Rahwali'"), "Rahwali");
    EXPECT_EQ(ChosenName(), "Rahwali");
}

TEST_F(OfficeLists, RowIsRenamedInItsForm) {
    Press(window, Qt::Key_Return);
    const std::string before = ChosenName();
    {
        const Visit visit([](QDialog& dialog) {
            Press(dialog, Qt::CTRL | Qt::Key_A);
            Type(dialog, "O'Hara Khan");
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        Press(window, Qt::Key_Return);
    }
    EXPECT_EQ(ChosenName(), "O'Hara Khan");
    EXPECT_EQ(database.Text("Select Count(*) From Cities Where CityName = 'O''Hara Khan'"), "1");
    EXPECT_EQ(database.Text("Select Count(*) From Cities Where CityName = '" + before + "'"), "0");
}

TEST_F(OfficeLists, PartyWithoutACityIsRefusedAndTheEntriesStay) {
    InFormOfNewParty([](QDialog& dialog) {
        Type(dialog, "Hamza Traders");
        Press(dialog, Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_NE(Notices(dialog).find("City is empty"), std::string::npos);
        EXPECT_EQ(
            static_cast<QLineEdit*>(static_cast<RowDialog&>(dialog).Field("AccountName"))->text(),
            "Hamza Traders");
        Press(dialog, Qt::Key_Escape);
    });
}

TEST_F(OfficeLists, UnknownCityIsRefusedWithWhatToDo) {
    InFormOfNewParty([](QDialog& dialog) {
        Type(dialog, "Hamza Traders");
        static_cast<RowDialog&>(dialog).Field("CityId")->setFocus();
        Type(dialog, "Atlantis");
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_NE(Notices(dialog).find("There is no city \"Atlantis\"."), std::string::npos);
        Press(dialog, Qt::Key_Escape);
    });
}

TEST_F(OfficeLists, NewCityIsAddedFromThePartysForm) {
    InFormOfNewParty([this](QDialog& dialog) {
        Type(dialog, "Hamza Traders");
        static_cast<RowDialog&>(dialog).Field("CityId")->setFocus();
        Type(dialog, "Rahwali");
        {
            const Visit inner([](QDialog& city) { Press(city, Qt::CTRL | Qt::Key_S); });
            Press(dialog, Qt::CTRL | Qt::Key_N);
        }
        LookAt(dialog, "party-form");
        Press(dialog, Qt::CTRL | Qt::Key_S);
    });
    EXPECT_EQ(database.Text("Select CityName From Parties Inner Join Cities On Parties.CityId = "
                            "Cities.CityId Inner Join ChartOfAccounts On AccountNo = PartyId "
                            "Where AccountName = 'Hamza Traders'"),
              "Rahwali");
}

TEST_F(OfficeLists, AccountIsProposedByRoleUntilOneIsTyped) {
    InFormOfNewParty([](QDialog& dialog) {
        auto& form = static_cast<RowDialog&>(dialog);
        const auto account = [&] {
            return FromQt(static_cast<QLineEdit*>(form.Field("PartyId"))->text());
        };
        const std::string ofSeller = account();
        EXPECT_EQ(ofSeller.front(), '6');
        form.Field("IsBroker")->setFocus();
        Press(dialog, Qt::Key_Space);
        EXPECT_NE(account(), ofSeller);
        SetLine(dialog, "PartyId", "6099");
        form.Field("IsBroker")->setFocus();
        Press(dialog, Qt::Key_Space);
        EXPECT_EQ(account(), "6099");
        Press(dialog, Qt::Key_Escape);
    });
}

TEST_F(OfficeLists, PartyWithoutARoleShowsAWarningWhileTyping) {
    InFormOfNewParty([](QDialog& dialog) {
        Type(dialog, "Hamza");
        EXPECT_NE(Notices(dialog).find("not a seller, buyer or broker"), std::string::npos);
        static_cast<RowDialog&>(dialog).Field("IsSeller")->setFocus();
        Press(dialog, Qt::Key_Space);
        EXPECT_EQ(Notices(dialog).find("neither seller"), std::string::npos);
        Press(dialog, Qt::Key_Escape);
    });
}

TEST_F(OfficeLists, FlagsSetByTheirLettersAreSavedByTheNextKey) {
    GoTo(CommoditiesTable());
    {
        const Visit visit([](QDialog& dialog) {
            Type(dialog, "Durum");
            Press(dialog, Qt::ALT | Qt::Key_P);
            Press(dialog, Qt::ALT | Qt::Key_W);
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        Press(window, Qt::CTRL | Qt::Key_N);
    }
    EXPECT_EQ(database.Text("Select Count(*) From Commodities Where CommodityName = 'Durum' And "
                            "IsPurchaseable = 1 And IsWheatCommodity = 1"),
              "1");
}

TEST_F(OfficeLists, PartyIsRetiredAndPutBackInUse) {
    GoTo(PartiesTable());
    const std::string key = Cell(0, "PartyId");
    page->View()->selectRow(0);
    Press(window, Qt::CTRL | Qt::Key_R);
    EXPECT_EQ(database.Stored(PartiesTable(), key)[7], "0");
    EXPECT_EQ(Cell(0, "IsEditable"), "-");
    Press(window, Qt::CTRL | Qt::Key_R);
    EXPECT_EQ(database.Stored(PartiesTable(), key)[7], "1");
}

TEST_F(OfficeLists, DeletingAReferencedRowIsRefusedAndNamesTheTable) {
    Press(window, Qt::Key_Return);
    const std::string name = ChosenName();
    const Answers answers({"Delete", "OK"});
    Press(window, Qt::Key_Delete);
    const std::string refusal = answers.Texts().at(1);
    EXPECT_NE(refusal.find("cannot be deleted"), std::string::npos) << refusal;
    EXPECT_TRUE(ToQt(refusal).contains("Parties, column CityId", Qt::CaseInsensitive)) << refusal;
    EXPECT_EQ(database.Text("Select Count(*) From Cities Where CityName = '" + name + "'"), "1");
}

TEST_F(OfficeLists, UnusedRowIsDeletedAfterAQuestion) {
    database.Run("Insert Into BagsTypes (BagsTypeId, BagsType) Values (77, '00 Aaa')");
    GoTo(BagTypesTable());
    page->View()->selectRow(0);
    page->View()->setFocus();
    ASSERT_EQ(ChosenName(), "00 Aaa");
    {
        const Answers answer({"Cancel"});
        Press(window, Qt::Key_Delete);
        EXPECT_EQ(answer.Texts().at(0), "Delete the bag type 77 (00 Aaa)?");
    }
    EXPECT_TRUE(database.Has(BagTypesTable(), "77"));
    const Answers answer({"Delete"});
    Press(window, Qt::Key_Delete);
    EXPECT_FALSE(database.Has(BagTypesTable(), "77"));
}

TEST_F(OfficeLists, SecondOfficeSeesBothValuesAndKeepsUneditedCells) {
    GoTo(PartiesTable());
    const std::string key = Cell(0, "PartyId");
    page->View()->selectRow(0);
    page->View()->setFocus();
    std::string message;
    {
        const Visit visit([&](QDialog& dialog) {
            SetLine(dialog, "Address", "Ours");
            const std::vector<RowChange> theirs{
                database.Changed(PartiesTable(), key, "Address", "Theirs"),
            };
            RowChange both = theirs[0];
            both.after[1] = "Renamed by them";
            EXPECT_EQ(WriteRows(database.other, PartiesTable(), std::vector{both}).end,
                      WriteResult::End::Written);
            {
                const Visit box([&](QDialog& shown) {
                    message = FromQt(static_cast<QMessageBox&>(shown).text());
                    Press(shown, Qt::Key_Return);
                });
                Press(dialog, Qt::CTRL | Qt::Key_S);
            }
            EXPECT_TRUE(dialog.isVisible());
            Press(dialog, Qt::CTRL | Qt::Key_S);
        });
        Press(window, Qt::Key_F2);
    }
    EXPECT_NE(message.find("it is now \"Theirs\", your entry is \"Ours\""), std::string::npos)
        << message;
    const Row stored = database.Stored(PartiesTable(), key);
    EXPECT_EQ(stored[PlaceOf(PartiesTable(), "Address")], "Ours");
    EXPECT_EQ(stored[1], "Renamed by them");
}

TEST_F(OfficeLists, FailureOfTheDatabaseLeavesTheEntriesInTheForm) {
    database.Refuse({.write = "INSERT", .table = "Cities", .words = "the disk is full"});
    const Visit visit([this](QDialog& dialog) {
        Type(dialog, "Rahwali");
        {
            const Visit box([](QDialog& message) { Press(message, Qt::Key_Return); });
            Press(dialog, Qt::CTRL | Qt::Key_S);
        }
        EXPECT_TRUE(dialog.isVisible());
        database.AcceptAgain();
        Press(dialog, Qt::CTRL | Qt::Key_S);
        EXPECT_FALSE(dialog.isVisible());
    });
    Press(window, Qt::CTRL | Qt::Key_N);
    EXPECT_EQ(database.Text("Select Count(*) From Cities Where CityName = 'Rahwali'"), "1");
}

TEST_F(OfficeLists, ExportWritesTheListAsAFile) {
    GoTo(CommoditiesTable());
    const std::string file = database.folder.File("list.csv");
    page->AskFileToWrite = [&](QWidget*, const QString& proposed) {
        EXPECT_EQ(proposed, "commodities.csv");
        return ToQt(file);
    };
    const Answers answer({"OK"});
    Press(window, Qt::CTRL | Qt::Key_E);
    EXPECT_NE(database.folder.Read("list.csv").find("CommodityName"), std::string::npos);
}

TEST_F(OfficeLists, ListOfAnotherProgramIsReadOnlyAndNamesItsOwner) {
    session.whyReadOnly = [](Connection&, std::span<const std::string_view> tables) {
        return tables.back() == "Parties" ? std::string("It belongs to the accounting database.")
                                          : std::string();
    };
    GoTo(PartiesTable());
    EXPECT_EQ(page->ReadOnlyText(), "It belongs to the accounting database.");
    EXPECT_GT(page->Shown().rowCount(), 0);
    const Row before = database.Stored(PartiesTable(), Cell(0, "PartyId"));
    page->View()->setFocus();
    for (const QKeyCombination key :
         {QKeyCombination(Qt::Key_Delete), Qt::CTRL | Qt::Key_R, Qt::CTRL | Qt::Key_N,
          QKeyCombination(Qt::Key_Return), QKeyCombination(Qt::Key_F2), Qt::CTRL | Qt::Key_I})
        Press(window, key);
    EXPECT_EQ(database.Stored(PartiesTable(), before[KeyCell]), before);
    LookAt(window, "lists-read-only");
    GoTo(CitiesTable());
    EXPECT_EQ(page->ReadOnlyText(), "");
}

TEST_F(OfficeLists, ListsAreChangedByKeys) {
    Press(window, Qt::CTRL | Qt::Key_PageDown);
    EXPECT_EQ(page->Lists()->currentIndex(), 1);
    LookAt(window, "lists-parties");
    Press(window, Qt::CTRL | Qt::Key_PageUp);
    Press(window, Qt::CTRL | Qt::Key_PageUp);
    EXPECT_EQ(page->Lists()->currentIndex(), page->Lists()->count() - 1);
}

} // namespace
} // namespace Quillane::Office
