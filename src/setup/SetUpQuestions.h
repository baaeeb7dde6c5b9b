#pragma once

#include "platform/forms/controls/TextBox.h"
#include "setup/CompanyParticulars.h"
#include "setup/SqlServerPlace.h"

#include <string>
#include <vector>

/// What the set-up asks and reports in boxes.
namespace Quillane {

inline constexpr const char* SetUpTitle = "Set up the station";

void TellAlert(const std::string& text);

/// Whether the database that is at this place already is to be used as it is.
bool AskToUse(const std::string& where, const std::string& companyName, long arrivals, long users);

/// The particulars that a database holds and that were entered differently.
std::vector<const CompanyParticular*> ReplacedParticulars(const NewDatabase& entered,
                                                          const NewDatabase& stored);
bool AskToReplace(const std::vector<const CompanyParticular*>& replaced, const NewDatabase& entered,
                  const NewDatabase& stored);

void TellRowsNotAdded(const std::vector<std::string>& rows);

std::string WhereOnServer(const SqlServerPlace& place);

/// The text of a box without blanks around it.
std::string Trimmed(const TextBox& box);

} // namespace Quillane
