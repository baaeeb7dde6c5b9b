#include "office/window/BackupPage.h"

#include "office/backup/Backup.h"
#include "office/backup/BackupFiles.h"
#include "office/window/OfficeBoxes.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/host/StationFile.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

namespace Quillane::Office {

namespace {

const QString onServer =
    "The database is on a database server. Whoever owns it there backs it up, by the server's own "
    "means; the stations may work meanwhile. The guide to the set-up says how.";

std::string Told(const Backup& backup) {
    std::string text = "The backup is complete and has been checked:\n" + backup.file;
    for (const std::string& file : backup.removed)
        text += "\nRemoved: " + file;
    for (const std::string& note : backup.notes)
        text += "\n" + note;
    return text;
}

} // namespace

BackupPage::BackupPage(OfficeSession& session)
    : session_(session), database_(session.connection.DatabaseFile()) {
    LayOut();
}

void BackupPage::LayOut() {
    QVBoxLayout* column = PageColumn(*this, "Backup",
                                     "Copies of the database, made while the "
                                     "stations go on saving.");
    if (database_.empty()) {
        place_->setText(onServer);
        column->addWidget(place_);
        column->addStretch();
        return;
    }
    auto* buttons = new QHBoxLayout;
    QPushButton* now =
        AddAction(*buttons, *this, "&Back up now", Qt::CTRL | Qt::Key_B, [this] { BackUpNow(); });
    buttons->addStretch();
    column->addWidget(place_);
    column->addWidget(backups_);
    column->addLayout(buttons);
    column->addWidget(Note("To put a backup in the place of the database, close every station and "
                           "this window, and run: quillane-office --restore FILE"));
    setFocusProxy(now);
}

std::string BackupPage::Folder() const {
    return BackupFolderOf(session_.folder, StationFile::Read(session_.folder + "/Station.ini"));
}

void BackupPage::Reload() {
    if (database_.empty())
        return;
    const std::string folder = Folder();
    place_->setText("Folder: " + ToQt(folder));
    backups_->clear();
    const QString name = QFileInfo(ToQt(database_)).completeBaseName();
    for (const std::string& file : BackupsIn(folder, FromQt(name))) {
        const QFileInfo info(ToQt(file));
        backups_->insertItem(0,
                             info.fileName() + ", " + QLocale::c().formattedDataSize(info.size()));
    }
}

void BackupPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Guarded(window(), [this] { Reload(); });
}

void BackupPage::BackUpNow() {
    const int keep = StationFile::Read(session_.folder + "/Station.ini").BackupsKept;
    const BackupOrder order{.database = database_, .folder = Folder(), .keep = keep};
    std::optional<Backup> backup;
    RunLongWork("Backup", [&](LongWork& work) { backup = BackUp(order, work); });
    Reload();
    if (backup)
        Tell(window(), Told(*backup));
}

} // namespace Quillane::Office
