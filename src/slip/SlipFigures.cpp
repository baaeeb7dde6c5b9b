#include "slip/SlipFigures.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

#include <array>
#include <charconv>
#include <cmath>

namespace Quillane {

namespace {

int FieldNumber(const Recordset& rows, std::string_view name) {
    for (int number = 0; number < rows.FieldCount(); ++number) {
        if (EqualIgnoringCase(rows.FieldName(number), name))
            return number;
    }
    throw Failure(FailureNumber::ItemNotFound,
                  "The slip's data has no column " + std::string(name) + ".");
}

/// Reads any row without moving the recordset; each column is looked up once.
class Reader {
public:
    explicit Reader(const Recordset& rows)
        : rows_(rows), bags_(FieldNumber(rows, "NoOfBags")),
          bagWeight_(FieldNumber(rows, "BagWeight")), tare_(FieldNumber(rows, "TareWeight")),
          bagsDeduction_(FieldNumber(rows, "BagsDeduction")),
          scaleDeduction_(FieldNumber(rows, "ScaleDeduction")),
          otherDeduction_(FieldNumber(rows, "OtherDeduction")) {}

    SlipLine Line(int row) const {
        SlipLine line;
        line.bags = Number(row, bags_);
        line.gross = line.bags * Number(row, bagWeight_);
        line.deduction = Number(row, bagsDeduction_) + Number(row, otherDeduction_);
        return line;
    }
    double Tare(int row) const { return Number(row, tare_); }
    double ScaleDeduction(int row) const { return Number(row, scaleDeduction_); }

private:
    double Number(int row, int field) const {
        const Value value = rows_.ValueAt(row, field);
        return value.IsNull() ? 0 : value.Number();
    }

    const Recordset& rows_;
    int bags_, bagWeight_, tare_, bagsDeduction_, scaleDeduction_, otherDeduction_;
};

/// Away from the noise of sums of fractions; minus zero becomes zero.
double RoundedToHundredths(double value) {
    return RoundWeight(value * 100) / 100 + 0.0;
}

} // namespace

SlipLine LineOf(const Recordset& rows) {
    return Reader(rows).Line(rows.Position());
}

SlipTotals TotalsOf(const Recordset& rows) {
    const Reader reader(rows);
    SlipTotals totals;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        const SlipLine line = reader.Line(row);
        totals.bags += line.bags;
        totals.gross += line.gross;
        totals.deduction += line.deduction;
        totals.tare += reader.Tare(row);
    }
    if (rows.RecordCount() > 0)
        totals.scaleDeduction = reader.ScaleDeduction(0);
    return totals;
}

std::string FirstTextOf(const Recordset& rows, std::string_view column) {
    const int field = FieldNumber(rows, column);
    for (int row = 0; row < rows.RecordCount(); ++row) {
        std::string text = rows.ValueAt(row, field).TextOrEmpty();
        if (!Trim(text).empty())
            return text;
    }
    return {};
}

std::string ColumnKilograms(double kilograms) {
    std::array<char, 400> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                   RoundedToHundredths(kilograms), std::chars_format::fixed, 2);
    return {digits.data(), end.ptr};
}

std::string Kilograms(double kilograms) {
    return NumberText(RoundedToHundredths(kilograms));
}

} // namespace Quillane
