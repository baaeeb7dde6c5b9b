#include "data/Con.h"

namespace Quillane {

std::unique_ptr<Connection> Con;

} // namespace Quillane
