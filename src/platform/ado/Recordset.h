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

/// A client-side static copy of a query's rows. `Open` reads all rows into memory and closes the
/// engine's result. `Filter`, `Find`, `Clone`, moves and `RecordCount` use only the copy. Field
/// names, and values in filters, are compared without regard to case.
///
/// `AddNew`, `Collect`, `Update` and `Delete` send one parameterised statement each to the table
/// that the source names. Only assigned columns are written. A pending row returns the assigned
/// values. `Update` without a pending change sends nothing. An update or a delete fails unless it
/// changes exactly one row. The row is found by the table's key; in a table without one by all of
/// its columns, with the statement limited to one row.
///
/// A recordset can be written only if its source is plain: "Select * From X", with or without
/// `Where` and `Order By`. A move away from a row with assigned fields first sends them, like
/// `Update`.
///
/// A recordset can be moved, not copied. Its rows can be read after the connection has closed; only
/// writing needs the connection.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    /// An open, read-only recordset of rows that come from no database.
    static Recordset Of(ResultSet rows);

    /// Errors: 3705 if the recordset is open. A statement without a result leaves the recordset
    /// closed.
    void Open(std::string_view source, Connection& connection, int cursorType = adOpenStatic,
              int lockType = adLockReadOnly, int options = adCmdUnspecified);
    /// Assigned values that have not been sent are lost. Errors: 3704 if the recordset is closed.
    /// The same holds for all other members except `State`.
    void Close();
    int State() const;

    /// The number of rows that the filter shows.
    int RecordCount() const;
    bool Eof() const; ///< `EOF`; that name is a macro of the C library
    void MoveFirst(); ///< without rows it stays at the end
    void MoveNext();  ///< fails at the end (3021)
    void MoveLast();  ///< without rows it stays at the end

    /// The 0-based position of the current row among the shown rows; `RecordCount()` at the end,
    /// and on a new row that has not been sent yet. Errors: 3001 for any other position.
    int Position() const;
    void SetPosition(int position);
    /// Runs after each move of the current row. A grid that is bound to the recordset shows the
    /// same current row.
    std::function<void()> Moved;

    /// The value of a field of the current row, by name or 0-based number. Errors: 3021 if there is
    /// no current row, 3265 for an unknown field.
    Value Fields(std::string_view name) const;
    Value Fields(int number) const;
    int FieldCount() const;
    const std::string& FieldName(int number) const;
    /// A field of any shown row, for grids that paint rows without moving the current one.
    Value ValueAt(int position, int field) const;

    /// Shows the rows that match a filter and moves to the first of them. A filter consists of
    /// comparisons such as "name = 'value'", with = <> < > <= >= or Like, joined by AND and OR with
    /// parentheses. The empty text shows all rows. A value is a 'text' with doubled apostrophes, a
    /// number, or Null. A comparison with a Null field never matches, except "= Null" and "<>
    /// Null". Numbers are compared as numbers, dates as dates, everything else as text. In Like, %
    /// and * match any characters. Errors: 3001 if the text is not a valid filter; the filter is
    /// then not changed.
    void SetFilter(std::string_view filter);

    /// Moves to the first row that matches one comparison, or to the end if no row matches.
    void Find(std::string_view criterion);

    /// A second view of the same rows, with its own filter and current row.
    Recordset Clone() const;

    /// Begins a new row, which becomes the current one. `RecordCount` includes it after it has been
    /// sent. Errors: 3251 if the recordset was opened read-only (`adLockReadOnly`), here and for
    /// every write.
    void AddNew();
    /// Assigns a value to a field of the current or new row.
    void Collect(std::string_view name, Value value);
    /// Sends the assigned values. After a failure nothing is stored and the assigned values are
    /// still pending. A new row becomes the last one; its fields without an assigned value are
    /// Null.
    void Update();
    /// Deletes the current row. There is no current row until `MoveNext` moves to the one after it.
    /// Assigned values of the row that have not been sent are lost.
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
