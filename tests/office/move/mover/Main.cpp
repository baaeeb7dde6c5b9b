// Moves a station's database to a PostgreSQL server:
//   MoveToPostgres STATION-FOLDER CONNECTION-STRING

#include "../PostgresTarget.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/LongWork.h"

#include <iostream>

int main(int, char** argv) {
    using namespace Quillane;
    using namespace Quillane::Office;
    const std::string folder = argv[1];
    const std::string database = folder + "/Account1.db";
    LongWork work;
    try {
        const PostgresTarget target(database, argv[2], folder);
        Move(
            folder, database, [&](LongWork&) { return target.Connect(); }, work);
        return 0;
    } catch (const Failure& failure) {
        std::cerr << failure.Description() << "\n";
        return 1;
    }
}
