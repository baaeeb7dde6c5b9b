#include "weighment/WeighmentFixture.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "platform/runtime/Date.h"
#include "signin/UserLogin.h"

#include <algorithm>
#include <charconv>

namespace Quillane::Testing {

namespace {

std::string NameOf(BoxIcon icon) {
    constexpr const char* Names[] = {"no icon", "critical", "question", "exclamation",
                                     "information"};
    return Names[static_cast<std::size_t>(icon)];
}

std::string NameOf(const Box& box) {
    if (box.buttons == BoxButtons::Ok)
        return "OK";
    return box.defaultButton == BoxAnswer::No ? "Yes/No*" : "Yes*/No";
}

std::string Described(const Box& box) {
    return "Box \"" + box.title + "\" [" + NameOf(box.icon) + ", " + NameOf(box) + "] " +
           ComparedWords(box.text);
}

bool StartsWithAny(std::string_view line, std::initializer_list<std::string_view> starts) {
    return std::any_of(starts.begin(), starts.end(),
                       [&](std::string_view start) { return line.starts_with(start); });
}

std::string Written(const Value& cell) {
    if (cell.IsNull())
        return "Null";
    if (const auto* number = std::get_if<double>(&cell.Raw())) {
        char digits[64];
        return std::string(digits, std::to_chars(digits, digits + sizeof digits, *number).ptr);
    }
    const bool isText = std::holds_alternative<std::string>(cell.Raw());
    return isText ? "'" + cell.Text() + "'" : cell.Text();
}

/// Port 1 is this device, and there is no other port.
void UseLine(const std::string& device, const std::function<void()>& opens) {
    MSComm::SetDevices([=](int port) {
        if (opens)
            opens();
        return port == 1 ? device : "/dev/no-such-line-" + std::to_string(port);
    });
}

} // namespace

Trace::Trace(FrmWeighment& screen, const PseudoTerminal& line)
    : screen_(screen), device_(line.Device()) {
    Con->StatementObserver = [this](std::string_view statement) {
        Note(ComparedWords(std::string(statement)));
    };
    screen_.FocusObserver = [this](const std::string& event) { Note(event); };
    WatchBoxes();
    WatchTexts();
    WatchLine();
}

Trace::~Trace() {
    Con->StatementObserver = {};
    screen_.FocusObserver = {};
    ForbidUnexpectedBoxes();
    for (auto& [box, change] : changes_)
        box->Change = std::move(change);
    UseLine(device_, {});
}

void Trace::WatchBoxes() {
    SetBoxPresenter({.message =
                         [this](const Box& box) {
                             Note(Described(box));
                             if (const auto given = answers_.find(box.text);
                                 given != answers_.end())
                                 return given->second;
                             return box.buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::No;
                         },
                     .input =
                         [this](const InputPrompt& prompt) {
                             Note("Input box " + prompt.prompt);
                             return std::string();
                         }});
}

void Trace::WatchTexts() {
    for (Control* control : screen_.Controls()) {
        auto* box = dynamic_cast<TextBox*>(control);
        if (!box)
            continue;
        changes_.emplace_back(box, box->Change);
        box->Change = [this, box, change = box->Change] {
            Note(box->Name() + " = '" + box->Text() + "'");
            if (change)
                change();
        };
    }
}

// The line queries its device each time it opens.
void Trace::WatchLine() {
    UseLine(device_, [this] {
        Note("Line opens, timer " + std::to_string(screen_.Timer.Interval()) + " ms");
    });
}

void Trace::When(const std::string& text, std::function<void()> act, int time) {
    moments_.push_back({text, std::move(act), time});
}

void Trace::Note(std::string_view text) {
    lines_.emplace_back(text);
    for (Moment& moment : moments_)
        if (moment.text == text && --moment.timesToCome == 0)
            moment.act();
}

Lines Trace::Take() {
    return std::exchange(lines_, {});
}

Lines Joined(std::initializer_list<Lines> lists) {
    Lines all;
    for (const Lines& list : lists)
        all.insert(all.end(), list.begin(), list.end());
    return all;
}

Lines StatementsOf(const Lines& trace) {
    Lines statements;
    for (const std::string& each : trace)
        if (!StartsWithAny(each, {"Box ", "Input box ", "Validate ", "LostFocus ", "GotFocus ",
                                  "Form_GotFocus", "Line opens", "Txt"}))
            statements.push_back(each);
    return statements;
}

Lines WithoutTexts(const Lines& trace) {
    Lines rest;
    for (const std::string& each : trace)
        if (!each.starts_with("Txt"))
            rest.push_back(each);
    return rest;
}

std::string DatabaseBox(std::string_view embeddedWords) {
    return "Box \"Database\" [critical, OK] " + EngineWords(embeddedWords);
}

WeighmentTest::WeighmentTest() {
    Con = std::make_unique<Connection>();
    database.Open(*Con);
    CompanyProfile->SetConnection(*Con);
    CompanyProfile->Load();
    UserLogin->SetConnection(*Con);
    UserLogin->SignIn(SampleParticulars().userName, SampleParticulars().password);
    SetClock([] {
        return Date{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
    });
    UseLine(line.Device(), {});
}

WeighmentTest::~WeighmentTest() {
    screen.reset();
    MSComm::SetDevices({});
    SetClock({});
    CompanyProfile.Release();
    UserLogin.Release();
    Con.reset();
}

void WeighmentTest::SignInAsGate() {
    UserLogin->ResetLogin(0);
    UserLogin->SignIn(SampleUserName, SampleUserName);
    ASSERT_EQ(UserLogin->UserLevel(), 2);
}

void WeighmentTest::ShowScreen() {
    screen = std::make_unique<FrmWeighment>();
    screen->Show();
}

void WeighmentTest::SetBagLines(const std::vector<BagLine>& lines) {
    screen->BagRows.ReDim(static_cast<int>(lines.size()) - 1, 2);
    for (int row = 0; row < screen->BagRows.RowCount(); ++row) {
        const BagLine& each = lines[static_cast<std::size_t>(row)];
        screen->BagRows.Set(row, 0, each.bagClass);
        screen->BagRows.Set(row, 1, each.bagType);
        screen->BagRows.Set(row, 2, each.quantity);
    }
    screen->Grid.ReBind();
}

void WeighmentTest::FillIn() {
    screen->CboSeller.SetText("Chaudhry Grain Traders-Okara");
    screen->CboCommodity.SetText("Wheat");
    screen->TxtInitialGrossWeight.SetText("12540");
    screen->TxtTareWeight.SetText("4320");
    screen->ComputeGrossWeight();
    screen->TxtDeduction.SetText("17");
    SetBagLines({{"Jute New", "100 Kg", "60"}, {"Polypropylene", "50 Kg", "40"}});
    screen->TxtVehicleNo.SetText("LEB-4217");
    screen->TxtDriverName.SetText("Ghulam Rasool");
    screen->TxtBuiltyNo.SetText("B-7781");
    screen->SetButtonState(2);
    screen->BtnSave.SetFocus();
}

void WeighmentTest::FillInOpened(int arrivalId) {
    FillIn();
    screen->TxtArrivalId.SetText(std::to_string(arrivalId));
    screen->IsOpened = true;
}

void WeighmentTest::RunBeside(const std::string& statements) {
    database.Run(statements);
}

std::vector<Lines> WeighmentTest::Stored(const std::string& query) {
    std::vector<Lines> rows;
    for (const StationDatabase::Row& cells : database.Rows(query))
        std::transform(cells.begin(), cells.end(), std::back_inserter(rows.emplace_back()),
                       Written);
    return rows;
}

std::string WeighmentTest::StoredCell(const std::string& query) {
    const auto rows = Stored(query);
    return rows.size() == 1 && rows.front().size() == 1 ? rows.front().front() : "not one cell";
}

std::vector<Lines> WeighmentTest::StoredTable(const std::string& table) {
    return Stored("SELECT * FROM " + table + " ORDER BY 1");
}

} // namespace Quillane::Testing
