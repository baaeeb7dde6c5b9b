#include "weighment/OpeningFixture.h"

namespace Quillane::Testing {

void OpeningTest::SetUp() {
    for (int id = 1031; id <= 1042; ++id) {
        const std::string day = std::to_string(100 + id - 1023).substr(1);
        RunBeside("UPDATE Arrivals SET ArrivalDate = '2026-11-" + day +
                  "T00:00:00' WHERE ArrivalID = " + std::to_string(id));
    }
    ShowScreen();
}

void OpeningTest::OpenBySearch(int id) {
    VisitModal search([id](Screen& modal) {
        ScreenDriver(modal)
            .Type(std::to_string(id))
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return)
            .Press(Qt::Key_Return);
    });
    ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O);
}

void OpeningTest::CancelSearch() {
    CancelSearch([this] { ScreenDriver(*screen).Press(Qt::CTRL | Qt::Key_O); });
}

void OpeningTest::CancelSearch(const std::function<void()>& open) {
    VisitModal search([](Screen& modal) {
        EXPECT_NE(dynamic_cast<SchArrivals*>(&modal), nullptr) << modal.Name();
        ScreenDriver(modal).Press(Qt::Key_Escape);
    });
    open();
}

void OpeningTest::Store(long long id, const std::vector<StoredLine>& lines) {
    const std::string number = std::to_string(id);
    std::string statements =
        "INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES (" + number +
        ", '2026-11-05T00:00:00', 1, '6010001');";
    for (const StoredLine& each : lines)
        statements += "INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
                      "NoOfBags, VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
                      "OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText) VALUES (" +
                      number + ", 1, " + each.bagClass + ", " + each.bagType + ", " + each.bags +
                      ", " + each.vehicle + ", " + each.tare + ", " + each.scaleDeduction + ", " +
                      each.bagWeight + ", 0, " + each.otherDeduction + ", 0, " + each.driver +
                      ", " + each.bilty + ", '');";
    RunBeside(statements);
}

void OpeningTest::Save() {
    BoxAnswers boxes;
    boxes.Expect({"Do you want to print?", "Confirmation", BoxIcon::Question, BoxButtons::YesNo,
                  BoxAnswer::No},
                 BoxAnswer::No);
    screen->BtnSave_Click();
}

std::vector<Lines> OpeningTest::Body(const std::string& columns, int id) {
    return Stored("SELECT " + columns + " FROM ArrivalsBody WHERE ArrivalId = " +
                  std::to_string(id) + " ORDER BY LineId");
}

Lines OpeningTest::Screenful() {
    Lines seen;
    for (Control* control : screen->Controls()) {
        std::string shown;
        if (const auto* box = dynamic_cast<TextBox*>(control))
            shown = box->Text() + (box->Locked() ? " locked" : "");
        else if (const auto* list = dynamic_cast<TDBCombo*>(control))
            shown = list->Text() + " row " + std::to_string(list->Bookmark().value_or(-1));
        else if (const auto* check = dynamic_cast<CheckBox*>(control))
            shown = std::to_string(check->Value());
        const auto* visual = dynamic_cast<VisualControl*>(control);
        if (visual)
            seen.push_back(control->Name() + " " + shown + (visual->Enabled() ? "" : " off"));
    }
    seen.push_back(Value(screen->DtpArrivalDate.Value()).Text());
    seen.push_back(screen->ScreenMode + (screen->IsOpened ? " opened" : ""));
    return Joined({seen, BagLines()});
}

std::string OpeningTest::On() {
    std::string names;
    for (const JeweledButton* button : {&screen->BtnOpen, &screen->BtnPrint, &screen->BtnRemove,
                                        &screen->BtnSave, &screen->BtnClear})
        if (button->Enabled())
            names += button->Name().substr(3) + " ";
    return names;
}

Lines OpeningTest::BagLines() {
    Lines lines;
    for (int row = 0; row < screen->BagRows.RowCount(); ++row)
        lines.push_back(screen->BagRows.Get(row, 0) + " | " + screen->BagRows.Get(row, 1) + " | " +
                        screen->BagRows.Get(row, 2));
    return lines;
}

} // namespace Quillane::Testing
