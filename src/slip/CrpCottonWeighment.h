#pragma once

#include "platform/report/Report.h"

namespace Quillane {

/// The weighment slip, one A4 portrait page for usual loads. It has seven parameters by position:
/// company title, address, phone and e-mail; the mounds as text; initial gross weight and net
/// weight as numbers. Its data are the rows of `SlipStatement`, one for each bag line.
class CrpCottonWeighment : public Report {
public:
    CrpCottonWeighment();
    /// "Slip" and the number of the arrival.
    std::string FileName() const override;
};

} // namespace Quillane
