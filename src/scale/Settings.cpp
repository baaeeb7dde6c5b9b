#include "scale/Settings.h"

#include "platform/ado/Recordset.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

namespace Quillane {

namespace {

Value FirstValue(Recordset& rows, const PortSetting& setting) {
    rows.SetFilter(setting.filter);
    return rows.Fields("RegistryValue");
}

/// The value if there is exactly one row.
std::optional<Value> ValueOfSingleRow(Recordset& rows, const PortSetting& setting) {
    rows.SetFilter(setting.filter);
    if (rows.RecordCount() != 1)
        return std::nullopt;
    return rows.Fields("RegistryValue");
}

std::string FirstLetterInLowerCase(std::string_view text) {
    std::string letter(text.substr(0, 1));
    for (char& c : letter)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return letter;
}

} // namespace

std::string UpdateStatement(const PortSetting& setting, std::string_view value) {
    std::string statement = "Update PortSettings set RegistryValue='";
    return statement.append(value).append(setting.updateClose);
}

std::string ComposeLineSettings(std::string_view rate, std::string_view parity,
                                std::string_view dataBits, std::string_view stopBits) {
    std::string settings(Trim(rate));
    settings.append(",").append(FirstLetterInLowerCase(parity));
    settings.append(",").append(Trim(dataBits));
    return settings.append(",").append(Trim(stopBits));
}

std::optional<std::string> SingleValue(Recordset& portSettingsRows, const PortSetting& setting) {
    const auto value = ValueOfSingleRow(portSettingsRows, setting);
    return value ? std::optional(value->Text()) : std::nullopt;
}

LiveReading ReadLiveReading(Recordset& portSettingsRows) {
    LiveReading reading;
    // The direction is only compared with "Right", so a Null means left.
    if (const auto direction = ValueOfSingleRow(portSettingsRows, DirectionSetting))
        reading.direction = direction->TextOrEmpty();
    if (reading.direction)
        reading.length = Val(FirstValue(portSettingsRows, LengthSetting).Text());
    reading.reversed = FirstValue(portSettingsRows, ReversalSetting).Number() == 1;
    return reading;
}

} // namespace Quillane
