#include "office/window/OfficeWindow.h"

#include "WindowDriver.h"

#include "office/window/Page.h"
#include "station/SampleDatabase.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>

#include <array>
#include <functional>

namespace Quillane::Office {
namespace {

class UnsavedPage : public Page {
public:
    QString Unsaved() const override { return "The notes have"; }
};

QWidget* MakeLists(OfficeSession&) {
    return new QLabel("lists");
}
QWidget* MakeDayBook(OfficeSession&) {
    return new QLabel("day book");
}
QWidget* MakeUnsaved(OfficeSession&) {
    return new UnsavedPage;
}
QWidget* FailToMake(OfficeSession&) {
    throw std::runtime_error("The server does not answer.");
}

constexpr std::array pages{PageEntry{"Lists", false, MakeLists},
                           PageEntry{"Day book", true, MakeDayBook}};

class OfficeFrame : public testing::Test {
protected:
    QString TextOf(const OfficeWindow& window) {
        return static_cast<QLabel*>(window.CurrentPage())->text();
    }

    static bool Scrolls(const OfficeWindow& window) {
        const auto* area =
            dynamic_cast<QScrollArea*>(window.CurrentPage()->parentWidget()->parentWidget());
        return area->horizontalScrollBar()->isVisible() || area->verticalScrollBar()->isVisible();
    }

    /// Shows each page of a window of this size, which must keep its size.
    void ShowEveryPage(QSize size,
                       const std::function<void(OfficeWindow&, const QString& title)>& check) {
        OfficeWindow window(session);
        window.resize(size);
        ShowWindow(window);
        for (int page = 0; page < window.Titles().size(); ++page) {
            window.ShowPage(page);
            QCoreApplication::processEvents();
            EXPECT_EQ(window.size(), size) << window.Titles()[page].toStdString();
            check(window, window.Titles()[page]);
        }
    }

    SampleDatabase database;
    OfficeSession session{.connection = database.connection,
                          .folder = database.folder.path,
                          .company = "Veltrane",
                          .user = "Nadia",
                          .level = 1};
};

TEST_F(OfficeFrame, ShowsAllPagesToLevelOneAndOnlyTheDayBookToOthers) {
    EXPECT_EQ(OfficeWindow(session, pages).Titles(), QStringList({"Lists", "Day book"}));
    for (const int level : {2, 3, -1}) {
        session.level = level;
        const OfficeWindow window(session, pages);
        EXPECT_EQ(window.Titles(), QStringList({"Day book"}));
        EXPECT_EQ(TextOf(window), "day book");
    }
}

TEST_F(OfficeFrame, ChangesThePageByItsShortcut) {
    OfficeWindow window(session, pages);
    ShowWindow(window);
    EXPECT_EQ(TextOf(window), "lists");
    Press(window, Qt::CTRL | Qt::Key_2);
    EXPECT_EQ(TextOf(window), "day book");
    Press(window, Qt::CTRL | Qt::Key_1);
    EXPECT_EQ(TextOf(window), "lists");
}

TEST_F(OfficeFrame, GivesAUserWithoutFullRightsNoShortcutToOtherPages) {
    session.level = 2;
    OfficeWindow window(session, pages);
    ShowWindow(window);
    Press(window, Qt::CTRL | Qt::Key_2);
    EXPECT_EQ(TextOf(window), "day book");
}

TEST_F(OfficeFrame, ReportsAPageThatCannotBeMadeAndStays) {
    constexpr std::array failing{pages[0], PageEntry{"Broken", false, FailToMake}};
    OfficeWindow window(session, failing);
    ShowWindow(window);
    const Answers answer({"OK"});
    Press(window, Qt::CTRL | Qt::Key_2);
    EXPECT_EQ(answer.Texts().at(0), "The server does not answer.");
    EXPECT_EQ(TextOf(window), "lists");
}

TEST_F(OfficeFrame, AsksBeforeItClosesOverUnsavedEntries) {
    constexpr std::array unsaved{PageEntry{"Notes", false, MakeUnsaved}};
    OfficeWindow window(session, unsaved);
    ShowWindow(window);
    {
        const Answers answer({"Cancel"});
        EXPECT_FALSE(window.close());
        EXPECT_EQ(answer.Texts().at(0),
                  "The notes have been changed and not saved. Close the office without saving?");
    }
    const Answers answer({"Close without saving"});
    EXPECT_TRUE(window.close());
}

TEST_F(OfficeFrame, EveryPageFitsSmallDisplaysWithNothingCut) {
    constexpr int frame = 40; // of the desktop around the window
    for (const QSize display : {QSize(1280, 720), QSize(1366, 768)}) {
        ShowEveryPage(display - QSize(0, frame), [&](OfficeWindow& window, const QString& title) {
            EXPECT_FALSE(Scrolls(window)) << title.toStdString();
            LookAt(window,
                   "page-" + std::to_string(display.width()) + "-" + title.toLower().toStdString());
        });
    }
}

// A display of 1366x768 with everything shown one and a half times as large.
TEST_F(OfficeFrame, PagesScrollOnAVerySmallDisplay) {
    ShowEveryPage(QSize(900, 460), [](OfficeWindow&, const QString&) {});
}

TEST_F(OfficeFrame, LongTextsOfNoticesAreWrappedWhole) {
    session.whyReadOnly = [](Connection&, std::span<const std::string_view>) {
        return std::string(
            "Die Anmeldung \"Waagenhaus-Sued\" darf diese Liste lesen, aber nicht aendern. Sie "
            "gehoert zur Buchhaltungsdatenbank Betriebsabrechnungsverwaltung, Eigentuemer dbo: "
            "bitte "
            "aendern Sie sie in dem Programm, das sie dort fuehrt und verwaltet, und starten Sie "
            "neu.");
    };
    OfficeWindow window(session);
    window.resize(1280, 680);
    ShowWindow(window);
    for (int place = 0; place < window.Titles().size(); ++place) {
        window.ShowPage(place);
        QCoreApplication::processEvents();
        for (const auto* label : window.CurrentPage()->findChildren<QLabel*>())
            if (label->isVisible() && label->wordWrap()) {
                EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                    << label->text().toStdString();
            }
        LookAt(window, "long-" + window.Titles()[place].toLower().toStdString());
    }
}

} // namespace
} // namespace Quillane::Office
