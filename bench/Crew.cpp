#include "Crew.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <sstream>
#include <stdexcept>

namespace Quillane {

Crew::Crew(const std::string& program, const std::string& kind, const std::string& connectionString,
           int size) {
    for (int number = 1; number <= size; ++number) {
        int orders[2];
        int reports[2];
        if (pipe2(orders, O_CLOEXEC) != 0 || pipe2(reports, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipes for the crew");
        const std::string name = kind + std::to_string(number);
        const int process = fork();
        if (process == 0) {
            dup2(orders[0], STDIN_FILENO);
            dup2(reports[1], STDOUT_FILENO);
            execl(program.c_str(), program.c_str(), kind.c_str(), name.c_str(),
                  connectionString.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        close(orders[0]);
        close(reports[1]);
        members_.push_back({process, fdopen(orders[1], "w"), fdopen(reports[0], "r")});
    }
    for (const Member& member : members_)
        Listen(member, "ready");
}

Crew::~Crew() {
    for (const Member& member : members_) {
        std::fclose(member.orders);
        std::fclose(member.reports);
        waitpid(member.process, nullptr, 0);
    }
}

void Crew::Listen(const Member& member, const std::string& lastWord) {
    char line[256];
    while (std::fgets(line, sizeof line, member.reports)) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word == lastWord)
            return;
        Save save;
        int refusals = 0;
        words >> save.driver >> save.id >> refusals;
        saves_.push_back(save);
        refusals_ += refusals;
    }
    throw std::runtime_error("a process of the crew has ended early");
}

double Crew::Work(int savesEach) {
    const auto start = std::chrono::steady_clock::now();
    for (const Member& member : members_) {
        std::fprintf(member.orders, "%d\n", savesEach);
        std::fflush(member.orders);
    }
    for (const Member& member : members_)
        Listen(member, "done");
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
    return savesEach * static_cast<double>(members_.size()) / time.count();
}

} // namespace Quillane
