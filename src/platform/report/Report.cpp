#include "platform/report/Report.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"

namespace Quillane {

std::string ParameterField::Shown() const {
    if (const auto* text = std::get_if<std::string>(&value_))
        return *text;
    if (const auto* number = std::get_if<double>(&value_))
        return NumberText(*number);
    return {};
}

void ReportDatabase::SetDataSource(std::shared_ptr<Recordset> data, int dataTag, int tableNumber) {
    if (tableNumber != 1)
        Fail(FailureNumber::SubscriptOutOfRange);
    data_ = std::move(data);
    dataTag_ = dataTag;
}

Report::Report(int parameterCount) : parameters_(static_cast<std::size_t>(parameterCount)) {}

ParameterField& Report::ParameterFields(int position) {
    return const_cast<ParameterField&>(std::as_const(*this).ParameterFields(position));
}

const ParameterField& Report::ParameterFields(int position) const {
    if (position < 1 || position > ParameterCount())
        Fail(FailureNumber::SubscriptOutOfRange);
    return parameters_[static_cast<std::size_t>(position - 1)];
}

void Report::SelectPrinter(std::string driver, std::string printer, std::string port) {
    printer_ = {std::move(driver), std::move(printer), std::move(port)};
}

} // namespace Quillane
