#pragma once

#include "platform/forms/core/Boxes.h"
#include "weighment/FrmWeighment.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace Quillane {

/// The system's tables and sample rows, made in the database that the connection string names.
void MakeStationDatabase(const std::string& connectionString);

/// The screen of a station on a database server, with nobody before it: boxes are answered at once.
/// One stands at a time.
class ServerStation {
public:
    explicit ServerStation(const std::string& connectionString);
    ~ServerStation();
    ServerStation(const ServerStation&) = delete;
    ServerStation& operator=(const ServerStation&) = delete;

    /// Enters a weighment of three bag lines, under the shown id or one that is typed. The driver's
    /// name tells it from all others.
    void Enter(const std::string& driver, int id = 0);
    /// Presses the button once. False where the save was refused since another station has taken
    /// the id or has got in its way; any other refusal is a failure.
    bool TrySave();
    /// Opens a stored weighment as typing its id and leaving the box does.
    void Open(int id);

    /// The screen does all of its work but to paint itself.
    void StopPainting();

    FrmWeighment& Screen() { return *screen_; }
    std::int32_t SavedId() const { return savedId_; }
    /// Of the last save, from the click to the commit.
    std::chrono::duration<double> Time() const { return committed_ - pressed_; }
    /// Runs as soon as a weighment is committed.
    std::function<void()> Committed;

private:
    void LeaveTheId();
    BoxAnswer Answer(const Box& box);

    int line_[2] = {-1, -1}; ///< of the indicator: its end and the station's
    std::unique_ptr<FrmWeighment> screen_;
    std::chrono::steady_clock::time_point pressed_;
    std::chrono::steady_clock::time_point committed_;
    std::int32_t savedId_ = 0;
};

} // namespace Quillane
