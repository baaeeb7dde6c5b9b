// The screens on displays of several sizes and scales: every control is visible, none overlaps
// another one, no text is cut. The registration of the test sets the display and the scale.

#include "Station.h"
#include "platform/forms/core/Text.h"
#include "scale/FrmPortSettings.h"
#include "search/SchArrivals.h"
#include "search/SchParty.h"
#include "setup/CreateDatabaseDialog.h"
#include "setup/SqlServerDialog.h"
#include "shell/Desktop.h"
#include "support/ScreenDriver.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>
#include <iterator>

namespace Quillane::Testing {
namespace {

struct Piece {
    std::string name;
    const QWidget* widget;
    QRect place; ///< on the screen's window, also if it is scrolled out of view
};

std::string Described(const Piece& piece) {
    const QRect& place = piece.place;
    return piece.name + " at " + std::to_string(place.x()) + "," + std::to_string(place.y()) +
           " of " + std::to_string(place.width()) + "x" + std::to_string(place.height());
}

/// Every shown control and caption.
std::vector<Piece> PiecesOf(Screen& screen) {
    std::vector<Piece> pieces;
    const auto add = [&](std::string name, const QWidget& widget) {
        if (widget.isVisibleTo(&screen) && !widget.size().isEmpty())
            pieces.push_back({std::move(name), &widget,
                              QRect(widget.mapTo(&screen, QPoint(0, 0)), widget.size())});
    };
    for (Control* control : screen.Controls())
        if (auto* visual = dynamic_cast<VisualControl*>(control))
            add(visual->Name(), visual->Widget());
    for (const QLabel* label : screen.findChildren<QLabel*>())
        if (!screen.ControlOf(label) && !label->text().isEmpty())
            add("\"" + FromQt(label->text()) + "\"", *label);
    return pieces;
}

std::vector<Piece> PiecesWhere(const std::vector<Piece>& pieces,
                               const std::function<bool(const Piece&)>& holds) {
    std::vector<Piece> found;
    std::copy_if(pieces.begin(), pieces.end(), std::back_inserter(found), holds);
    return found;
}

/// The visible part of the window, and the area in which controls can be.
struct View {
    QRect seen;
    QRect reachable;
};

/// The visible rectangle of a widget on the screen; without a widget, that of the area that
/// scrolls.
View ViewOf(const Screen& screen, const QWidget* widget = nullptr) {
    const auto* scroll = screen.findChild<QScrollArea*>();
    if (!scroll || (widget && !scroll->isAncestorOf(widget)))
        return {screen.rect(), screen.rect()};
    const auto placeOf = [&](const QWidget& part) {
        return QRect(part.mapTo(&screen, QPoint(0, 0)), part.size());
    };
    return {placeOf(*scroll->viewport()), placeOf(*scroll->widget())};
}

bool IsWithin(const QWidget* inner, const QWidget* outer) {
    return outer->isAncestorOf(inner);
}

void ExpectNothingOverlaps(const std::vector<Piece>& pieces) {
    for (std::size_t one = 0; one < pieces.size(); ++one)
        for (std::size_t other = one + 1; other < pieces.size(); ++other) {
            if (IsWithin(pieces[one].widget, pieces[other].widget) ||
                IsWithin(pieces[other].widget, pieces[one].widget))
                continue;
            EXPECT_FALSE(pieces[one].place.intersects(pieces[other].place))
                << Described(pieces[one]) << " and " << Described(pieces[other]);
        }
}

void ExpectTextsWhole(const std::vector<Piece>& pieces) {
    for (const Piece& piece : pieces) {
        const QSize needed = piece.widget->minimumSizeHint();
        EXPECT_GE(piece.place.width(), needed.width()) << Described(piece);
        EXPECT_GE(piece.place.height(), needed.height()) << Described(piece);
        const auto* button = qobject_cast<const QAbstractButton*>(piece.widget);
        if (button && !button->text().isEmpty()) {
            EXPECT_GE(piece.place.width(), button->sizeHint().width()) << Described(piece);
        }
    }
}

/// The whole window except the thin sides of its frame: the title bar can be reached.
void ExpectOnDisplay(const Screen& screen) {
    const QRect available = screen.screen()->availableGeometry();
    EXPECT_TRUE(available.contains(screen.geometry()))
        << screen.width() << "x" << screen.height() << " on " << available.width() << "x"
        << available.height();
    EXPECT_GE(screen.frameGeometry().top(), available.top());
}

/// For a screen that does not scroll.
void ExpectLaidOut(Screen& screen) {
    ExpectOnDisplay(screen);
    const std::vector<Piece> pieces = PiecesOf(screen);
    ExpectNothingOverlaps(pieces);
    ExpectTextsWhole(pieces);
    for (const Piece& piece : pieces)
        EXPECT_TRUE(screen.rect().contains(piece.place)) << Described(piece);
}

bool IsInSight(const QRect& place, const QRect& seen) {
    const QRect part = seen & place;
    const auto areaOf = [](const QRect& rect) { return rect.width() * rect.height(); };
    return areaOf(part) >= areaOf(place) * 9 / 10;
}

class ScreenLayout : public Station {
protected:
    /// A load larger than any truck's.
    static void FillWithALargeLoad(FrmWeighment& screen) {
        screen.TxtArrivalId.SetText("104300");
        screen.TxtVehicleNo.SetText("WWWWWWWWWW");
        screen.TxtInitialGrossWeight.SetText("120000");
        screen.TxtTareWeight.SetText("20001");
        screen.TxtGrossWeight.SetText("99999");
        screen.TxtDeduction.SetText("8888");
    }
};

TEST_F(ScreenLayout, OfTheWeighmentFitsTheDisplayAndNothingOverlaps) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        by.Picture("layout");
        by.See([&] {
            ExpectOnDisplay(screen);
            const std::vector<Piece> pieces = PiecesOf(screen);
            EXPECT_GT(pieces.size(), 40U);
            ExpectNothingOverlaps(pieces);
            ExpectTextsWhole(pieces);
            for (const Piece& piece : pieces)
                EXPECT_TRUE(ViewOf(screen, piece.widget).reachable.contains(piece.place))
                    << Described(piece);
        });
    });
}

