#include "data/Services.h"

namespace Quillane {

Service<UserLoginObject> UserLogin;
Service<CompanyProfileObject> CompanyProfile;
Service<DatabaseSetupObject> DatabaseSetup;

} // namespace Quillane
