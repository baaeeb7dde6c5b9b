#include "search/SearchFixture.h"

#include "data/Con.h"
#include "platform/forms/core/KeyCodes.h"
#include "platform/runtime/Date.h"

#include <utility>

namespace Quillane::Testing {

const std::string OpenQuote = EngineWords("unrecognized token: \"'\"");
const std::string_view Closed = "Operation is not allowed when the object is closed.";

SearchTest::SearchTest() {
    Con = std::make_unique<Connection>();
    database.Open(*Con);
    for (int id = 1031; id <= 1042; ++id) {
        const std::string day = std::to_string(100 + id - 1022).substr(1);
        Con->Execute("Update Arrivals Set ArrivalDate = '2026-11-" + day +
                     "T00:00:00' Where ArrivalID = " + std::to_string(id));
    }
    Con->StatementObserver = [this](std::string_view text) { statements.emplace_back(text); };
    SetClock([] {
        return Date{std::chrono::year(2026), std::chrono::month(11), std::chrono::day(20)};
    });
}

SearchTest::~SearchTest() {
    SetClock({});
    Con.reset();
}

void SearchTest::Run(std::string_view statement) {
    const Lines before = statements;
    Con->Execute(statement);
    statements = before;
}

void SearchTest::AddArrival(std::string_view id, std::string_view day, std::string_view party) {
    Run("Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Values (" +
        std::string(id) + ", '" + std::string(day) + "T00:00:00', 1, '" + std::string(party) +
        "')");
}

void SearchTest::AddParty(std::string_view id, std::string_view name) {
    Run("Insert Into ChartOfAccounts (AccountNo, AccountName) Values ('" + std::string(id) +
        "', '" + std::string(name) + "')");
    Run("Insert Into Parties (PartyId, CityId) Values ('" + std::string(id) + "', 3)");
}

Lines SearchTest::Sent() {
    return std::exchange(statements, {});
}

std::string CurrentLine(SSOleDBGrid& grid) {
    grid.Widget().grab();
    return grid.Widget().accessibleDescription().toStdString();
}

Lines FirstCells(SSOleDBGrid& grid) {
    Lines cells;
    grid.MoveFirst();
    for (int line = 0; line < grid.Rows(); ++line) {
        const std::string description = CurrentLine(grid);
        const std::size_t caption = grid.Name() == "GrdSch" ? sizeof "ID" : sizeof "Party ID";
        cells.push_back(description.substr(caption, description.find(',') - caption));
        grid.HandleKey(Key::Down, 0);
    }
    grid.MoveFirst();
    return cells;
}

Box DatabaseFailure(std::string_view text) {
    return Critical(text, "Database");
}

} // namespace Quillane::Testing
