#include "office/move/Digest.h"

#include "platform/runtime/Numbers.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace Quillane::Office {

namespace {

using Kind = ResultSet::Kind;

constexpr double unitsInOne = 10'000;

std::uint64_t Mixed(std::uint64_t number) {
    number = (number ^ (number >> 33)) * 0xFF51AFD7ED558CCD;
    number = (number ^ (number >> 33)) * 0xC4CEB9FE1A85EC53;
    return number ^ (number >> 33);
}

/// FNV-1a, mixed at the end.
std::uint64_t ChecksumOf(std::string_view text) {
    std::uint64_t sum = 0xCBF29CE484222325;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    return Mixed(sum);
}

bool IsNumber(const ResultSet::Cell& cell) {
    return cell.kind == Kind::Whole || cell.kind == Kind::Real || cell.kind == Kind::Decimal;
}

/// A decimal outside the range of a double would be text in an embedded database.
double NumberOf(const ResultSet::Cell& cell) {
    if (cell.kind == Kind::Whole)
        return static_cast<double>(cell.whole);
    double number = cell.real;
    if (cell.kind == Kind::Decimal)
        std::from_chars(cell.text.data(), cell.text.data() + cell.text.size(), number);
    return number;
}

std::uint64_t ChecksumOf(const ResultSet::Cell& cell) {
    constexpr std::uint64_t ofNull = 0x9E3779B97F4A7C15;
    if (cell.kind == Kind::Null)
        return ofNull;
    if (IsNumber(cell))
        // Minus zero is zero.
        return Mixed(std::bit_cast<std::uint64_t>(NumberOf(cell) + 0.0) + 1);
    if (cell.kind == Kind::Day)
        return Mixed(static_cast<std::uint64_t>(cell.whole) + 2);
    return ChecksumOf(cell.text);
}

std::int64_t InUnits(double number) {
    constexpr double mostThatFits = 9e14;
    return std::abs(number) < mostThatFits ? std::llround(number * unitsInOne) : 0;
}

std::int64_t WrappedSum(std::int64_t left, std::int64_t right) {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(left) +
                                     static_cast<std::uint64_t>(right));
}

std::string SumText(std::int64_t units) {
    return NumberText(static_cast<double>(units) / unitsInOne);
}

} // namespace

std::uint64_t ChecksumOfRow(const ResultSet& block, int row) {
    std::uint64_t sum = 0;
    for (int field = 0; field < block.FieldCount(); ++field)
        sum = Mixed(sum + ChecksumOf(block.CellAt(row, field)));
    return sum;
}

void Digest::Add(const ResultSet& block) {
    columns_.resize(static_cast<std::size_t>(block.FieldCount()));
    for (int row = 0; row < block.RowCount(); ++row) {
        std::uint64_t ofRow = 0;
        for (int field = 0; field < block.FieldCount(); ++field) {
            const ResultSet::Cell cell = block.CellAt(row, field);
            const std::uint64_t ofCell = ChecksumOf(cell);
            Column& column = columns_[static_cast<std::size_t>(field)];
            column.values += cell.kind == Kind::Null ? 0 : 1;
            column.checksum += ofCell;
            if (IsNumber(cell))
                column.sum = WrappedSum(column.sum, InUnits(NumberOf(cell)));
            ofRow = Mixed(ofRow + ofCell);
        }
        rowsChecksum_ += ofRow;
    }
    rows_ += block.RowCount();
}

std::string Digest::Difference(const Column& here, const Column& there) {
    if (here.values != there.values)
        return std::to_string(here.values) + " values, there " + std::to_string(there.values);
    if (here.sum != there.sum)
        return "sum " + SumText(here.sum) + ", there " + SumText(there.sum);
    return "other values there";
}

std::string Digest::DifferenceTo(const Digest& there,
                                 const std::vector<std::string>& columns) const {
    if (rows_ != there.rows_)
        return std::to_string(rows_) + " rows, there " + std::to_string(there.rows_);
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (columns_[i] != there.columns_[i])
            return "column " + columns[i] + ": " + Difference(columns_[i], there.columns_[i]);
    return *this == there ? std::string() : "values of different rows are exchanged there";
}

} // namespace Quillane::Office
