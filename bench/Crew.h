#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace Quillane {

/// Processes of one program that work at the same time on orders.
class Crew {
public:
    /// A save as the process that made it was told.
    struct Save {
        std::string driver;
        int id = 0;
    };

    /// Each is started as `program kind name connectionString` and says "ready". It then reads
    /// numbers of saves, and for each tells every save, as "saved driver id refusals", and "done".
    Crew(const std::string& program, const std::string& kind, const std::string& connectionString,
         int size);
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Each makes so many saves. Returns the saves of all in a second.
    double Work(int savesEach);

    const std::vector<Save>& Saves() const { return saves_; }
    int Refusals() const { return refusals_; }

private:
    struct Member {
        int process = 0;
        std::FILE* orders = nullptr;
        std::FILE* reports = nullptr;
    };
    void Listen(const Member& member, const std::string& lastWord);

    std::vector<Member> members_;
    std::vector<Save> saves_;
    int refusals_ = 0;
};

} // namespace Quillane
