#pragma once

#include "slip/SlipFilling.h"

#include <memory>
#include <utility>

namespace Quillane {

/// The contents of a slip for a usual load.
inline SlipContent SampleContent(std::shared_ptr<Recordset> rows) {
    return {.companyTitle = "QUILLANE FLOUR MILLS",
            .companyAddress = "Plot 7, Industrial Estate, Sargodha Road, Faisalabad",
            .companyPhone = "041-555 0182",
            .companyEmail = "gate@quillane.example",
            .mounds = "202-20",
            .initialGrossWeight = 12437,
            .netWeight = 8100,
            .userName = "ali",
            .rows = std::move(rows)};
}

} // namespace Quillane
