#include "office/window/CompanyPage.h"

#include "PageTest.h"

#include "platform/forms/core/Text.h"

namespace Quillane::Office {
namespace {

class OfficeCompany : public PageTest {
protected:
    void Open() {
        page = new CompanyPage(session);
        ShowPage(page);
    }
    void Enter(std::string_view key, const char* text) {
        page->Box(key)->setFocus();
        Press(window, Qt::CTRL | Qt::Key_A);
        Type(window, text);
    }
    std::string Stored(const std::string& key) {
        return database.Text("Select value From Project_Registry Where registrykey = '" + key +
                             "'");
    }

    CompanyPage* page = nullptr;
};

TEST_F(OfficeCompany, AddressChangesWithoutTheName) {
    database.folder.Write("Station.ini", "[CompanyNames]\n1=Veltrane\n");
    Open();
    const std::string name = Stored("CompanyName");
    Enter(CompanyAddress, "12 Mill Road");
    EXPECT_EQ(page->Unsaved(), "The company's particulars have");
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Stored("CompanyAddress"), "12 Mill Road");
    EXPECT_EQ(Stored("CompanyName"), name);
    EXPECT_EQ(database.folder.Read("Station.ini"), "[CompanyNames]\n1=Veltrane\n");
    EXPECT_EQ(page->Unsaved(), "");
    LookAt(window, "company");
}

TEST_F(OfficeCompany, NameIsAlsoWrittenToStationIni) {
    database.folder.Write("Station.ini", "; gate\n[CompanyNames]\n1=Veltrane\n");
    Open();
    Enter(CompanyName, "Riverside Mills");
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(Stored("CompanyName"), "RIVERSIDE MILLS");
    EXPECT_EQ(database.folder.Read("Station.ini"), "; gate\n[CompanyNames]\n1=Riverside Mills\n");
}

TEST_F(OfficeCompany, RefusedNameKeepsTheEntries) {
    Open();
    const std::string before = Stored("CompanyName");
    Enter(CompanyName, "Owner's Mills");
    Enter(CompanyPhone, "0300");
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_EQ(page->Refusal(), "The company name contains an apostrophe. Remove it.");
    EXPECT_EQ(page->Box(CompanyPhone)->text(), "0300");
    EXPECT_EQ(Stored("CompanyName"), before);
    EXPECT_NE(Stored("CompanyPhone"), "0300");
}

TEST_F(OfficeCompany, SecondOfficeSeesBothValues) {
    Open();
    Enter(CompanyAddress, "Ours");
    database.Run("Update Project_Registry Set value = 'Theirs' Where registrykey = "
                 "'CompanyAddress'");
    Press(window, Qt::CTRL | Qt::Key_S);
    EXPECT_TRUE(page->Refusal().contains("it is now \"Theirs\", your entry is \"Ours\""))
        << FromQt(page->Refusal());
    EXPECT_EQ(Stored("CompanyAddress"), "Theirs");
}

} // namespace
} // namespace Quillane::Office
