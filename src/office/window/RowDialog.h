#pragma once

#include "office/records/Checks.h"
#include "office/records/RowWrites.h"
#include "office/window/FormDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include <optional>
#include <vector>

namespace Quillane::Office {

/// A form for one row of a list, new or changed. A row that violates a rule keeps the form open; a
/// warning is shown while the user types. If another session has changed the row, both values are
/// shown and the entries stay.
class RowDialog : public FormDialog {
public:
    RowDialog(Connection& connection, const Table& table, std::optional<Row> before,
              QWidget* parent);

    /// The key of the row that was saved.
    const std::string& SavedKey() const { return savedKey_; }
    /// The field of a column: a line, a box with a list or a check box.
    QWidget* Field(std::string_view column) const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    struct Entry {
        QLineEdit* line = nullptr;
        QComboBox* list = nullptr;
        QCheckBox* check = nullptr;
        QWidget* Widget() const;
    };

    void LayOut();
    void AddEntry(std::size_t column);
    QWidget* ListWithNew(Entry& entry, std::size_t column);
    void FillList(std::size_t column);
    void ShowRow(const Row& row);
    Row Entered() const;
    std::string EnteredReference(std::size_t column) const;

    void ProposeKey();
    void ShowWarnings();
    void AddTarget(std::size_t column);
    void Save() override;
    bool IsRefused(const Row& after);
    void TakeConflict(const RowChange& change, const Conflict& conflict);

    Connection& connection_;
    const Table& table_;
    std::optional<Row> before_;
    Snapshot known_;
    std::vector<Entry> entries_;
    QString letters_{"s"}; ///< taken by captions; s saves
    std::string proposedKey_;
    std::string savedKey_;
    Notice* warning_ = new Notice(Notice::Kind::Information);
};

} // namespace Quillane::Office
