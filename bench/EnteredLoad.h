#pragma once

#include "weighment/FrmWeighment.h"

#include <string>

namespace Quillane {

/// Enters a weighed load of three bag lines, ready to be saved.
void EnterLoad(FrmWeighment& screen, const std::string& driver);

} // namespace Quillane
