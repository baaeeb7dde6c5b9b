#pragma once

#include "platform/ado/Value.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Connection;
class ResultSet;
class RowWalk;
class Session;

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
/// The source of a recordset that is written through must be plain: "Select * From X", with
/// whatever `Where` or `Order By` behind it. Moving away from a row with assigned fields sends them
/// first, as `Update` does.
///
/// A recordset can be moved, not copied. What it holds can be read after the connection has closed;
/// only writing needs the connection.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// An open, read-only recordset of rows that no database has given.
    static Recordset Of(ResultSet rows);

    /// Opening an open recordset fails (3705). A statement that gives no rows at all leaves the
    /// recordset closed.
    void Open(std::string_view source, Connection& connection, int cursorType = adOpenStatic,
              int lockType = adLockReadOnly, int options = adCmdUnspecified);
    /// Closing a closed recordset fails (3704), as does every other member but `State`. What was
    /// assigned and not yet sent is dropped.
    void Close();
    int State() const;

    /// Of the rows that the filter shows.
    int RecordCount() const;
    bool Eof() const; ///< `EOF`; that name is a macro of the C library
    void MoveFirst(); ///< on no rows: stays at the end
    void MoveNext();  ///< at the end it fails (3021)
    void MoveLast();  ///< on no rows: stays at the end

    /// 0-based place of the current row among the shown rows; RecordCount() at the end and on a new
    /// row that is not sent yet. Setting it beyond these bounds fails (3001).
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
    /// AND / OR with parentheses, and moves to the first. The empty text shows all rows. A value is
    /// 'text' with apostrophes doubled, a number or Null; a comparison with a Null field never
    /// fits, but for "= Null" and "<> Null". Numbers compare as numbers, dates as dates, all else
    /// as text; in Like, % and * stand for any characters. A text that is no filter fails (3001),
    /// and the filter stays as it was.
    void SetFilter(std::string_view filter);

    /// Moves to the first row from the first one on that fits one comparison, or to the end. On no
    /// rows it ends at the end, without failure.
    void Find(std::string_view criterion);

    /// A second view on the same rows with a filter and a current row of its own.
    Recordset Clone() const;

    /// Begins a new row, which becomes the current one; `RecordCount` counts it once it is sent. A
    /// recordset opened read-only (`adLockReadOnly`) fails (3251), here and on every write.
    void AddNew();
    /// Assigns to a field of the current or the new row.
    void Collect(std::string_view name, Value value);
    /// Sends what was assigned. Where it fails, nothing was stored and the assigned values stay
    /// pending. A new row then stands last; fields that were not assigned read as Null.
    void Update();
    /// Deletes the current row; the walk goes on behind it by `MoveNext`. Until then there is no
    /// current row. What was assigned to the row and not sent is dropped.
    void Delete();

private:
    friend class Connection;
    struct View;

    Recordset(ResultSet rows, std::string_view source, const std::shared_ptr<Session>& session,
              int lockType);
    View& Opened() const;
    void Move(const std::function<void(RowWalk&)>& move);

    std::unique_ptr<View> view_;
};

} // namespace Quillane
