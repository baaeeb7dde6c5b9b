#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <string>
#include <string_view>
#include <vector>

/// Texts as the driver takes and gives them: UTF-16, whatever the station's language setting.
namespace Quillane {

using OdbcText = std::vector<SQLWCHAR>;

/// The text in UTF-16, with a closing zero behind it that its size does not leave out. A byte
/// that begins no character becomes the replacement character.
OdbcText ToOdbc(std::string_view utf8);

/// Appends the text in UTF-8. Half a pair becomes the replacement character.
void AppendUtf8(std::string& utf8, const SQLWCHAR* text, std::size_t length);
std::string FromOdbc(const SQLWCHAR* text, std::size_t length);

} // namespace Quillane
