#pragma once

#include "platform/report/Report.h"

namespace Quillane {

/// The slip for pre-printed paper: the same sections, parameters and places of the figures as
/// CrpCottonWeighment, without the heading, captions and boxes that such paper has already. Kept
/// with the system; nothing creates it.
class CrpWeighmentOnPrinted : public Report {
public:
    CrpWeighmentOnPrinted();
    std::string FileName() const override;
};

} // namespace Quillane