TEST_F(ScreenLayout, OfTheWeighmentDoesNotScrollIfItFits) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        by.See([&] {
            const QSize available = screen.screen()->availableSize();
            if (available.width() < 1280 || available.height() < 720)
                return;
            const View view = ViewOf(screen);
            EXPECT_TRUE(view.seen.contains(view.reachable))
                << view.reachable.width() << "x" << view.reachable.height() << " in "
                << view.seen.width() << "x" << view.seen.height();
        });
    });
}

TEST_F(ScreenLayout, OfTheWeighmentShowsTheWholeReading) {
    WorkOnWeighment([this](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        Indicate(by, "weight 888888");
        by.UntilReading(888888);
        by.See([&] {
            const auto& box = dynamic_cast<QLineEdit&>(screen.TxtWeight.Widget());
            EXPECT_LE(box.fontMetrics().horizontalAdvance(box.text()), box.width() - 8);
            EXPECT_LE(box.fontMetrics().tightBoundingRect(box.text()).height(), box.height());
        });
        by.Press({"Return"});
        by.See([&] {
            FillWithALargeLoad(screen);
            for (const TextBox* each : std::initializer_list<const TextBox*>{
                     &screen.TxtArrivalId, &screen.TxtInitialGrossWeight, &screen.TxtTareWeight,
                     &screen.TxtGrossWeight, &screen.TxtDeduction, &screen.TxtNetWeight,
                     &screen.TxtMoundKgs}) {
                auto& box = dynamic_cast<QLineEdit&>(const_cast<TextBox*>(each)->Widget());
                EXPECT_LE(box.fontMetrics().horizontalAdvance(box.text()), box.width() - 8)
                    << each->Name() << " " << each->Text();
            }
        });
    });
}

