#pragma once

#include "platform/forms/controls/TextBox.h"
#include "setup/CompanyParticulars.h"
#include "setup/SqlServerTarget.h"

#include <string>
#include <vector>

/// The questions and reports of the set-up in boxes.
namespace Quillane {

inline constexpr const char* SetupTitle = "Set up the station";

void ShowAlert(const std::string& text);

/// Asks whether to use the database at this location without changes.
bool AskToUse(const std::string& where, const std::string& companyName, long arrivals, long users);

/// The particulars that differ from those in the database.
std::vector<const CompanyParticular*> ReplacedParticulars(const NewDatabase& entered,
                                                          const NewDatabase& stored);
bool AskToReplace(const std::vector<const CompanyParticular*>& replaced, const NewDatabase& entered,
                  const NewDatabase& stored);

void ReportRowsNotAdded(const std::vector<std::string>& rows);

std::string LocationOnServer(const SqlServerTarget& target);

/// The text of a box without blanks at its ends.
std::string Trimmed(const TextBox& box);

} // namespace Quillane
