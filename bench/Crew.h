#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace Quillane {

/// Several processes of one program that make saves at the same time.
class Crew {
public:
    /// A save as reported by its process.
    struct Save {
        std::string driver;
        int id = 0;
    };

    /// Each process is started as `program kind name connectionString` and prints "ready". It then
    /// reads numbers of saves; for each number it prints every save as "saved driver id refusals",
    /// then "done".
    Crew(const std::string& program, const std::string& kind, const std::string& connectionString,
         int size);
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Each process makes this number of saves. Returns the total number of saves per second.
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
