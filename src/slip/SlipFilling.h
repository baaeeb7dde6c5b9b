#pragma once

#include "platform/report/Report.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

/// The contents of a slip.
struct SlipContent {
    std::string companyTitle; ///< in capitals
    std::string companyAddress;
    std::string companyPhone;
    std::string companyEmail;
    std::string mounds;              ///< net weight in mounds
    double initialGrossWeight = 0;   ///< kilograms on the screen; 0: none
    double netWeight = 0;            ///< kilograms on the screen
    std::string userName;            ///< the user who prints it; empty: nobody is signed in
    std::shared_ptr<Recordset> rows; ///< of `SlipStatement`
};

/// Fills a new slip of either design: its seven parameters, its title and its data.
void FillSlip(Report& slip, const SlipContent& content);

/// True if the phone or e-mail parameter has a caption but no value.
bool IsCaptionAlone(std::string_view parameter);

} // namespace Quillane
