#pragma once

#include "data/Service.h"

#include <string>

namespace Quillane {

class Connection;

/// The company's particulars for the slip, and one conversion.
class CompanyProfileObject {
public:
    void SetConnection(Connection& connection);
    /// Reads the particulars from `Project_Registry`; a row that is missing leaves its text empty.
    void Load();
    const std::string& CompanyEmail() const { return email_; }
    const std::string& CompanyPhone() const { return phone_; }
    const std::string& CompanyAddress() const { return address_; }
    const std::string& CompanyTitle() const { return title_; }

    /// Whole mounds, a hyphen and the remaining kilograms: 8100 and 40 give "202-20"; a negative
    /// weight has one leading minus: "-1-0". The weight is first rounded to whole kilograms, ties
    /// to even. No kilograms to the mound is a division by zero.
    std::string MoundKgsText(double weight, double kgsPerMound) const;

private:
    Connection* connection_ = nullptr;
    std::string email_, phone_, address_, title_;
};

extern Service<CompanyProfileObject> CompanyProfile;

} // namespace Quillane
