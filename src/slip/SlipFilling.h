#pragma once

#include "platform/report/Report.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

/// What one slip shows.
struct SlipContent {
    std::string companyTitle; ///< in capitals
    std::string companyAddress;
    std::string companyPhone;
    std::string companyEmail;
    std::string mounds;              ///< of the net weight
    double initialGrossWeight = 0;   ///< kilograms on the screen; 0: none
    double netWeight = 0;            ///< kilograms on the screen
    std::string userName;            ///< who has it printed; empty: nobody is signed in
    std::shared_ptr<Recordset> rows; ///< of `SlipStatement`
};

/// Fills a new slip of either design: its seven parameters, its title and its data.
void FillSlip(Report& slip, const SlipContent& content);

/// Whether the phone or e-mail parameter has a caption and nothing after it.
bool IsCaptionAlone(std::string_view parameter);

} // namespace Quillane
