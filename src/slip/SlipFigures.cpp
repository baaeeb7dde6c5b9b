#include "slip/SlipFigures.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "slip/SlipRounding.h"

#include <algorithm>
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

/// Reads any row without moving the recordset.
class NumberColumn {
public:
    NumberColumn(const Recordset& rows, std::string_view name)
        : rows_(rows), field_(FieldNumber(rows, name)) {}
    double operator[](int row) const {
        const Value value = rows_.ValueAt(row, field_);
        return value.IsNull() ? 0 : value.Number();
    }

private:
    const Recordset& rows_;
    int field_;
};

} // namespace

double SlipLine::Net() const {
    return RoundedToHundredths(gross - deduction);
}

SlipLines LinesOf(const Recordset& rows) {
    const NumberColumn bags(rows, "NoOfBags");
    const NumberColumn bagWeight(rows, "BagWeight");
    const NumberColumn tare(rows, "TareWeight");
    const NumberColumn bagsDeduction(rows, "BagsDeduction");
    const NumberColumn scaleDeduction(rows, "ScaleDeduction");
    const NumberColumn otherDeduction(rows, "OtherDeduction");
    SlipLines all;
    std::vector<double> gross;
    std::vector<double> deduction;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        gross.push_back(bags[row] * bagWeight[row]);
        deduction.push_back(bagsDeduction[row] + otherDeduction[row]);
        all.bags += bags[row];
        all.tare += tare[row];
    }
    all.hasLines = rows.RecordCount() > 0;
    if (all.hasLines)
        all.scaleDeduction = scaleDeduction[0];
    gross = RoundedTogether(gross);
    deduction = RoundedTogether(deduction);
    for (std::size_t line = 0; line < gross.size(); ++line) {
        all.lines.push_back({gross[line], deduction[line]});
        all.total.gross = RoundedToHundredths(all.total.gross + gross[line]);
        all.total.deduction = RoundedToHundredths(all.total.deduction + deduction[line]);
    }
    return all;
}

namespace {

FirstWeighing FirstWeighingOf(double initialGross, double tare, double gross) {
    if (initialGross != 0 && tare == 0)
        return FirstWeighing::LoadedTruck;
    return tare != 0 && gross == 0 ? FirstWeighing::EmptyTruck : FirstWeighing::No;
}

} // namespace

LoadWeights WeightsOf(const SlipSums& lines, double initialGross, double net) {
    const double initial = RoundedToHundredths(initialGross);
    LoadWeights weights;
    weights.net = RoundedToHundredths(net);
    if (initial != 0)
        weights.initialGross = initial;
    if (!lines.hasLines)
        return weights;
    const double tare = RoundedToHundredths(lines.tare);
    const double gross = initial != 0 ? RoundedToHundredths(initial - tare) : lines.total.gross;
    const double deduction = RoundedToHundredths(gross - weights.net);
    if (initial != 0 || tare != 0)
        weights.tare = tare;
    weights.gross = gross;
    weights.deduction = deduction;
    // The weights of the screen are whole kilograms; the sums of the lines are nearly whole.
    if (std::abs(deduction - (lines.total.deduction + lines.scaleDeduction)) < 0.5)
        weights.scaleDeduction = lines.scaleDeduction;
    weights.firstWeighing = FirstWeighingOf(initial, tare, gross);
    return weights;
}

namespace {

/// The texts of a column that are not empty.
std::vector<std::string> TextsOf(const Recordset& rows, std::string_view column) {
    const int field = FieldNumber(rows, column);
    std::vector<std::string> texts;
    for (int row = 0; row < rows.RecordCount(); ++row) {
        std::string text = rows.ValueAt(row, field).TextOrEmpty();
        if (!text.empty())
            texts.push_back(std::move(text));
    }
    return texts;
}

} // namespace

std::string FirstTextOf(const Recordset& rows, std::string_view column) {
    const auto texts = TextsOf(rows, column);
    const auto first = std::find_if(texts.begin(), texts.end(),
                                    [](const std::string& text) { return !Trim(text).empty(); });
    return first == texts.end() ? std::string() : *first;
}

std::string LastTextOf(const Recordset& rows, std::string_view column) {
    const auto texts = TextsOf(rows, column);
    return texts.empty() ? std::string() : texts.back();
}

} // namespace Quillane
