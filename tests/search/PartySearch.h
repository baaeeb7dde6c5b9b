#pragma once

#include "data/Con.h"
#include "search/SchParty.h"
#include "search/SearchFixture.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane::Testing {

/// A party search on the sample rows, without another screen.
class PartySearch : public SearchTest {
protected:
    void Open() {
        screen = std::make_unique<SchParty>();
        screen->Show();
        Sent();
    }

    ScreenDriver Driver() { return ScreenDriver(*screen); }

    /// The ids listed, from the top.
    Lines Ids() { return FirstCells(screen->Grid); }
    /// The id of the current line; empty if there is none.
    std::string CurrentId() {
        const std::string description = CurrentLine(screen->Grid);
        const std::string caption = "Party ID ";
        return description.empty()
                   ? description
                   : description.substr(caption.size(), description.find(',') - caption.size());
    }

    /// Replaces the text of a box, key by key. The box then has the focus.
    void Enter(TextBox& box, std::string_view text) {
        box.SetFocus();
        if (!box.Text().empty())
            Driver().Press(Qt::CTRL | Qt::Key_A).Press(Qt::Key_Delete);
        Sent();
        Driver().Type(text);
    }

    void DoubleClickFirstLine() {
        QWidget& grid = screen->Grid.Widget();
        Driver().DoubleClick(grid, {grid.width() / 2, grid.height() / 4});
    }

    Lines Selected() {
        return {screen->SelectedPartyId, screen->SelectedPartyName, screen->SelectedPartyCity};
    }

    static std::string Statement(std::string_view condition = "") {
        return "Select P.PartyId,C.AccountName,Ct.CityName from Parties P Inner Join "
               "ChartofAccounts C On P.PartyId = C.AccountNo Inner Join Cities CT On P.CityId = "
               "CT.CityId wHERE p.PartyId Like '6%'" +
               std::string(condition);
    }
    static std::string Named(std::string_view name) {
        return Statement(" And C.AccountName Like '%" + std::string(name) + "%'");
    }

    std::unique_ptr<SchParty> screen;
};

} // namespace Quillane::Testing
