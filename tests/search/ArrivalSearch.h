#pragma once

#include "data/Con.h"
#include "search/SchArrivals.h"
#include "search/SearchFixture.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane::Testing {

/// An arrival search on the sample rows, without another screen.
class ArrivalSearch : public SearchTest {
protected:
    void Open() {
        screen = std::make_unique<SchArrivals>();
        screen->Show();
        // Typing the parts of a date requires an active window.
        ASSERT_TRUE(WaitFor([&] { return screen->isActiveWindow(); }));
        Sent();
    }

    ScreenDriver Driver() { return ScreenDriver(*screen); }

    /// The ids listed, from the top.
    Lines Ids() { return FirstCells(screen->GrdSch); }

    /// Replaces the text of the name filter, key by key. The filter then has the focus.
    void EnterName(std::string_view name) {
        screen->TxtFilter.SetFocus();
        if (!screen->TxtFilter.Text().empty())
            Driver().Press(Qt::CTRL | Qt::Key_A).Press(Qt::Key_Delete);
        Sent();
        Driver().Type(name);
    }

    void EnterDate(TDBDate& date, std::string_view digits) {
        date.SetFocus();
        Driver().Press(Qt::Key_Home).Type(digits);
    }

    void DoubleClickFirstLine() {
        QWidget& grid = screen->GrdSch.Widget();
        Driver().DoubleClick(grid, {grid.width() / 2, grid.height() / 4});
    }

    static std::string Named(std::string_view name) {
        return " And dbo.FunGetPartyName(ChartOfAccounts.AccountNo) Like '%" + std::string(name) +
               "%'";
    }

    static std::string Statement(std::string_view condition = "",
                                 std::string_view from = "2025-11-20",
                                 std::string_view to = "2026-11-20") {
        return " SELECT Arrivals.ArrivalId, Arrivals.ArrivalDate, "
               "dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS AccountName, "
               "dbo.FunGetCommodity(Commodities.CommodityId)  AS Commodity FROM Arrivals INNER "
               "JOIN Commodities ON Arrivals.CommodityId = Commodities.CommodityId INNER JOIN "
               "Parties ON Arrivals.SellerId = Parties.PartyId  INNER JOIN ChartOfAccounts ON "
               "Parties.PartyId = ChartOfAccounts.AccountNo  Where Arrivals.ArrivalDate Between '" +
               std::string(from) + "T00:00:00' And '" + std::string(to) + "T00:00:00'" +
               std::string(condition) + " Order By Arrivals.ArrivalId desc";
    }

    std::unique_ptr<SchArrivals> screen;
};

} // namespace Quillane::Testing
