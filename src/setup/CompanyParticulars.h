#pragma once

#include "setup/EmbeddedSchema.h"

#include <array>
#include <string>

namespace Quillane {

/// One text about the company: its key in `Project_Registry`, its caption and its member of
/// `NewDatabase`.
struct CompanyParticular {
    const char* key;
    const char* caption;
    std::string NewDatabase::*text;
};

inline constexpr std::array<CompanyParticular, 4> CompanyParticulars{{
    {"CompanyName", "Company name", &NewDatabase::companyName},
    {"CompanyAddress", "Address", &NewDatabase::companyAddress},
    {"CompanyPhone", "Phone", &NewDatabase::companyPhone},
    {"CompanyEmail", "E-mail", &NewDatabase::companyEmail},
}};

} // namespace Quillane
