#pragma once

#include "office/records/ImportPlan.h"
#include "office/window/PageLook.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QSortFilterProxyModel>
#include <QTableView>

#include <vector>

namespace Quillane::Office {

/// The effect of an import, one row for each line of the file.
class PlanModel : public QAbstractTableModel {
public:
    explicit PlanModel(const ImportPlan& plan, const Snapshot& known)
        : plan_(plan), known_(known) {}

    static constexpr int KindRole = Qt::UserRole;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString Remark(const ImportLine& line) const;

    const ImportPlan& plan_;
    const Snapshot& known_;
};

/// Shows the effect of an import before anything is written. Writes it when the user confirms.
class ImportDialog : public QDialog {
public:
    /// Requires: the plan has no fault. `known` is the list that it was compared with.
    ImportDialog(Connection& connection, ImportPlan plan, Snapshot known, QWidget* parent);

    /// The number of rows written; 0 if the user has cancelled.
    long Written() const { return written_; }

private:
    void LayOut();
    void FillKinds();
    void ShowKind();
    void ShowState();
    long Changes() const;
    void Write();

    Connection& connection_;
    ImportPlan plan_;
    Snapshot known_;
    PlanModel model_{plan_, known_};
    QSortFilterProxyModel filter_;
    long written_ = 0;

    QComboBox* kinds_ = new QComboBox;
    QTableView* view_ = new QTableView;
    QLabel* remark_ = Note({}); ///< the complete finding of the selected line
    QCheckBox* skips_ = new QCheckBox("&Leave the faulty lines out");
    QPushButton* write_ = nullptr;
};

/// Reads a CSV file and compares it with a list; shows the progress, with Cancel. A plan that was
/// cancelled or cannot be made has a fault.
ImportPlan PlanWithProgress(const Snapshot& known, const std::string& csvText, QWidget* over);

} // namespace Quillane::Office
