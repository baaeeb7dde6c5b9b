#pragma once

#include "platform/report/Report.h"

namespace Quillane {

/// The slip for pre-printed paper: the same sections, parameters and positions of the figures as
/// CrpCottonWeighment, without the heading, captions and boxes that the paper already has. It is
/// part of the system, but nothing creates it.
class CrpWeighmentOnPrinted : public Report {
public:
    CrpWeighmentOnPrinted();
    std::string FileName() const override;
};

} // namespace Quillane
