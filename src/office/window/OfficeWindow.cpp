#include "office/window/OfficeWindow.h"

#include "office/window/OfficeBoxes.h"
#include "office/window/Page.h"
#include "office/window/PageLook.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Text.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTreeWidget>

#include <algorithm>

namespace Quillane::Office {

namespace {

constexpr int navigationWidth = 190;
constexpr QSize usualSize(1240, 680);

// White on the green of the station's dialogs.
void LookLikeNavigation(QTreeWidget& list) {
    list.setColumnCount(2);
    list.header()->hide();
    list.header()->setStretchLastSection(false);
    list.header()->setSectionResizeMode(0, QHeaderView::Stretch);
    list.header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    list.setRootIsDecorated(false);
    list.setIndentation(0);
    list.setFixedWidth(navigationWidth);
    list.setFrameShape(QFrame::NoFrame);
    list.setAccessibleName("Pages");
    list.setStyleSheet("QTreeWidget { background: #2f6b5e; color: white; outline: 0; "
                       "padding-top: 12px; font-size: 12pt; }"
                       "QTreeWidget::item { padding: 8px 10px; border: 0px; color: white; }"
                       "QTreeWidget::item:hover { background: #3a7d6e; }"
                       "QTreeWidget::item:selected { background: #1e4a41; color: white; }");
}

/// On a small display a page scrolls; otherwise it would make the window larger than the display.
QScrollArea* Scrolling(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(page);
    return area;
}

} // namespace

OfficeWindow::OfficeWindow(OfficeSession& session, std::span<const PageEntry> pages)
    : session_(session), navigation_(new QTreeWidget), stack_(new QStackedWidget) {
    setWindowTitle(ToQt(ProgramTitle()) +
                   (session.company.empty() ? QString() : " - " + ToQt(session.company)));
    LookLikeNavigation(*navigation_);
    FillNavigation(pages);
    LayOut();
    ShowWho();
    connect(navigation_, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item) { ShowPage(navigation_->indexOfTopLevelItem(item)); });
    if (!entries_.empty())
        ShowPage(0);
}

void OfficeWindow::FillNavigation(std::span<const PageEntry> pages) {
    constexpr int fullRights = 1;
    std::ranges::copy_if(pages, std::back_inserter(entries_), [this](const PageEntry& entry) {
        return entry.isForEveryone || session_.level == fullRights;
    });
    made_.resize(entries_.size());
    for (int place = 0; place < static_cast<int>(entries_.size()); ++place) {
        const QKeySequence keys(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + place));
        auto* item = new QTreeWidgetItem({entries_[static_cast<std::size_t>(place)].title,
                                          keys.toString(QKeySequence::NativeText)});
        QFont small = font();
        small.setPointSize(9);
        item->setFont(1, small);
        item->setForeground(1, QColor(0xC4, 0xDA, 0xD4));
        navigation_->addTopLevelItem(item);
        connect(new QShortcut(keys, this), &QShortcut::activated, this,
                [this, place] { ShowPage(place); });
    }
}

void OfficeWindow::LayOut() {
    auto* centre = new QWidget;
    auto* row = new QHBoxLayout(centre);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(navigation_);
    row->addWidget(stack_, 1);
    setCentralWidget(centre);
    resize(usualSize.boundedTo(screen()->availableGeometry().size() - QSize(20, 60)));
}

void OfficeWindow::ShowWho() {
    const bool isEmbedded = !session_.connection.DatabaseFile().empty();
    const std::string database =
        isEmbedded ? session_.connection.DatabaseFile()
                   : "Database " + session_.connection.DefaultDatabase() + " on a server";
    statusBar()->setSizeGripEnabled(false);
    statusBar()->addWidget(
        Note(ToQt(session_.user) + ", level " + QString::number(session_.level)));
    statusBar()->addPermanentWidget(Note(ToQt(database)));
}

QStringList OfficeWindow::Titles() const {
    QStringList titles;
    for (const PageEntry& entry : entries_)
        titles.append(entry.title);
    return titles;
}

// If making a page fails, the next choice of the page tries again.
QWidget* OfficeWindow::MadePage(int place) {
    QWidget*& page = made_[static_cast<std::size_t>(place)];
    Guarded(this, [&] {
        if (!page) {
            page = entries_[static_cast<std::size_t>(place)].make(session_);
            stack_->addWidget(Scrolling(page));
        }
    });
    return page;
}

void OfficeWindow::ShowPage(int place) {
    if (place < 0 || place >= static_cast<int>(entries_.size()))
        return;
    if (QWidget* page = MadePage(place)) {
        stack_->setCurrentWidget(page->parentWidget()->parentWidget()); // the viewport's area
        page->setFocus();
    }
    const auto shown = std::ranges::find(made_, CurrentPage());
    const QSignalBlocker quiet(navigation_);
    navigation_->setCurrentItem(
        shown == made_.end() ? nullptr
                             : navigation_->topLevelItem(static_cast<int>(shown - made_.begin())));
}

void OfficeWindow::ShowPage(const QString& title) {
    ShowPage(static_cast<int>(Titles().indexOf(title)));
}

QWidget* OfficeWindow::CurrentPage() const {
    const auto* area = dynamic_cast<const QScrollArea*>(stack_->currentWidget());
    return area ? area->widget() : nullptr;
}

QString OfficeWindow::Unsaved() const {
    for (QWidget* each : made_)
        if (const auto* page = dynamic_cast<Page*>(each); page && !page->Unsaved().isEmpty())
            return page->Unsaved();
    return {};
}

void OfficeWindow::closeEvent(QCloseEvent* event) {
    const QString unsaved = Unsaved();
    const bool closes =
        unsaved.isEmpty() || Ask(this,
                                 FromQt(unsaved) + " been changed and not saved. Close the office "
                                                   "without saving?",
                                 "Close &without saving");
    event->setAccepted(closes);
}

} // namespace Quillane::Office
