#include "office/window/ListsPage.h"

#include "office/records/ImportPlan.h"
#include "office/records/References.h"
#include "office/records/RowWrites.h"
#include "office/records/Texts.h"
#include "office/window/ImportDialog.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/RowDialog.h"
#include "platform/forms/core/Text.h"
#include "platform/host/WholeFile.h"

#include <QBoxLayout>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>

#include <array>

namespace Quillane::Office {

namespace {

constexpr const char* purpose =
    "A station shows a change when its weighment screen is next opened. Ctrl+PgUp and "
    "Ctrl+PgDown change the list.";

QString ChosenToRead(QWidget* over) {
    return QFileDialog::getOpenFileName(over, "Import a CSV file", {},
                                        "CSV files (*.csv *.txt);;All files (*)");
}

QString ChosenToWrite(QWidget* over, const QString& proposed) {
    return QFileDialog::getSaveFileName(over, "Export as a CSV file", proposed,
                                        "CSV files (*.csv);;All files (*)");
}

std::vector<std::string_view> TablesOf(const Table& list) {
    std::vector<std::string_view> names;
    for (const Part& part : list.parts)
        names.push_back(part.table);
    return names;
}

} // namespace

ListsPage::ListsPage(OfficeSession& session)
    : AskFileToRead(ChosenToRead), AskFileToWrite(ChosenToWrite), session_(session) {
    LayOut();
    for (const Table* table : AllTables())
        lists_->addTab(ToQt(table->title));
    ChangeList();
    connect(lists_, &QTabBar::currentChanged, this,
            [this] { Guarded(window(), [this] { ChangeList(); }); });
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& words) {
        filter_.Search(words);
        if (!view_->currentIndex().isValid())
            view_->selectRow(0);
        ShowState();
    });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this] { ShowState(); });
    connect(view_, &QTableView::doubleClicked, this, [this] { edit_->click(); });
}

void ListsPage::LayOut() {
    QVBoxLayout* column = PageColumn(*this, "Lists", purpose);
    lists_->setDrawBase(true);
    lists_->setExpanding(false);
    lists_->setAccessibleName("List");
    column->addWidget(lists_);
    AddTopRow(*column);
    column->addWidget(readOnly_);
    LookLikeTable(*view_);
    view_->setModel(&filter_);
    view_->setSortingEnabled(true);
    view_->horizontalHeader()->setSortIndicator(static_cast<int>(NameCell), Qt::AscendingOrder);
    view_->setAccessibleName("Rows of the list");
    for (QWidget* watched : {static_cast<QWidget*>(view_), static_cast<QWidget*>(search_)})
        watched->installEventFilter(this);
    column->addWidget(view_, 1);
    AddBottomRow(*column);
    setFocusProxy(search_);
    for (const int step : {1, -1}) {
        auto* next = new QShortcut(Qt::CTRL | (step > 0 ? Qt::Key_PageDown : Qt::Key_PageUp), this);
        next->setContext(Qt::WidgetWithChildrenShortcut);
        connect(next, &QShortcut::activated, this, [this, step] {
            lists_->setCurrentIndex((lists_->currentIndex() + step + lists_->count()) %
                                    lists_->count());
        });
    }
}

void ListsPage::AddTopRow(QBoxLayout& column) {
    auto* row = new QHBoxLayout;
    search_->setPlaceholderText("Search (Ctrl+F)");
    search_->setAccessibleName("Search");
    search_->setClearButtonEnabled(true);
    search_->setMinimumHeight(32);
    search_->setTextMargins(4, 0, 4, 0);
    row->addWidget(search_, 1);
    count_->setMinimumWidth(110);
    row->addWidget(count_);
    auto* find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, search_, [this] {
        search_->setFocus();
        search_->selectAll();
    });
    import_ = AddAction(*row, *this, "&Import...", Qt::CTRL | Qt::Key_I, [this] { Import(); });
    AddAction(*row, *this, "E&xport...", Qt::CTRL | Qt::Key_E, [this] { Export(); });
    AddAction(*row, *this, "Read again", Qt::Key_F5, [this] { Reload(); });
    column.addLayout(row);
}

void ListsPage::AddBottomRow(QBoxLayout& column) {
    auto* row = new QHBoxLayout;
    add_ = AddAction(*row, *this, "&Add...", Qt::CTRL | Qt::Key_N, [this] { Add(); });
    edit_ = AddAction(*row, *this, "&Change...", Qt::Key_F2, [this] { Edit(); });
    retire_ = AddAction(*row, *this, "&Retire", Qt::CTRL | Qt::Key_R, [this] { Retire(); });
    delete_ = AddAction(*row, *this, "&Delete...", Qt::Key_Delete, [this] { Delete(); });
    row->addStretch();
    column.addLayout(row);
}

const Table& ListsPage::CurrentTable() const {
    return *AllTables()[static_cast<std::size_t>(lists_->currentIndex())];
}

void ListsPage::ChangeList() {
    search_->clear();
    mayWrite_ = true;
    const std::string why = session_.whyReadOnly(session_.connection, TablesOf(CurrentTable()));
    mayWrite_ = why.empty();
    readOnly_->Say(ToQt(why));
    model_.Show(ReadSnapshot(session_.connection, CurrentTable()));
    view_->sortByColumn(static_cast<int>(NameCell), Qt::AscendingOrder);
    view_->selectRow(0);
    SizeColumns();
    ShowState();
}

void ListsPage::Reload() {
    const std::string key = Chosen() ? (*Chosen())[KeyCell] : std::string();
    model_.Show(ReadSnapshot(session_.connection, CurrentTable()));
    Choose(key);
    ShowState();
}

