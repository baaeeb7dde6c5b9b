#pragma once

#include "data/CompanyProfile.h"
#include "data/DatabaseSetup.h"
#include "data/UserLogin.h"

#include <memory>

namespace Quillane {

/// A global service object: made the first time anything touches it, gone with `Release`.
template <typename Object>
class Service {
public:
    Object* operator->() {
        if (!object_)
            object_ = std::make_unique<Object>();
        return object_.get();
    }
    void Release() { object_.reset(); }
    bool Exists() const { return object_ != nullptr; }

private:
    std::unique_ptr<Object> object_;
};

extern Service<UserLoginObject> UserLogin;
extern Service<CompanyProfileObject> CompanyProfile;
extern Service<DatabaseSetupObject> DatabaseSetup;

} // namespace Quillane
