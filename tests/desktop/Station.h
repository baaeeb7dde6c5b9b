#pragma once

#include "BoxWatch.h"
#include "Operator.h"
#include "ScaleIndicator.h"
#include "station/StationDatabase.h"
#include "support/ProcessEnd.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// A whole station on a real display: a new folder with a database with the sample rows, an
/// indicator on port 1 with 12540 kg on the scale, and boxes that are really shown. The sample rows
/// end with arrival 1042; Nadia has level 1, "gate" has level 2. Fails off screen.
class Station : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    using Day = std::function<void(Operator&)>;
    /// Starts the program like its `main` and lets an operator work on it.
    void Work(const Day& day);
    /// The same with Nadia signed in and the weighment screen open.
    void WorkOnWeighment(const std::function<void(Operator&, FrmWeighment&)>& day);

    /// Gives the indicator a command, from an operator's thread.
    void Indicate(const Operator& by, const std::string& command);
    /// Runs a statement in another session.
    void RunBeside(const std::string& statement) const;

    /// A stored cell with all its digits; "Null" for Null.
    using Row = std::vector<std::string>;
    /// Read in another session than the program's.
    std::vector<Row> Stored(const std::string& query) const;

    std::optional<StationDatabase> database;
    const FreshFolder* folder = nullptr; ///< of the program
    std::optional<ScaleIndicator> indicator;
    std::optional<BoxWatch> boxes;
    std::optional<ProcessEnd> end;
};

/// The vehicle, the class, type and number of bags, gross, tare and commodity of a weighment that
/// can be saved, each entered by its keys. The focus ends on the deduction; the test enters the bag
/// lines.
void EnterAllButBagLines(Operator& by);
/// Moves from any control to the first cell of the grid by the mouse.
void EnterGrid(Operator& by, FrmWeighment& screen);

} // namespace Quillane::Testing
