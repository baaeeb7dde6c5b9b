#include "setup/SchemaMessages.h"

#include "platform/runtime/Numbers.h"
#include "setup/SchemaUpgrade.h"

namespace Quillane {

std::string NewerSchemaText(double version, const std::string& what) {
    return "The schema version of " + what + " is " + NumberText(version) +
           ", newer than that of this program (" + NumberText(SchemaVersionOfProgram()) +
           "). Nothing was changed. Install the newer program.";
}

std::string UnreadableSchemaText(const std::string& what) {
    return "The schema version of " + what +
           " cannot be read: the table StationSchema must contain one row with a number. "
           "Nothing was changed.";
}

std::string OlderSchemaText(double version) {
    return "The schema version of the database is " + NumberText(version) +
           "; this program needs " + NumberText(SchemaVersionOfProgram()) + ".";
}

} // namespace Quillane