// If the screen is larger than the display, the control with the focus is always in view.
TEST_F(ScreenLayout, OfTheWeighmentFollowsTheFocus) {
    WorkOnWeighment([](Operator& by, FrmWeighment& screen) {
        by.UntilReading(12540);
        std::string before = by.See([&] { return screen.ActiveControlName(); });
        for (int step = 0; step < 23; ++step) {
            by.Press({"Tab"});
            by.Until("the focus to move on", [&] { return screen.ActiveControlName() != before; });
            before = by.See([&] { return screen.ActiveControlName(); });
            by.See([&] {
                const QWidget& widget = screen.ActiveControl()->Widget();
                const QRect place(widget.mapTo(&screen, QPoint(0, 0)), widget.size());
                const QRect seen = ViewOf(screen, &widget).seen;
                EXPECT_TRUE(IsInSight(place, seen)) << Described({before, &widget, place}) << " in "
                                                    << seen.width() << "x" << seen.height();
            });
        }
        by.Picture("focus-followed");
    });
}

TEST_F(ScreenLayout, OfTheStartScreenFitsTheDisplayAndNothingOverlaps) {
    Work([](Operator& by) {
        by.SignIn("Nadia", "grain");
        by.Picture("start-screen");
        by.See([] { ExpectLaidOut(*TheDesktop); });
    });
}

TEST_F(ScreenLayout, OfTheBenchFitsTheDisplayAndNothingOverlaps) {
    Work([](Operator& by) {
        by.SignIn("Nadia", "grain");
        by.Press({"Tab", "space"});
        by.UntilInFront("Port Testing");
        by.Picture("bench-layout");
        FrmPortSettings& bench = by.Shown<FrmPortSettings>();
        by.See([&] { ExpectLaidOut(bench); });
    });
}

TEST_F(ScreenLayout, OfTheSearchesFitsTheDisplayAndNothingOverlaps) {
    WorkOnWeighment([](Operator& by, FrmWeighment& /*screen*/) {
        by.Press({"ctrl+o"});
        by.UntilInFront("Search Arrivals");
        by.Picture("arrival-search-layout");
        SchArrivals& arrivals = by.Shown<SchArrivals>();
        by.See([&] { ExpectLaidOut(arrivals); });
        by.Press({"Escape"});
        by.UntilInFront("Weighment for Veltrane");
        by.Press({"Return", "Return", "Return", "Return"});
        by.UntilActive("CboSeller");
        by.Press({"F1"});
        by.UntilInFront("Search Parties");
        by.Picture("party-search-layout");
        SchParty& parties = by.Shown<SchParty>();
        by.See([&] { ExpectLaidOut(parties); });
    });
}

/// Goes through all controls once by Tab; each one is in view while it has the focus.
void ExpectFocusInSight(Screen& screen) {
    const VisualControl* first = screen.ActiveControl();
    do {
        ScreenDriver(screen).Press(Qt::Key_Tab);
        const QWidget& widget = screen.ActiveControl()->Widget();
        const QRect place(widget.mapTo(&screen, QPoint(0, 0)), widget.size());
        EXPECT_TRUE(IsInSight(place, ViewOf(screen, &widget).seen))
            << Described({screen.ActiveControlName(), &widget, place});
    } while (screen.ActiveControl() != first);
}

TEST_F(ScreenLayout, OfTheSetUpFitsTheDisplayAndFollowsTheFocus) {
    CreateDatabaseDialog setUp(folder->path);
    SqlServerDialog server;
    for (Screen* each : std::initializer_list<Screen*>{&setUp, &server})
        RunModal(*each, [](Screen& screen) {
            EXPECT_TRUE(WaitFor([&] { return screen.ActiveControl() != nullptr; }));
            ExpectOnDisplay(screen);
            const std::vector<Piece> pieces = PiecesOf(screen);
            EXPECT_GT(pieces.size(), 15U);
            ExpectTextsWhole(pieces);
            // Controls scrolled out of view are below the buttons and overlap nothing.
            const QWidget* scrolled = screen.findChild<QScrollArea*>()->widget();
            for (const bool inside : {true, false})
                ExpectNothingOverlaps(PiecesWhere(pieces, [&](const Piece& piece) {
                    return scrolled->isAncestorOf(piece.widget) == inside;
                }));
            for (const Piece& piece : pieces)
                EXPECT_TRUE(ViewOf(screen, piece.widget).reachable.contains(piece.place))
                    << Described(piece);
            ExpectFocusInSight(screen);
            screen.Unload();
        });
}

} // namespace
} // namespace Quillane::Testing
