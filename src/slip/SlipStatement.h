#pragma once

#include <cstdint>
#include <string>

namespace Quillane {

/// The statement that reads a stored arrival for the slip and for opening a weighment, one row for
/// each bag line. It is one line; its blanks are part of it.
std::string SlipStatement(std::int32_t arrivalNo);

} // namespace Quillane
