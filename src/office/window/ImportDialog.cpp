#include "office/window/ImportDialog.h"

#include "office/records/RowWrites.h"
#include "office/records/Texts.h"
#include "office/window/OfficeBoxes.h"
#include "office/window/WorkProgress.h"
#include "platform/forms/core/Text.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QPushButton>

#include <array>

namespace Quillane::Office {

namespace {

using Kind = ImportLine::Kind;

enum PlanColumn { LineColumn, KindColumn, NameColumn, RemarkColumn, ColumnCount };

constexpr std::array kinds{Kind::New, Kind::Changed, Kind::Unchanged, Kind::Faulty};

QString NameOf(Kind kind) {
    constexpr std::array names{"New", "Changed", "Unchanged", "Faulty"};
    return names[static_cast<std::size_t>(kind)];
}

QVariant ColourOf(Kind kind) {
    switch (kind) {
    case Kind::Faulty:
        return QColor(0x8A, 0x16, 0x16);
    case Kind::Unchanged:
        return QColor(0x8A, 0x8F, 0x91);
    default:
        return {};
    }
}

} // namespace

int PlanModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(plan_.lines.size());
}

int PlanModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant PlanModel::data(const QModelIndex& index, int role) const {
    const ImportLine& line = plan_.lines[static_cast<std::size_t>(index.row())];
    if (role == KindRole)
        return NameOf(line.kind);
    if (role == Qt::ForegroundRole)
        return ColourOf(line.kind);
    if (role == Qt::ToolTipRole && index.column() == RemarkColumn)
        return Remark(line);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case LineColumn:
        return line.line;
    case KindColumn:
        return NameOf(line.kind);
    case NameColumn:
        return ToQt(line.shown);
    default:
        return Remark(line);
    }
}

/// The differences in a changed row, and the findings of the checks.
QString PlanModel::Remark(const ImportLine& line) const {
    QString remark;
    if (line.kind == Kind::Changed)
        for (std::size_t column = 0; column < line.change.after.size(); ++column)
            if ((*line.change.before)[column] != line.change.after[column])
                remark += QString("%1: \"%2\" becomes \"%3\". ")
                              .arg(ToQt(plan_.table->columns[column].caption),
                                   ToQt(Shortened(known_.ShownCell(column, *line.change.before))),
                                   ToQt(Shortened(known_.ShownCell(column, line.change.after))));
    return remark + ToQt(line.text);
}

QVariant PlanModel::headerData(int section, Qt::Orientation orientation, int role) const {
    constexpr std::array captions{"Line", "Effect", "Name", "Remark"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return captions[static_cast<std::size_t>(section)];
}

ImportDialog::ImportDialog(Connection& connection, ImportPlan plan, Snapshot known, QWidget* parent)
    : QDialog(parent), connection_(connection), plan_(std::move(plan)), known_(std::move(known)) {
    setWindowTitle("Import " + ToQt(plan_.table->title));
    filter_.setSourceModel(&model_);
    filter_.setFilterRole(PlanModel::KindRole);
    filter_.setFilterKeyColumn(0);
    LayOut();
    FillKinds();
    ShowKind();
    ShowState();
}

void ImportDialog::LayOut() {
    constexpr QSize size(900, 520);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(10);
    column->addWidget(Heading(ToQt(plan_.table->title) + ": " + ToQt(plan_.Summary())));
    column->addWidget(Note("Nothing has been written yet."));
    auto* unread = new Notice(Notice::Kind::Information);
    if (!plan_.unreadColumns.empty()) {
        QStringList names;
        for (const std::string& name : plan_.unreadColumns)
            names.append("\"" + ToQt(Shortened(name)) + "\"");
        unread->Say("The list does not have these columns; they are ignored: " + names.join(", "));
    }
    column->addWidget(unread);
    ActAtOnce(*skips_);
    auto* top = new QHBoxLayout;
    auto* caption = new QLabel("S&how");
    caption->setBuddy(kinds_);
    top->addWidget(caption);
    top->addWidget(kinds_);
    top->addStretch();
    top->addWidget(skips_);
    column->addLayout(top);
    LookLikeTable(*view_);
    view_->setModel(&filter_);
    view_->setAccessibleName("Lines of the file");
    view_->setColumnWidth(LineColumn, 70);
    view_->setColumnWidth(KindColumn, 100);
    view_->setColumnWidth(NameColumn, 240);
    view_->horizontalHeader()->setStretchLastSection(true);
    column->addWidget(view_, 1);
    remark_->setWordWrap(true);
    remark_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    remark_->setMinimumHeight(remark_->fontMetrics().height() * 2);
    column->addWidget(remark_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    write_ = AddAction(*buttons, *this, {}, Qt::CTRL | Qt::Key_S, [this] { Write(); });
    AddAction(*buttons, *this, "Cancel  (Esc)", {}, [this] { reject(); });
    column->addLayout(buttons);
    connect(kinds_, &QComboBox::currentIndexChanged, this, [this] { ShowKind(); });
    connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& row) {
                remark_->setText(row.siblingAtColumn(RemarkColumn).data().toString());
            });
    connect(skips_, &QCheckBox::toggled, this, [this] { ShowState(); });
    resize(size);
}

