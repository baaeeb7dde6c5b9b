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

/// `Con` on the sample rows. It is 20 November 2026, and the twelve arrivals came one a day: 1042
/// today, 1041 yesterday, 1031 eleven days ago.
class SearchTest : public testing::Test {
protected:
    SearchTest();
    ~SearchTest() override;

    /// Runs a statement that is not among `statements`.
    void Run(std::string_view statement);
    void AddArrival(std::string_view id, std::string_view day, std::string_view party = "6010001");
    /// A party in Okara.
    void AddParty(std::string_view id, std::string_view name);

    /// What was sent since the last call.
    Lines Sent();

    StationDatabase database;
    Lines statements; ///< every text that ran on `Con`
};

/// The current line as it is told to assistive technology: "ID 1042, Arrival Date 20/11/2026, ...".
/// Empty where no line is current.
std::string CurrentLine(SSOleDBGrid& grid);
/// The cells of the first column, from the first line to the last. Leaves the first one current.
Lines FirstCells(SSOleDBGrid& grid);

/// The report of a failed statement or of a recordset that cannot do it.
Box DatabaseFailure(std::string_view text);

/// What the engine says of a quote that is never closed, at the end of a statement.
extern const std::string OpenQuote;
/// What a closed recordset says.
extern const std::string_view Closed;

} // namespace Quillane::Testing
