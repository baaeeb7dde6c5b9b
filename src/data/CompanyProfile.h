#pragma once

#include "data/Service.h"

#include <string>

namespace Quillane {

class Connection;

/// The name and address of the company, which the slip shows, and the conversion to mounds.
class CompanyProfileObject {
public:
    void SetConnection(Connection& connection);
    /// Reads all texts from `Project_Registry`; the text of a missing row is empty. Requires:
    /// `SetConnection` has been called.
    void Load();
    const std::string& CompanyEmail() const { return email_; }
    const std::string& CompanyPhone() const { return phone_; }
    const std::string& CompanyAddress() const { return address_; }
    const std::string& CompanyTitle() const { return title_; }

    /// Formats a weight in kilograms as whole mounds, a hyphen and the remaining kilograms: 8100
    /// and 40 give "202-20". A negative weight has one leading minus: "-1-0". The weight is first
    /// rounded to whole kilograms, ties to even. A mound is 40 kg in the wheat trade. Errors:
    /// division by zero (11) or overflow (6) if `kgsPerMound` is 0.
    std::string MoundKgsText(double weight, double kgsPerMound) const;

private:
    Connection* connection_ = nullptr;
    std::string email_, phone_, address_, title_;
};

extern Service<CompanyProfileObject> CompanyProfile;

} // namespace Quillane
