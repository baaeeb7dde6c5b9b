#pragma once

#include "platform/ado/odbc/OdbcHandle.h"

#include <string>
#include <string_view>
#include <vector>

/// Text in the encoding of the driver manager: UTF-16, for every locale.
namespace Quillane {

using OdbcText = std::vector<SQLWCHAR>;

/// The text in UTF-16, with a terminating zero that is included in its size. A byte
/// that begins no character becomes the replacement character.
OdbcText ToOdbc(std::string_view utf8);

/// Appends the text in UTF-8. Half a pair becomes the replacement character.
void AppendUtf8(std::string& utf8, const SQLWCHAR* text, std::size_t length);
std::string FromOdbc(const SQLWCHAR* text, std::size_t length);

} // namespace Quillane
