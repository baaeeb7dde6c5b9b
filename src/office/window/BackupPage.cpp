#include "office/window/BackupPage.h"

#include "office/backup/Backup.h"
#include "office/backup/BackupFiles.h"
#include "office/backup/Restore.h"
#include "office/window/OfficeBoxes.h"
#include "platform/ado/Connection.h"
#include "platform/forms/core/Text.h"
#include "platform/forms/dialogs/WaitingScreen.h"
#include "platform/host/StationFile.h"
#include "platform/runtime/Failure.h"

#include <QBoxLayout>
#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QShowEvent>

#include <array>

namespace Quillane::Office {

namespace {

enum CopyColumn { TimeColumn, KindColumn, NameColumn, SizeColumn, FindingColumn };

constexpr int FileRole = Qt::UserRole + 1;
constexpr int SecondsRole = FileRole + 1;

const QString onServer =
    "The database is on a database server. Its owner makes the backups there, with the tools of "
    "the server, while the stations are running. The guide to the set-up describes how.";

const QString notChecked = "not checked yet";

std::string Described(const Backup& backup) {
    std::string text = "The backup is complete and has been checked:\n" + backup.file;
    for (const std::string& file : backup.removed)
        text += "\nRemoved: " + file;
    for (const std::string& note : backup.notes)
        text += "\n" + note;
    return text;
}

/// 0 if the name contains no time.
qint64 SecondsOf(const std::string& file) {
    const auto time = TimeOfName(file);
    return time ? Clock::to_time_t(*time) : 0;
}

QString ShownTime(const std::string& file) {
    const qint64 seconds = SecondsOf(file);
    return seconds == 0 ? QString("-")
                        : QDateTime::fromSecsSinceEpoch(seconds).toString("dd/MM/yyyy HH:mm:ss");
}

QString ChosenFile(QWidget* over, const QString& folder) {
    return QFileDialog::getOpenFileName(over, "Choose a copy of the database", folder,
                                        "Databases (*.db);;All files (*)");
}

} // namespace

BackupPage::BackupPage(OfficeSession& session)
    : AskFile(ChosenFile), session_(session), database_(session.connection.DatabaseFile()) {
    LayOut();
}

void BackupPage::LayOut() {
    QVBoxLayout* column = PageColumn(*this, "Backup",
                                     "Copies of the database. A copy is made while the stations "
                                     "are running; it is restored while all of them are closed.");
    if (database_.empty()) {
        place_->setText(onServer);
        place_->setWordWrap(true);
        column->addWidget(place_);
        column->addStretch();
        return;
    }
    LookLikeTable(*copies_);
    copies_->setModel(&model_);
    copies_->setAccessibleName("Copies of the database");
    remark_->setWordWrap(true);
    remark_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    remark_->setMinimumHeight(remark_->fontMetrics().height() * 2);
    column->addWidget(place_);
    column->addWidget(copies_, 1);
    column->addWidget(remark_);
    auto* buttons = new QHBoxLayout;
    AddAction(*buttons, *this, "&Back up now", Qt::CTRL | Qt::Key_B, [this] { BackUpNow(); });
    AddAction(*buttons, *this, "Chec&k all", Qt::CTRL | Qt::Key_K, [this] { CheckAll(); });
    AddAction(*buttons, *this, "&Restore...", Qt::CTRL | Qt::Key_R, [this] { Restore(Chosen()); });
    AddAction(*buttons, *this, "Restore another &file...", Qt::CTRL | Qt::Key_O,
              [this] { RestoreOther(); });
    buttons->addStretch();
    AddAction(*buttons, *this, "Read again", Qt::Key_F5, [this] { Reload(); });
    column->addLayout(buttons);
    connect(copies_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { ShowRemark(); });
    setFocusProxy(copies_);
}

std::string BackupPage::Folder() const {
    return BackupFolderOf(session_.folder, StationFile::Read(session_.folder + "/Station.ini"));
}

std::string BackupPage::Chosen() const {
    const QStandardItem* item = model_.item(copies_->currentIndex().row());
    return item ? FromQt(item->data(FileRole).toString()) : std::string();
}

void BackupPage::Reload() {
    if (database_.empty())
        return;
    place_->setText("Folder: " + ToQt(Folder()));
    ShowCopies();
}

// The newest first.
void BackupPage::ShowCopies() {
    const std::string chosen = Chosen();
    model_.clear();
    model_.setHorizontalHeaderLabels({"Time", "Made by", "File", "Size", "Check"});
    const QString name = QFileInfo(ToQt(database_)).completeBaseName();
    for (const std::string& file : BackupsIn(Folder(), FromQt(name)))
        AddRow(file, "a backup");
    for (const std::string& file : KeptByRestores(database_))
        AddRow(file, "a restore");
    model_.setSortRole(SecondsRole);
    model_.sort(TimeColumn, Qt::DescendingOrder);
    int row = 0;
    for (int place = 0; place < model_.rowCount(); ++place)
        if (FromQt(model_.item(place)->data(FileRole).toString()) == chosen)
            row = place;
    copies_->selectRow(row);
    constexpr std::array widths{160, 90, 330, 90};
    for (std::size_t place = 0; place < widths.size(); ++place)
        copies_->setColumnWidth(static_cast<int>(place), widths[place]);
    copies_->horizontalHeader()->setStretchLastSection(true);
    ShowRemark();
}

void BackupPage::AddRow(const std::string& file, const QString& kind) {
    const QFileInfo info(ToQt(file));
    auto* time = new QStandardItem(ShownTime(file));
    time->setData(ToQt(file), FileRole);
    time->setData(SecondsOf(file), SecondsRole);
    const auto found = findings_.find(file);
    model_.appendRow({time, new QStandardItem(kind), new QStandardItem(info.fileName()),
                      new QStandardItem(QLocale::c().formattedDataSize(info.size())),
                      new QStandardItem(found == findings_.end() ? notChecked : found->second)});
}

void BackupPage::ShowRemark() {
    const std::string file = Chosen();
    const auto found = findings_.find(file);
    remark_->setText(file.empty() ? "There is no copy in this folder yet."
                     : found == findings_.end()
                         ? "A backup was checked when it was made. A restore checks it again first."
                         : found->second);
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
        Inform(window(), Described(*backup));
}

std::string BackupPage::Check(const std::string& file, LongWork& work) {
    try {
        const Contents contents = CheckCopy(database_, file, work);
        findings_[file] = ToQt("complete: " + DescribeContents(contents));
        return {};
    } catch (const Failure& failure) {
        findings_[file] = ToQt(failure.Description());
        return failure.Description();
    }
}

// A copy that has not been reached when the user cancels stays unchecked.
void BackupPage::CheckAll() {
    std::vector<std::string> files;
    for (int row = 0; row < model_.rowCount(); ++row)
        files.push_back(FromQt(model_.item(row)->data(FileRole).toString()));
    for (const std::string& file : files)
        findings_.erase(file);
    RunLongWork("Check", [&](LongWork& work) {
        try {
            for (const std::string& file : files)
                Check(file, work);
        } catch (const Cancelled&) {
        }
    });
    ShowCopies();
}

void BackupPage::RestoreOther() {
    const QString file = AskFile(window(), ToQt(Folder()));
    if (!file.isEmpty())
        Restore(FromQt(file));
}

// `RunOffice` replaces the database after this window has been closed, when no page uses it.
void BackupPage::Restore(const std::string& file) {
    if (file.empty() || !IsConfirmed(file))
        return;
    session_.copyToRestore = file;
    if (!window()->close())
        session_.copyToRestore.clear();
}

bool BackupPage::IsConfirmed(const std::string& file) {
    std::string why;
    bool isChecked = false;
    RunLongWork("Check", [&](LongWork& work) {
        try {
            why = Check(file, work);
            isChecked = true;
        } catch (const Cancelled&) {
        }
    });
    ShowCopies();
    if (!why.empty())
        Warn(window(), why);
    if (!isChecked || !why.empty())
        return false;
    const Recordset present =
        session_.connection.Execute("Select Count(*) As Arrivals From Arrivals");
    return Ask(window(),
               "Replace the database of the station by this copy?\n\n" + file + "\n" +
                   FromQt(findings_[file]) + "\n\nThe present database, with " +
                   present.Fields("Arrivals").TextOrEmpty() +
                   " arrivals, is kept in the folder of the station, so that you can undo the "
                   "restore. Close every station and every other office first. This window closes, "
                   "and you sign in again.",
               "&Restore");
}

} // namespace Quillane::Office
