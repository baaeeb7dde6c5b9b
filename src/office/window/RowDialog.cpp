#include "office/window/RowDialog.h"

#include "office/records/Texts.h"
#include "office/window/OfficeBoxes.h"
#include "platform/forms/core/Text.h"

#include <QBoxLayout>
#include <QCompleter>
#include <QPushButton>
#include <QSignalBlocker>

#include <array>

namespace Quillane::Office {

QWidget* RowDialog::Entry::Widget() const {
    if (line)
        return line;
    return list ? static_cast<QWidget*>(list) : check;
}

RowDialog::RowDialog(Connection& connection, const Table& table, std::optional<Row> before,
                     QWidget* parent)
    : FormDialog(ToQt((before ? "Change a " : "Add a ") + std::string(table.one)), parent),
      connection_(connection), table_(table), before_(std::move(before)),
      known_(ReadSnapshot(connection, table)), entries_(table.columns.size()) {
    LayOut();
    ShowRow(before_ ? *before_ : InitialRow(table_));
    ProposeKey();
    ShowWarnings();
}

void RowDialog::LayOut() {
    constexpr int width = 560;
    for (std::size_t place = 0; place < table_.columns.size(); ++place)
        AddEntry(place);
    Finish(width, warning_);
}

void RowDialog::AddEntry(std::size_t place) {
    const Column& column = table_.columns[place];
    Entry& entry = entries_[place];
    const QString caption = WithLetter(ToQt(column.caption), letters_);
    if (column.kind == CellKind::Flag) {
        entry.check = new QCheckBox(caption);
        ActAtOnce(*entry.check);
        entry.check->setAccessibleName(ToQt(column.caption));
        connect(entry.check, &QCheckBox::toggled, this, [this] { ProposeKey(); });
        connect(entry.check, &QCheckBox::toggled, this, [this] { ShowWarnings(); });
        Form().addRow({}, entry.check);
    } else if (column.target) {
        QWidget* both = ListWithNew(entry, place);
        AddCaptioned(Form(), caption, entry.list, both);
    } else {
        entry.line = new QLineEdit;
        entry.line->setReadOnly(place == KeyCell && before_);
        if (entry.line->isReadOnly())
            entry.line->setFocusPolicy(Qt::ClickFocus);
        connect(entry.line, &QLineEdit::textEdited, this, [this] { ShowWarnings(); });
        AddCaptioned(Form(), caption, entry.line);
    }
}

QWidget* RowDialog::ListWithNew(Entry& entry, std::size_t place) {
    entry.list = new QComboBox;
    entry.list->setEditable(true);
    entry.list->setInsertPolicy(QComboBox::NoInsert);
    entry.list->completer()->setFilterMode(Qt::MatchContains);
    entry.list->completer()->setCompletionMode(QCompleter::PopupCompletion);
    FillList(place);
    connect(entry.list, &QComboBox::editTextChanged, this, [this] { ShowWarnings(); });
    auto* both = new QWidget;
    auto* row = new QHBoxLayout(both);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(entry.list, 1);
    AddAction(*row, *this, "New " + ToQt(table_.columns[place].target->one) + "...",
              Qt::CTRL | Qt::Key_N, [this, place] { AddTarget(place); });
    return both;
}

void RowDialog::FillList(std::size_t place) {
    QComboBox& list = *entries_[place].list;
    const QSignalBlocker quiet(list);
    list.clear();
    for (const Row& row : known_.targets.at(table_.columns[place].target->name).Rows())
        list.addItem(ToQt(row[NameCell]), ToQt(row[KeyCell]));
    list.setCurrentIndex(-1);
    list.clearEditText();
}

void RowDialog::ShowRow(const Row& row) {
    for (std::size_t place = 0; place < row.size(); ++place) {
        const Entry& entry = entries_[place];
        const QSignalBlocker quiet(entry.Widget());
        if (entry.line)
            entry.line->setText(ToQt(row[place]));
        else if (entry.check)
            entry.check->setChecked(row[place] == "1");
        else
            entry.list->setCurrentIndex(entry.list->findData(ToQt(row[place])));
    }
}

Row RowDialog::Entered() const {
    Row row;
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        const Entry& entry = entries_[place];
        if (entry.check)
            row.emplace_back(entry.check->isChecked() ? "1" : "0");
        else if (entry.list)
            row.push_back(EnteredReference(place));
        else if (before_ && FromQt(entry.line->text()) == (*before_)[place])
            row.push_back((*before_)[place]);
        else
            row.push_back(Trimmed(FromQt(entry.line->text())));
    }
    return row;
}

