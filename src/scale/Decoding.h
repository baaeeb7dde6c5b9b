#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

/// How the digits of a weight are read, from a station's settings.
struct LiveReading {
    std::optional<std::string> direction; ///< absent: the token is not cut
    double length = 0;                    ///< digits kept, rounded half to even; with a direction
    bool reversed = false;
};

/// The weight in what an indicator has sent since the last look, or none: no change. The text is a
/// stream of digit runs; the first run is thrown away and the next one is read, cut and perhaps
/// reversed. One char is one byte received. A negative length fails (5) unless the text is empty.
std::optional<std::string> DecodeLiveWeight(std::string_view rawText, const LiveReading& reading);

struct TestWeight {
    std::string notModified; ///< the token before the cut
    std::string modified;    ///< the weight as the settings make it
};

/// The same for the bench, where settings are tried out; it differs from the live reading in how it
/// takes few runs, short tokens, empty text and the reversal, and is kept apart on purpose.
TestWeight DecodeTestWeight(std::string_view rawText, std::string_view direction,
                            std::string_view lengthText, bool reversed);

} // namespace Quillane
