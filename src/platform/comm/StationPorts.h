#pragma once

namespace Quillane {

/// Makes every port that is opened from now on follow `TheStation()`: its device is the one in
/// [Ports], and it is read in whole bursts if it is in [WholeBursts].
void UseStationPorts();

} // namespace Quillane
