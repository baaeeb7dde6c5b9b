#pragma once

#include "setup/EmbeddedSchema.h"

#include <array>
#include <string>

namespace Quillane {

/// One of the company's particulars: its key in `Project_Registry`, what a person calls it, and
/// where a new database's is.
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
