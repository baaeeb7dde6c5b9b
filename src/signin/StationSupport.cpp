#include "signin/StationSupport.h"

#include "data/EmbeddedFunctions.h"
#include "signin/UserLogin.h"

namespace Quillane {

EmbeddedSupport StationSupport(const std::string& folder) {
    return {.folder = folder,
            .registerFunctions = RegisterEmbeddedFunctions,
            .secret = {"StationUsers", "PasswordHash", ReadsUsers}};
}

} // namespace Quillane
