#pragma once

#include "platform/forms/core/Screen.h"
#include "platform/forms/grids/SSOleDBGrid.h"
#include "station/StationDatabase.h"
#include "support/BoxAnswers.h"
#include "support/ScreenDriver.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Testing {

using Lines = std::vector<std::string>;

/// `Con` on the sample rows. The date is 20 November 2026, and the twelve arrivals were stored one
/// a day: 1042 today, 1041 yesterday, 1031 eleven days ago.
class SearchTest : public testing::Test {
protected:
    SearchTest();
    ~SearchTest() override;

    /// Runs a statement that is not recorded in `statements`.
    void Run(std::string_view statement);
    void AddArrival(std::string_view id, std::string_view day, std::string_view party = "6010001");
    /// A party in Okara.
    void AddParty(std::string_view id, std::string_view name);

    /// The statements since the last call.
    Lines Sent();

    StationDatabase database;
    Lines statements; ///< every text that ran on `Con`
};

/// The current line as assistive technology gets it: "ID 1042, Arrival Date 20/11/2026, ...". Empty
/// if no line is current.
std::string CurrentLine(SSOleDBGrid& grid);
/// The cells of the first column, from the first line to the last. Leaves the first one current.
Lines FirstCells(SSOleDBGrid& grid);

/// The box about a failed statement, or about a recordset that cannot do the action.
Box DatabaseFailure(std::string_view text);

/// The engine's message about a quote that is never closed, at the end of a statement.
extern const std::string OpenQuote;
/// The message about a closed recordset.
extern const std::string_view Closed;

} // namespace Quillane::Testing