// Several rows may have the same name: the selected one is used.
std::string RowDialog::EnteredReference(std::size_t place) const {
    const QComboBox& list = *entries_[place].list;
    const std::string name = Trimmed(FromQt(list.currentText()));
    if (list.currentIndex() >= 0 &&
        Folded(FromQt(list.itemText(list.currentIndex()))) == Folded(name))
        return FromQt(list.currentData().toString());
    const auto found = known_.targets.at(table_.columns[place].target->name).WithName(name);
    return found.empty() ? std::string() : (*found.front())[KeyCell];
}

// Only until the user has typed another text.
void RowDialog::ProposeKey() {
    QLineEdit& key = *entries_[KeyCell].line;
    if (before_ || FromQt(key.text()) != proposedKey_)
        return;
    proposedKey_ = KeyProposals(known_).For(Entered());
    key.setText(ToQt(proposedKey_));
}

void RowDialog::ShowWarnings() {
    Refuse({});
    const auto findings = Check(known_, before_, Entered());
    const bool isStarted = before_ || !entries_[NameCell].line->text().isEmpty();
    warning_->Say(isStarted ? ToQt(TextOf(findings, Finding::Weight::Warns)) : QString());
    GrowToFit(*this);
}

void RowDialog::AddTarget(std::size_t place) {
    const Table& target = *table_.columns[place].target;
    RowDialog dialog(connection_, target, std::nullopt, this);
    const QString typed = entries_[place].list->currentText();
    if (EnteredReference(place).empty())
        static_cast<QLineEdit*>(dialog.Field(target.Name().name))->setText(typed);
    if (dialog.exec() != QDialog::Accepted)
        return;
    known_ = ReadSnapshot(connection_, table_);
    FillList(place);
    QComboBox& list = *entries_[place].list;
    list.setCurrentIndex(list.findData(ToQt(dialog.SavedKey())));
    list.setFocus();
}

void RowDialog::Save() {
    known_ = ReadSnapshot(connection_, table_);
    const Row after = Entered();
    if (IsRefused(after))
        return;
    const RowChange change{before_, after};
    const WriteResult result =
        before_ == after ? WriteResult{} : WriteRows(connection_, table_, std::array{change});
    if (result.end == WriteResult::End::Conflicts) {
        TakeConflict(change, result.conflict);
        return;
    }
    savedKey_ = after[KeyCell];
    accept();
}

bool RowDialog::IsRefused(const Row& after) {
    for (std::size_t place = 0; place < entries_.size(); ++place) {
        const QComboBox* list = entries_[place].list;
        if (!list || !after[place].empty() || list->currentText().trimmed().isEmpty())
            continue;
        const std::string one(table_.columns[place].target->one);
        Refuse("There is no " + one + " \"" + FromQt(list->currentText()) +
               "\". Choose one from the list, or add it with \"New " + one + "\".");
        entries_[place].list->setFocus();
        return true;
    }
    const auto findings = Check(known_, before_, after);
    if (!Refuses(findings))
        return false;
    Refuse(TextOf(findings, Finding::Weight::Refuses));
    const auto first = std::ranges::find(findings, Finding::Weight::Refuses, &Finding::weight);
    entries_[first->column].Widget()->setFocus();
    return true;
}

// Cells that have not been edited here get the stored values.
void RowDialog::TakeConflict(const RowChange& change, const Conflict& conflict) {
    known_ = ReadSnapshot(connection_, table_);
    const std::string text =
        DescribeConflict(table_, change, conflict, [this](std::size_t column, const Row& row) {
            return known_.ShownCell(column, row);
        });
    if (!change.before || !conflict.stored) {
        Warn(this, text + "\nYour entries are still here.");
        before_.reset();
        entries_[KeyCell].line->setReadOnly(false);
        proposedKey_ = FromQt(entries_[KeyCell].line->text());
        ProposeKey();
        return;
    }
    Row merged = *conflict.stored;
    for (std::size_t column = 0; column < merged.size(); ++column)
        if ((*change.before)[column] != change.after[column])
            merged[column] = change.after[column];
    before_ = conflict.stored;
    ShowRow(merged);
    Warn(this, text + "\n\nNothing has been written. Your entries are still here: save again to "
                      "replace the stored values by them, or cancel.");
}

void RowDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    entries_[NameCell].line->setFocus();
}

QWidget* RowDialog::Field(std::string_view column) const {
    return entries_[PlaceOf(table_, column)].Widget();
}

} // namespace Quillane::Office
