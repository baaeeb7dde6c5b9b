#pragma once

#include "scale/Decoding.h"

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

class Recordset;

/// The texts that find and update one row of the table `PortSettings`. The program updates the five
/// rows of the table and never adds one.
struct PortSetting {
    std::string_view name;
    std::string_view filter;      ///< finds the row in a recordset of the whole table
    std::string_view updateClose; ///< of the update statement, after the value
};

/// The serial port's number, 1 or more.
inline constexpr PortSetting PortNameSetting{"PortName", "RegistryKey = 'PortName'",
                                             "' where registrykey = 'PortName'"};
/// Rate, parity letter, data bits, stop bits: 2400,n,8,1.
inline constexpr PortSetting LineSetting{"PortSettings", "RegistryKey = 'PortSettings'",
                                         "' where registrykey = 'PortSettings'"};
/// "Left" or "Right": the end of the token from which digits are kept.
inline constexpr PortSetting DirectionSetting{"DataDirection", "Registrykey = 'DataDirection'",
                                              "' where registrykey = 'DataDirection'"};
/// How many digits are kept.
inline constexpr PortSetting LengthSetting{"DataLength", "Registrykey = 'DataLength'",
                                           "' where registrykey = 'DataLength'"};
/// "1" if the digits arrive in reverse order.
inline constexpr PortSetting ReversalSetting{"IsReversed", "Registrykey = 'IsReversed'",
                                             "' where registrykey = 'IsReversed'"};

/// The statement that stores one value. The value is not escaped: an apostrophe makes the statement
/// invalid.
std::string UpdateStatement(const PortSetting& setting, std::string_view value);

/// The line settings in the form of the port, from the texts of the bench's lists. Blanks at both
/// ends are removed; the parity is the first letter of its name, in lower case.
std::string ComposeLineSettings(std::string_view rate, std::string_view parity,
                                std::string_view dataBits, std::string_view stopBits);

/// The value of a setting; none unless there is exactly one row. A Null fails (94). The filter of
/// the recordset stays set.
std::optional<std::string> SingleValue(Recordset& portSettingsRows, const PortSetting& setting);

/// Reads the settings for the decoding from the rows of `PortSettings`: direction, length (only
/// with a direction) and reversal, in this order. The direction is absent unless there is exactly
/// one row; a Null is left. A missing length or reversal fails (3021), a Null fails (94); of
/// several rows the first is used. The length is read leniently; a reversal that is not a number
/// fails (13). The filter of the recordset stays set.
LiveReading ReadLiveReading(Recordset& portSettingsRows);

} // namespace Quillane
