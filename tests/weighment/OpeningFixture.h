#pragma once

#include "search/SchArrivals.h"
#include "weighment/TraceLines.h"

#include <string>
#include <vector>

namespace Quillane::Testing {

/// One row of ArrivalsBody, with each cell as a literal of SQL.
struct StoredLine {
    std::string bags = "10";
    std::string bagWeight = "100";
    std::string tare = "0";
    std::string otherDeduction = "0";
    std::string vehicle = "''";
    std::string driver = "'Aslam'";
    std::string bilty = "'7'";
    std::string bagClass = "1";
    std::string bagType = "1";
    std::string scaleDeduction = "0";
};

/// The shown screen, on which stored weighments are opened. All sample arrivals are of November
/// 2026, so that the search finds them.
class OpeningTest : public WeighmentScreenTest {
protected:
    void SetUp() override;

    /// Opens an arrival like the box of the id.
    void Open(std::int16_t id) { screen->LoadArrival(id); }
    /// Presses Ctrl+O and selects the arrival on the search screen by keys.
    void OpenBySearch(int id);
    /// Presses Ctrl+O, or the given keys, and leaves the search screen by Esc.
    void CancelSearch();
    void CancelSearch(const std::function<void()>& open);

    /// Stores an arrival of party 6010001 and Wheat without the station.
    void Store(long long id, const std::vector<StoredLine>& lines);

    /// Saves the contents of the screen, answers the print question with No, and expects no other
    /// box.
    void Save();
    std::vector<Lines> Body(const std::string& columns, int id);

    /// Everything that the operator sees or that code decides by, except `ArrivalNo`.
    Lines Screenful();
    /// The enabled buttons among those that a mode sets.
    std::string On();
    Lines BagLines();
};

} // namespace Quillane::Testing
