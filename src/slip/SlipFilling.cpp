#include "slip/SlipFilling.h"

#include "platform/runtime/Text.h"
#include "slip/SlipDesign.h"

namespace Quillane {

namespace {

const std::string phoneCaption = "PhoneNo: ";
const std::string emailCaption = "Email: ";

} // namespace

void FillSlip(Report& slip, const SlipContent& content) {
    const auto parameter = [&](int position) -> ParameterField& {
        return slip.ParameterFields(position);
    };
    parameter(SlipParameter::CompanyTitle).AddCurrentValue(content.companyTitle);
    parameter(SlipParameter::CompanyAddress).AddCurrentValue(content.companyAddress);
    parameter(SlipParameter::CompanyPhone).AddCurrentValue(phoneCaption + content.companyPhone);
    parameter(SlipParameter::CompanyEmail).AddCurrentValue(emailCaption + content.companyEmail);
    parameter(SlipParameter::Mounds).AddCurrentValue(content.mounds);
    parameter(SlipParameter::InitialGrossWeight).AddCurrentValue(content.initialGrossWeight);
    parameter(SlipParameter::NetWeight).AddCurrentValue(content.netWeight);
    slip.Title = "Quillane Slip";
    slip.UserName = content.userName;
    slip.Database.SetDataSource(content.rows, 3, 1);
    // Three fixed texts for the report engine; they do not name a device of the station.
    slip.SelectPrinter("Dummy Driver", "Ding Dong", "LPT1");
    slip.PaperOrientation = 1;
}

bool IsCaptionAlone(std::string_view parameter) {
    const std::string_view text = Trim(parameter);
    return text == Trim(phoneCaption) || text == Trim(emailCaption);
}

} // namespace Quillane
