#pragma once

#include "platform/ado/Value.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;

inline constexpr int adOpenDynamic = 2;
inline constexpr int adOpenStatic = 3;
inline constexpr int adLockReadOnly = 1;
inline constexpr int adLockOptimistic = 3;
inline constexpr int adCmdUnspecified = -1;
inline constexpr int adStateClosed = 0;
inline constexpr int adStateOpen = 1;
inline constexpr int adUseClient = 3;

/// A client-side static copy of a query's rows. All rows are read at `Open` into one arena of cells
/// and the engine's result is closed; `Filter`, `Find`, `Clone`, walking and `RecordCount` work on
/// the copy alone. Field names, and values in filters, are compared without regard to case.
///
/// `AddNew`, `Collect`, `Update` and `Delete` become one parameterised statement each, on the table
/// that the source names. Only assigned columns are written, a pending row reads back what was
/// assigned, `Update` with nothing pending sends nothing, and an update or delete must hit exactly
/// one row or it fails. The row is found by the table's key; in a table without one it is matched
/// on all columns and the statement is limited to one row.
///
/// A recordset can be moved, not copied. It must not outlive its connection's statements, but what
/// it holds can be read after the connection has closed.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// Opening an open recordset fails (3705).
    void Open(std::string_view source, Connection& connection, int cursorType = adOpenStatic,
              int lockType = adLockReadOnly, int options = adCmdUnspecified);
    /// Closing a closed recordset fails (3704), as does every other member but `State`.
    void Close();
    int State() const;

    /// Of the rows that the filter shows.
    int RecordCount() const;
    bool Eof() const; ///< `EOF`; that name is a macro of the C library
    void MoveFirst();
    void MoveNext();
    void MoveLast();

    /// 0-based place of the current row among the shown rows; RecordCount() at the end.
    int Position() const;
    void SetPosition(int position);
    /// Runs after the current row has moved, by whatever means: a grid bound to the recordset
    /// shares its current row.
    std::function<void()> Moved;

    /// The value of a field of the current row, by name or 0-based number. No current row is a
    /// failure (3021), an unknown field too (3265).
    Value Fields(std::string_view name) const;
    Value Fields(int number) const;
    int FieldCount() const;
    const std::string& FieldName(int number) const;
    /// A field of any shown row, for grids that paint from the copy without moving it.
    Value ValueAt(int position, int field) const;

    /// Shows the rows that fit "name = 'value'", comparisons by = <> < > <= >= and Like, joined by
    /// AND / OR with parentheses, and moves to the first. The empty text shows all rows.
    void SetFilter(std::string_view filter);

    /// Moves to the first row from the first one on that fits one comparison, or to the end. On no
    /// rows it ends at the end, without failure.
    void Find(std::string_view criterion);

    /// A second view on the same rows with a filter and a current row of its own.
    Recordset Clone() const;

    void AddNew();
    /// Assigns to a field of the current or the new row.
    void Collect(std::string_view name, Value value);
    void Update();
    /// Deletes the current row; the walk goes on behind it by `MoveNext`.
    void Delete();

private:
    struct Copy;
    struct View;
    std::unique_ptr<View> view_;
};

} // namespace Quillane
