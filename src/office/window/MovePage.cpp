#include "office/window/MovePage.h"

#include "data/ConfigFile.h"
#include "office/records/Texts.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/Page.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "setup/SetupQuestions.h"
#include "setup/SqlServerDialog.h"

#include <QBoxLayout>

namespace Quillane::Office {

namespace {

constexpr const char* title = "Move to a SQL Server";

const QString whatHappens =
    "The station's tables are made on the server where they are missing. All rows are copied, read "
    "there and compared. Only when all of them agree does the station work on the server.\n\nUntil "
    "then it works on this computer, whatever happens. The database of before and its Config.ini "
    "stay in the station's folder.\n\nThe database on the server must exist, and hold no "
    "arrivals of others. Close every station first.";

std::string Told(const MovedStation& moved, const SqlServerTarget& place) {
    std::string text =
        Counted(static_cast<long>(moved.tables), "table", "tables") + " with " +
        Counted(moved.rows, "row", "rows") +
        " are on the server; counts, sums and checksums agree.\nThe station works "
        "on " +
        LocationOnServer(place) + " from its next start on.\n\nThe database of before stays in " +
        moved.database + ". To go back to it, replace Config.ini by " + moved.configKept + ".";
    for (const std::string& note : moved.notes)
        text += "\n\n" + note;
    return text + "\n\nThe office closes now; start it again to work on the server.";
}

} // namespace

MovePage::MovePage(OfficeSession& session) : session_(session) {
    order_.stationFolder = session_.folder;
    order_.database = session_.connection.DatabaseFile();
    LayOut();
}

void MovePage::LayOut() {
    QVBoxLayout* column = PageColumn(*this, title, "For a mill that needs more than one computer.");
    if (order_.database.empty()) {
        place_->setText("The database is on a database server already.");
        column->addWidget(place_);
        column->addStretch();
        return;
    }
    auto* text = new QLabel(whatHappens);
    text->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    QPushButton* choose =
        AddAction(*buttons, *this, "&Server...", Qt::CTRL | Qt::Key_G, [this] { ChooseServer(); });
    move_ = AddAction(*buttons, *this, "&Move now", Qt::CTRL | Qt::Key_M, [this] { MoveNow(); });
    buttons->addStretch();
    column->addWidget(text);
    column->addWidget(place_);
    column->addLayout(buttons);
    column->addStretch();
    setFocusProxy(choose);
}

void MovePage::ChooseServer() {
    SqlServerDialog dialog(title);
    if (isChosen_)
        dialog.Offer(order_.place, order_.owner);
    dialog.ShowModal();
    if (dialog.IsChosen)
        Choose(dialog.Target, dialog.Owner);
}

void MovePage::Choose(const SqlServerTarget& place, const OwnerSignIn& owner) {
    order_.place = place;
    order_.owner = owner;
    isChosen_ = true;
    place_->setText("To: " + ToQt(LocationOnServer(place)));
    move_->setFocus();
}

/// Entries on another page would be lost.
QString MovePage::Unsaved() const {
    for (const QWidget* widget : window()->findChildren<QWidget*>())
        if (const auto* page = dynamic_cast<const Page*>(widget);
            page && !page->Unsaved().isEmpty())
            return page->Unsaved();
    return {};
}

bool MovePage::MayBegin() {
    const QString unsaved = Unsaved();
    if (!isChosen_ || !unsaved.isEmpty()) {
        Warn(window(), isChosen_ ? FromQt(unsaved) + " been changed and not saved. Please save it "
                                                     "or discard it first."
                                 : std::string("Please choose the server first."));
        return false;
    }
    return Ask(window(),
               "Move the station to " + LocationOnServer(order_.place) +
                   "?\nClose every station first. No station can weigh during the move.",
               "&Move");
}

void MovePage::MoveNow() {
    if (!MayBegin())
        return;
    const std::optional<MovedStation> moved = RunMove();
    if (!moved) {
        Inform(window(), "Cancelled. The station works on its database on this computer as before. "
                         "The next move begins again.");
        return;
    }
    Inform(window(), Told(*moved, order_.place));
    window()->close();
}

std::optional<MovedStation> MovePage::RunMove() {
    std::optional<MovedStation> moved;
    session_.connection.Close();
    try {
        RunLongWork(title, [&](LongWork& work) { moved = MoveToServer(order_, work); });
    } catch (...) {
        OpenAgain();
        throw;
    }
    if (!moved)
        OpenAgain();
    return moved;
}

// An embedded database needs no sign-in.
void MovePage::OpenAgain() {
    session_.connection.Open("Driver=SQL Server;" +
                             ReadFirstField(session_.folder + "/Config.ini"));
}

} // namespace Quillane::Office
