#include "Apart.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <exception>

namespace Quillane {

bool RunApart(const std::function<void()>& act) {
    std::fflush(stdout);
    const int child = fork();
    if (child == 0) {
        try {
            act();
        } catch (const std::exception& failure) {
            std::fprintf(stderr, "%s\n", failure.what());
            _exit(1);
        }
        std::fflush(stdout);
        _exit(0);
    }
    int status = -1;
    return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

} // namespace Quillane
