#pragma once

#include "scale/Decoding.h"

#include <optional>
#include <string>
#include <string_view>

namespace Quillane {

class Recordset;

/// What finds, and writes, one row of the table `PortSettings`. The table has its five rows
/// beforehand: the system updates them and never adds one.
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

/// The statement that stores one value. The value is not escaped: one with an apostrophe
/// breaks the statement.
std::string UpdateStatement(const PortSetting& setting, std::string_view value);

/// The line settings as the port takes them, from the texts of the bench's lists: blanks at the
/// ends go, and of the parity's name the first letter stays, in lower case.
std::string ComposeLineSettings(std::string_view rate, std::string_view parity,
                                std::string_view dataBits, std::string_view stopBits);

/// The value of a setting of which there must be exactly one row; none where there is not. A Null
/// fails (94). Leaves the recordset filtered.
std::optional<std::string> SingleValue(Recordset& portSettingsRows, const PortSetting& setting);

/// How the weight is to be read, from the rows of `PortSettings`: direction, length (only with a
/// direction), reversal, in this order. A direction that is missing or doubled is absent, a Null
/// counts as left; a missing length or reversal fails (3021), and so does a Null (94), of doubled
/// ones the first counts. The length is read leniently; a reversal that is no number fails (13).
/// Leaves the recordset filtered.
LiveReading ReadLiveReading(Recordset& portSettingsRows);

} // namespace Quillane
