#include "data/CompanyProfile.h"

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/Text.h"

#include <cmath>

namespace Quillane {

Service<CompanyProfileObject> CompanyProfile;

void CompanyProfileObject::SetConnection(Connection& connection) {
    connection_ = &connection;
}

void CompanyProfileObject::Load() {
    if (!connection_)
        Fail(FailureNumber::InvalidCall);
    title_ = address_ = phone_ = email_ = {};
    Recordset rows = connection_->Execute("Select registrykey, value From Project_Registry");
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string key = rows.Fields("registrykey").TextOrEmpty();
        const std::string value = rows.Fields("value").TextOrEmpty();
        if (EqualIgnoringCase(key, "CompanyName"))
            title_ = value;
        else if (EqualIgnoringCase(key, "CompanyAddress"))
            address_ = value;
        else if (EqualIgnoringCase(key, "CompanyPhone"))
            phone_ = value;
        else if (EqualIgnoringCase(key, "CompanyEmail"))
            email_ = value;
    }
}

std::string CompanyProfileObject::MoundKgsText(double weight, double kgsPerMound) const {
    const double kilograms = std::fabs(RoundWeight(weight));
    double mounds = std::floor(Divide(kilograms, kgsPerMound));
    double rest = RoundWeight(kilograms - mounds * kgsPerMound);
    // If a mound has a fraction of a kilogram, the rest may round up to a whole mound.
    if (rest >= kgsPerMound) {
        mounds += 1;
        rest = 0;
    }
    const bool negative = RoundWeight(weight) < 0;
    return (negative ? "-" : "") + WeightText(mounds) + "-" + WeightText(rest);
}

} // namespace Quillane
