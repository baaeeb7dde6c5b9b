#pragma once

#include "platform/ado/Bytes.h"
#include "platform/ado/Value.h"

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

class ResultSet;

/// Receives the rows of a query block by block. The block is valid until the function returns.
/// Returning false ends the reading.
using BlockReader = std::function<bool(const ResultSet& block)>;

/// All rows of a query, read in one pass. A row is a record of fixed length, with eight bytes and a
/// kind for each field. Texts are stored one after the other in a second block. The address of a
/// cell is computed by a multiplication, and a large result needs only two blocks of memory.
class ResultSet {
public:
    enum class Kind : std::uint8_t { Null, Whole, Real, Decimal, Text, Day };

    /// A cell in the arena. `text` is valid for a Decimal and a Text, until the next cell is added.
    struct Cell {
        Kind kind = Kind::Null;
        std::int64_t whole = 0; ///< a Day as days since 1970
        double real = 0;
        std::string_view text;
    };

    void SetColumns(std::vector<std::string> names);
    int FieldCount() const { return static_cast<int>(names_.size()); }
    const std::string& FieldName(int field) const {
        return names_[static_cast<std::size_t>(field)];
    }
    /// The first field with this name, case-insensitive; -1 if there is none.
    int FieldNumber(std::string_view name) const;

    /// Begins a row. All of its cells must then be added, from the first field on.
    void BeginRow() {
        row_ = cells_.Size();
        std::memset(cells_.Extend(stride_), 0, stride_);
        next_ = 0;
        ++rows_;
    }
    void AddNull() { ++next_; }
    void AddWhole(std::int64_t whole) { Add(Kind::Whole, &whole); }
    void AddReal(double real) { Add(Kind::Real, &real); }
    void AddDate(Date date);
    void AddText(std::string_view text, Kind kind = Kind::Text) {
        const Span span = Store(text);
        Add(kind, &span);
    }
    /// Removes all rows. The columns and the memory for rows are kept.
    void Clear();
    /// Frees the memory that was reserved for more rows.
    void Finish();

    int RowCount() const { return rows_; }
    Cell CellAt(int row, int field) const;
    Value At(int row, int field) const;
    /// Replaces one cell. The text of the old value stays in the arena, unused.
    void Set(int row, int field, const Value& value);
    /// Adds a row of Nulls.
    void AppendRow() { BeginRow(); }

    std::size_t BytesHeld() const { return cells_.Capacity() + texts_.Capacity(); }

private:
    struct Span {
        std::uint32_t offset;
        std::uint32_t length;
    };
    static constexpr std::size_t slot = 8;

    template <typename Payload>
    void Add(Kind kind, const Payload* payload) {
        static_assert(sizeof(Payload) == slot);
        Write(row_, next_++, kind, payload);
    }
    void Write(std::size_t row, std::size_t field, Kind kind, const void* payload) {
        char* record = cells_.At(row);
        std::memcpy(record + field * slot, payload, slot);
        record[names_.size() * slot + field] = static_cast<char>(kind);
    }
    Span Store(std::string_view text) {
        const std::size_t offset = texts_.Size();
        if (offset + text.size() > UINT32_MAX)
            FailTooLarge();
        if (!text.empty())
            std::memcpy(texts_.Extend(text.size()), text.data(), text.size());
        return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(text.size())};
    }
    [[noreturn]] static void FailTooLarge();

    std::vector<std::string> names_;
    Bytes cells_;
    Bytes texts_;
    std::size_t stride_ = 0;
    std::size_t row_ = 0;  ///< position of the record that is being filled
    std::size_t next_ = 0; ///< its next field
    int rows_ = 0;
};

} // namespace Quillane
