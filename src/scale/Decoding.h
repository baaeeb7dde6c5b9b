#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

/// The settings of a station that describe how the digits of a weight are read.
struct LiveReading {
    std::optional<std::string> direction; ///< absent: the token is not cut
    double length = 0;                    ///< digits kept, rounded half to even; with a direction
    bool reversed = false;
};

/// The weight in the bytes that an indicator has sent since the last read, or none if the reading
/// does not change. The text is a sequence of digit runs: the first run is dropped, the next one is
/// cut and, if set, reversed. One char is one byte. A negative length fails (5) unless the text is
/// empty.
std::optional<std::string> DecodeLiveWeight(std::string_view rawText, const LiveReading& reading);

struct TestWeight {
    std::string notModified; ///< the token before the cut
    std::string modified;    ///< the weight according to the settings
};

/// The same for the bench, where settings are tried. It differs from the live reading if there are
/// few runs, for short tokens, for an empty text and in the reversal. These differences are
/// required.
TestWeight DecodeTestWeight(std::string_view rawText, std::string_view direction,
                            std::string_view lengthText, bool reversed);

} // namespace Quillane
