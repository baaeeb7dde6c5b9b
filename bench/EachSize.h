#pragma once

#include "ManyArrivals.h"

#include <functional>

namespace Quillane {

/// Makes a database of each size that the command line names (10,000, 100,000 and 1,000,000
/// arrivals where it names none) and measures on it in a process of its own, with the application
/// up and `Con` open. Returns the program's outcome.
///
/// A box other than the serial line's ends the measuring.
int MeasureEachSize(int argc, char** argv, const std::function<void(const ManyArrivals&)>& measure);

} // namespace Quillane
