// The texts and the appearance of the two searches.

#include "search/ArrivalSearch.h"
#include "search/PartySearch.h"

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QScreen>

namespace Quillane::Testing {
namespace {

using SearchLook = SearchTest;

struct ExpectedColumn {
    std::string name, caption, dataField;
    int width = 0;
    std::string format;
};

void ExpectColumns(SSOleDBGrid& grid, const std::vector<ExpectedColumn>& columns) {
    for (const ExpectedColumn& expected : columns) {
        const SSOleDBGrid::Column& column = grid.Columns(expected.name);
        EXPECT_EQ(column.caption, expected.caption);
        EXPECT_EQ(column.dataField, expected.dataField);
        EXPECT_EQ(column.width, expected.width);
        EXPECT_EQ(column.format, expected.format);
    }
}

Lines LabelsOf(const QWidget& screen) {
    Lines texts;
    for (const QLabel* label : screen.findChildren<QLabel*>())
        texts.push_back(label->text().toStdString());
    return texts;
}

std::string CaptionOf(VisualControl& button) {
    return dynamic_cast<QAbstractButton&>(button.Widget()).text().toStdString();
}

bool HasMinimizeOrMaximize(const QWidget& screen) {
    return screen.windowFlags() & (Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint);
}

/// Everything on the screen is visible on the display, and no control extends beyond the screen.
void ExpectAllInView(Screen& screen) {
    EXPECT_TRUE(screen.screen()->availableGeometry().contains(screen.geometry()));
    for (Control* control : screen.Controls()) {
        QWidget& widget = dynamic_cast<VisualControl&>(*control).Widget();
        EXPECT_TRUE(screen.rect().contains(widget.geometry())) << control->Name();
        EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << control->Name();
    }
}

/// True if a line of the grid is filled with this colour, at a point to the right of all text.
bool HasLineIn(SSOleDBGrid& grid, const QColor& colour) {
    const QImage image = grid.Widget().grab().toImage();
    const int x = image.width() - 40;
    for (int y = 0; y < image.height(); ++y)
        if (image.pixelColor(x, y) == colour)
            return true;
    return false;
}

TEST_F(SearchLook, ArrivalSearchHasItsCaptionsAndColumns) {
    SchArrivals search;
    search.Show();
    EXPECT_EQ(search.windowTitle(), "Search Arrivals");
    EXPECT_EQ(LabelsOf(search), (Lines{"ID", "Name:", "From Date", "To Date"}));
    EXPECT_EQ(CaptionOf(search.BtnSelect), "Select");
    EXPECT_EQ(CaptionOf(search.BtnClose), "Close");
    EXPECT_FALSE(HasMinimizeOrMaximize(search));
    ExpectColumns(search.GrdSch,
                  {{"ArrivalID", "ID", "ArrivalId", 1244, ""},
                   {"ArrivalDate", "Arrival Date", "ArrivalDate", 2090, "dd/MM/yyyy"},
                   {"PartyName", "Party Name", "AccountName", 6165, ""},
                   {"Commodity", "Commodity", "Commodity", 4419, ""}});
}

TEST_F(SearchLook, PartySearchHasItsCaptionsAndColumns) {
    SchParty search;
    search.Show();
    EXPECT_EQ(search.windowTitle(), "Search Parties");
    EXPECT_EQ(LabelsOf(search), (Lines{"Name", "Party Id"}));
    EXPECT_EQ(CaptionOf(search.CmdSelect), "Select");
    EXPECT_EQ(CaptionOf(search.CmdClose), "Cancel");
    EXPECT_FALSE(HasMinimizeOrMaximize(search));
    ExpectColumns(search.Grid, {{"ID", "Party ID", "PartyId", 1720, ""},
                                {"Name", "Name", "AccountName", 6456, ""},
                                {"City", "City", "CityName", 3200, ""}});
}

TEST_F(SearchLook, EachFilterHasItsCaptionAsAccessibleName) {
    SchArrivals arrivals;
    EXPECT_EQ(arrivals.TxtFilterId.Widget().accessibleName(), "ID");
    EXPECT_EQ(arrivals.TxtFilter.Widget().accessibleName(), "Name:");
    EXPECT_EQ(arrivals.DtpFromDate.Widget().accessibleName(), "From Date");
    EXPECT_EQ(arrivals.DtpToDate.Widget().accessibleName(), "To Date");
    EXPECT_EQ(arrivals.GrdSch.Widget().accessibleName(), "Arrivals found");
    SchParty parties;
    EXPECT_EQ(parties.TxtFilter.Widget().accessibleName(), "Name");
    EXPECT_EQ(parties.TxtFilterId.Widget().accessibleName(), "Party Id");
    EXPECT_EQ(parties.Grid.Widget().accessibleName(), "Parties found");
}

TEST_F(SearchLook, CurrentArrivalIsGreyAndCurrentPartyHighlighted) {
    SchArrivals arrivals;
    arrivals.Show();
    EXPECT_TRUE(HasLineIn(arrivals.GrdSch, QColor(207, 207, 207)));
    SchParty parties;
    parties.Show();
    EXPECT_TRUE(HasLineIn(parties.Grid, parties.palette().color(QPalette::Highlight)));
}

TEST_F(SearchLook, BothScreensFitTheDisplay) {
    SchArrivals arrivals;
    arrivals.Show();
    ExpectAllInView(arrivals);
    SchParty parties;
    parties.Show();
    ExpectAllInView(parties);
}

} // namespace
} // namespace Quillane::Testing