void ListsPage::SizeColumns() {
    constexpr int flagWidth = 76;
    constexpr int keyWidth = 100;
    constexpr int referenceWidth = 150;
    QHeaderView& header = *view_->horizontalHeader();
    const Table& table = CurrentTable();
    for (int column = 0; column < model_.columnCount(); ++column) {
        const CellKind kind = table.columns[static_cast<std::size_t>(column)].kind;
        const bool isKey = column == static_cast<int>(KeyCell);
        const bool isWide = !isKey && kind == CellKind::Text;
        header.setSectionResizeMode(column,
                                    isWide ? QHeaderView::Stretch : QHeaderView::Interactive);
        if (!isWide)
            header.resizeSection(column, isKey                    ? keyWidth
                                         : kind == CellKind::Flag ? flagWidth
                                                                  : referenceWidth);
    }
}

void ListsPage::ShowState() {
    const Row* row = Chosen();
    const int inUse = CurrentTable().inUse;
    const bool isRetired = row && inUse >= 0 && (*row)[static_cast<std::size_t>(inUse)] == "0";
    count_->setText(QString("%L1 of %L2").arg(filter_.rowCount()).arg(model_.rowCount()));
    add_->setEnabled(mayWrite_);
    import_->setEnabled(mayWrite_);
    for (QPushButton* button : {edit_, retire_, delete_})
        button->setEnabled(mayWrite_ && row);
    retire_->setVisible(inUse >= 0);
    retire_->setText(isRetired ? "Put &back in use  (Ctrl+R)" : "&Retire  (Ctrl+R)");
    FitToText(*retire_);
}

const Row* ListsPage::Chosen() const {
    const QModelIndex shown = view_->currentIndex();
    const QModelIndex source = filter_.mapToSource(shown);
    return source.isValid() ? &model_.RowAt(source.row()) : nullptr;
}

// If the search hides the row, the first one is selected.
void ListsPage::Choose(const std::string& key) {
    const int place = key.empty() ? -1 : model_.PlaceOfKey(key);
    const QModelIndex shown =
        place < 0 ? QModelIndex() : filter_.mapFromSource(model_.index(place, 0));
    view_->selectRow(shown.isValid() ? shown.row() : 0);
    view_->scrollTo(view_->currentIndex());
}

void ListsPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Guarded(window(), [this] { Reload(); });
}

bool ListsPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == search_ && (isEnter || key == Qt::Key_Down)) {
        view_->setFocus();
        return true;
    }
    if (watched == view_ && isEnter) {
        edit_->click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void ListsPage::Add() {
    RowDialog dialog(session_.connection, CurrentTable(), std::nullopt, window());
    if (dialog.exec() != QDialog::Accepted)
        return;
    search_->clear();
    Reload();
    Choose(dialog.SavedKey());
}

void ListsPage::Edit() {
    if (!Chosen())
        return;
    RowDialog dialog(session_.connection, CurrentTable(), *Chosen(), window());
    dialog.exec();
    Reload();
}

void ListsPage::Retire() {
    if (!Chosen() || CurrentTable().inUse < 0)
        return;
    RowChange change{*Chosen(), *Chosen()};
    std::string& inUse = change.after[static_cast<std::size_t>(CurrentTable().inUse)];
    inUse = inUse == "0" ? "1" : "0";
    const WriteResult result = WriteRows(session_.connection, CurrentTable(), std::array{change});
    const Snapshot& known = model_.Known();
    if (result.end == WriteResult::End::Conflicts)
        Warn(window(), DescribeConflict(CurrentTable(), change, result.conflict,
                                        [&](std::size_t column, const Row& row) {
                                            return known.ShownCell(column, row);
                                        }) +
                           "\nNothing has been written. The list is read again.");
    Reload();
}

void ListsPage::Delete() {
    if (!Chosen())
        return;
    const Row row = *Chosen();
    const Table& table = CurrentTable();
    if (!Ask(window(), "Delete the " + Called(table, row) + "?", "&Delete"))
        return;
    const DeleteResult result = DeleteRow(session_.connection, table, row);
    if (result.end == DeleteResult::End::IsReferredTo)
        Warn(window(), DescribeReferences(table, row, result.references));
    else if (result.end == DeleteResult::End::Conflicts)
        Warn(window(), "Another user has " + std::string(result.stored ? "changed" : "deleted") +
                           " the " + Called(table, row) +
                           ". Nothing has been deleted; the list is read again.");
    Reload();
}

void ListsPage::Import() {
    const QString file = AskFileToRead(window());
    if (file.isEmpty())
        return;
    const Snapshot known = ReadSnapshot(session_.connection, CurrentTable());
    ImportPlan plan = PlanWithProgress(known, ReadWholeFile(FromQt(file)), window());
    if (!plan.fault.empty()) {
        Warn(window(), plan.fault);
        return;
    }
    ImportDialog dialog(session_.connection, std::move(plan), known, window());
    dialog.exec();
    Reload();
    if (dialog.Written() > 0)
        Inform(window(), Counted(dialog.Written(), "row", "rows") + " written.");
}

void ListsPage::Export() {
    const QString file = AskFileToWrite(window(), ToQt(std::string(CurrentTable().name) + ".csv"));
    if (file.isEmpty())
        return;
    const Snapshot known = ReadSnapshot(session_.connection, CurrentTable());
    WriteWholeFile(FromQt(file), ExportText(known));
    Inform(window(), Counted(static_cast<long>(known.rows.Rows().size()), "row", "rows") +
                         " written to " + FromQt(file) + ".");
}

} // namespace Quillane::Office
