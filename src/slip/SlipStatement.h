#pragma once

#include <cstdint>
#include <string>

namespace Quillane {

/// The join that reads a stored arrival, one row for each bag line: what the slip prints and what
/// opening a weighment reads. One line; its blanks are part of it.
std::string SlipStatement(std::int32_t arrivalNo);

} // namespace Quillane
