#include "weighment/WeightArithmetic.h"

#include "platform/runtime/Numbers.h"

namespace Quillane {

std::optional<GrossFigures> GrossFiguresOf(std::string_view initialGross, std::string_view tare,
                                           std::string_view rate) {
    const double initial = Val(initialGross);
    if (initial == 0)
        return std::nullopt;
    // The conversion to text rounds the quotient to 15 significant digits before the
    // multiplication.
    const double mounds = Val(NumberText((initial - Val(tare)) / KgsPerMound));
    GrossFigures figures;
    figures.scaleDeduction = WeightText(RoundWeight(Val(rate) * mounds));
    figures.gross = WeightText(RoundWeight(initial - Val(tare) - Val(figures.scaleDeduction)));
    return figures;
}

std::string NetWeightOf(std::string_view gross, std::string_view bagsWeight,
                        std::string_view shortage, std::string_view deduction) {
    return WeightText(RoundWeight(Val(gross) - Val(bagsWeight) - Val(shortage) - Val(deduction)));
}

BagLineFigures ShareOfLine(const WeighmentTotals& totals, double bagsOfLine) {
    BagLineFigures figures;
    figures.bagWeight = Divide(totals.gross, totals.bags);
    figures.otherDeduction = Divide(totals.shortage + totals.deduction, totals.bags) * bagsOfLine;
    figures.netWeight = Divide(totals.net, totals.bags) * bagsOfLine;
    return figures;
}

} // namespace Quillane
