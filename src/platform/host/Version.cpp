#include "platform/host/Version.h"

namespace Quillane {

std::string_view QuillaneVersion() {
    return QUILLANE_VERSION;
}

} // namespace Quillane
