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

/// A whole station on a real display: a new folder with the sample rows in its
/// database, an indicator on port 1 with 12540 kg on the scale, boxes that really come up. The
/// sample rows end with arrival 1042; Nadia has level 1, "gate" level 2. Fails off screen.
class Station : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    using Day = std::function<void(Operator&)>;
    /// Starts the program as its own `main` does and lets an operator work on it.
    void Work(const Day& day);
    /// The same with Nadia signed in and the weighment screen open.
    void WorkOnWeighment(const std::function<void(Operator&, FrmWeighment&)>& day);

    /// A command to the indicator, from an operator's thread.
    void Indicate(const Operator& by, const std::string& command);
    /// Runs a statement in another session than the program's.
    void RunBeside(const std::string& statement) const;

    /// A stored cell with all its digits; "Null".
    using Row = std::vector<std::string>;
    /// Read in another session than the program's.
    std::vector<Row> Stored(const std::string& query) const;

    std::optional<StationDatabase> database;
    const FreshFolder* folder = nullptr; ///< of the program
    std::optional<ScaleIndicator> indicator;
    std::optional<BoxWatch> boxes;
    std::optional<ProcessEnd> end;
};

/// Vehicle, class, type and bags, gross, tare and commodity of a weighment that may be saved, each
/// by its keys; the focus ends on the deduction, the bag lines are left to the test.
void EnterAllButBagLines(Operator& by);
/// From any control: into the grid's first cell by the mouse.
void EnterGrid(Operator& by, FrmWeighment& screen);

} // namespace Quillane::Testing
