// The import of 5,000 parties from a CSV file into a list of 5,000: reading the list, the preview
// and the transaction. The reference executes the statements of the same import, prepared and
// stepped raw in one transaction.
//
//     ImportBench
//
// An import must take less than two seconds of processor time.

#include "ManyArrivals.h"
#include "RawSession.h"
#include "SideBySide.h"
#include "data/Con.h"
#include "office/records/ImportPlan.h"

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace Quillane;
using namespace Quillane::Office;

constexpr int parties = 5000;
constexpr int firstId = 7'100'000;
constexpr double limitMilliseconds = 2000;

std::string NewParties() {
    std::string text = "PartyId,AccountName,City,Address,IsSeller,IsBuyer,IsBroker\n";
    const std::string city = ReadSnapshot(*Con, CitiesTable()).rows.Rows().front().at(NameCell);
    for (int row = 0; row < parties; ++row)
        text += std::to_string(firstId + row) + ",Trader No. " + std::to_string(row) + "," + city +
                ",\"Shop " + std::to_string(row) + ", Grain Market\",1,0,0\n";
    return text;
}

void Import(const std::string& text) {
    const ImportPlan plan = PlanImport(ReadSnapshot(*Con, PartiesTable()), text);
    if (plan.Count(ImportLine::Kind::New) != parties ||
        WriteRows(*Con, PartiesTable(), plan.Changes()).end != WriteResult::End::Written)
        throw std::runtime_error("the parties were not imported: " + plan.fault);
}

void RemoveImported() {
    Con->Execute("Delete From Parties Where PartyId >= " + std::to_string(firstId));
    Con->Execute("Delete From ChartOfAccounts Where AccountNo >= " + std::to_string(firstId));
}

/// The statements of one import, as the engine executes them.
std::vector<std::string> StatementsOfImport(const std::string& text) {
    std::vector<std::string> statements{"BEGIN IMMEDIATE"};
    Con->StatementObserver = [&](std::string_view statement) {
        if (!statement.ends_with("Trans"))
            statements.push_back(RawSession::Statement(statement));
    };
    Import(text);
    Con->StatementObserver = nullptr;
    statements.emplace_back("COMMIT");
    return statements;
}

} // namespace

int main() {
    const ManyArrivals database(1);
    OpenCon(database);
    const std::string text = NewParties();
    const std::vector<std::string> statements = StatementsOfImport(text);
    const RawSession raw(database);
    constexpr int turns = 11;
    const SideBySide measured(turns, {RemoveImported, [&] { Import(text); }},
                              {RemoveImported, [&] {
                                   for (const std::string& each : statements)
                                       raw.Step(each.c_str());
                               }});
    PrintHeading("processor time, milliseconds");
    PrintLine("Import of 5,000 parties, its statements raw", parties, measured, 2);
    std::printf("%.0f ms of the processor; limit %.0f%s\n", measured.program.Median(),
                limitMilliseconds, measured.program.Median() > limitMilliseconds ? "  over" : "");
    return 0;
}
