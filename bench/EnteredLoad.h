#pragma once

#include "weighment/FrmWeighment.h"

#include <string>

namespace Quillane {

/// Enters a weighed load with three bag lines that can be saved.
void EnterLoad(FrmWeighment& screen, const std::string& driver);

} // namespace Quillane
