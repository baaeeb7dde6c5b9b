#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// What the guide to indicators advises for one layout of the try-out indicator.
struct Advice {
    std::string example; ///< 12540 kg at rest, in the guide's notation
    std::string direction, length, reversed;
    int right = 0; ///< of 100 looks of the weighment screen
    int rightAtMost = 0;
    int leastWeight = 0; ///< from which on; nothing is shown below
    bool usable = true;
    std::string benchNotModified, benchModified; ///< of 12540 kg
    int benchRight = 0;                          ///< of 100 looks of the bench
};

/// Bytes as the guide writes them: what cannot be seen by its name, <STX> or <80>.
std::string Notation(const std::string& bytes);

/// By the layout's name, from the tables of docs/indicators.md.
std::map<std::string, Advice> AdviceOfTheGuide();

/// Of 100 readings of an indicator that pauses so long between its frames, those that are wrong
/// when the port is not read in whole bursts, by the line's rate.
std::map<std::chrono::milliseconds, std::map<int, int>> WrongOfPauses();

/// One frame as the tool writes it.
struct Frame {
    int weight = 0;
    bool moving = false;
    std::string bytes;
};

/// Every layout that the tool knows, with frames of these weights, at rest and moving.
std::map<std::string, std::vector<Frame>> FramesOfTheTool(const std::vector<int>& weights);

} // namespace Quillane::Testing