// If there are faulty lines, they are shown first.
void ImportDialog::FillKinds() {
    kinds_->addItem(QString("All lines (%L1)").arg(plan_.lines.size()), QString());
    for (const Kind kind : kinds) {
        const long count = plan_.Count(kind);
        if (count == 0)
            continue;
        kinds_->addItem(QString("%1 (%L2)").arg(NameOf(kind)).arg(count), NameOf(kind));
        if (kind == Kind::Faulty)
            kinds_->setCurrentIndex(kinds_->count() - 1);
    }
    skips_->setVisible(plan_.Count(Kind::Faulty) > 0);
}

void ImportDialog::ShowKind() {
    filter_.setFilterFixedString({});
    const QString kind = kinds_->currentData().toString();
    if (!kind.isEmpty())
        filter_.setFilterRegularExpression("^" + kind + "$");
    view_->selectRow(0);
}

long ImportDialog::Changes() const {
    return plan_.Count(Kind::New) + plan_.Count(Kind::Changed);
}

void ImportDialog::ShowState() {
    const bool isHeldUp = plan_.Count(Kind::Faulty) > 0 && !skips_->isChecked();
    write_->setText(ToQt("&Write " + Counted(Changes(), "row", "rows") + "  (Ctrl+S)"));
    FitToText(*write_);
    write_->setEnabled(Changes() > 0 && !isHeldUp);
    write_->setToolTip(isHeldUp ? "Correct the faulty lines in the file, or leave them out." : "");
}

void ImportDialog::Write() {
    const std::vector<RowChange> changes = plan_.Changes();
    WorkProgress progress("Writing the rows...", static_cast<int>(changes.size()), this);
    const WriteResult result =
        WriteRows(connection_, *plan_.table, changes, [&](int done) { return progress(done); });
    switch (result.end) {
    case WriteResult::End::Written:
        written_ = static_cast<long>(changes.size());
        accept();
        break;
    case WriteResult::End::Cancelled:
        Warn(this, "The import was cancelled. Nothing has been written.");
        break;
    case WriteResult::End::Conflicts:
        Warn(this, DescribeConflict(*plan_.table, changes[result.conflict.change], result.conflict,
                                    [this](std::size_t column, const Row& row) {
                                        return known_.ShownCell(column, row);
                                    }) +
                       "\n\nNothing has been written. Import the file again to compare it with the "
                       "present list.");
        reject();
        break;
    }
}

ImportPlan PlanWithProgress(const Snapshot& known, const std::string& csvText, QWidget* over) {
    const auto lines = static_cast<int>(std::ranges::count(csvText, '\n'));
    WorkProgress progress("Comparing the file with the list...", lines, over);
    return PlanImport(known, csvText, [&](int done) { return progress(done); });
}

} // namespace Quillane::Office
