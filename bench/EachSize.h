#pragma once

#include "ManyArrivals.h"

#include <functional>

namespace Quillane {

/// Creates a database of each size on the command line (by default 10,000, 100,000 and 1,000,000
/// arrivals) and runs the measurement in a separate process, with an application and an open `Con`.
/// Returns the exit code of the program.
///
/// A message box other than that of the serial line ends the measurement.
int MeasureEachSize(int argc, char** argv, const std::function<void(const ManyArrivals&)>& measure);

} // namespace Quillane
