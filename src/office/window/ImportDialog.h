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

/// What an import would do, a row for each line of the file.
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

/// Shows what an import would do before anything is written, and writes it once the user says so.
class ImportDialog : public QDialog {
public:
    /// The plan has no fault. `known` is the list that it was compared with.
    ImportDialog(Connection& connection, ImportPlan plan, Snapshot known, QWidget* parent);

    /// How many rows have been written; 0 where the user gave up.
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
    QLabel* remark_ = Note({}); ///< of the chosen line, whole
    QCheckBox* skips_ = new QCheckBox("&Leave the faulty lines out");
    QPushButton* write_ = nullptr;
};

/// Reads a CSV file and compares it with a list, with its progress shown; Cancel breaks it off. A
/// plan that was broken off, or cannot be made, has a fault.
ImportPlan PlanWithProgress(const Snapshot& known, const std::string& csvText, QWidget* over);

} // namespace Quillane::Office
