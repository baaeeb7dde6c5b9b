#pragma once

#include "platform/forms/core/Boxes.h"
#include "weighment/FrmWeighment.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace Quillane {

/// Creates the tables and sample rows in the database of the connection string.
void MakeStationDatabase(const std::string& connectionString);

/// The weighment screen of a station on a database server. Message boxes are answered
/// automatically. Requires: at most one object exists.
class ServerStation {
public:
    explicit ServerStation(const std::string& connectionString);
    ~ServerStation();
    ServerStation(const ServerStation&) = delete;
    ServerStation& operator=(const ServerStation&) = delete;

    /// Enters a weighment of three bag lines with the shown id or a typed one. The driver name is
    /// unique.
    void Enter(const std::string& driver, int id = 0);
    /// Presses the save button once. Returns false if the save was refused because another station
    /// has used the id or caused a conflict; any other refusal is a failure.
    bool TrySave();
    /// Opens a stored weighment by typing its id and leaving the box.
    void Open(int id);

    /// Turns off the painting of the screen.
    void StopPainting();

    FrmWeighment& Screen() { return *screen_; }
    std::int32_t SavedId() const { return savedId_; }
    /// The time of the last save, from the click to the commit.
    std::chrono::duration<double> Time() const { return committed_ - pressed_; }
    /// Called when a weighment has been committed.
    std::function<void()> Committed;

private:
    void LeaveTheId();
    BoxAnswer Answer(const Box& box);

    int line_[2] = {-1, -1}; ///< the ends of the serial line: indicator and station
    std::unique_ptr<FrmWeighment> screen_;
    std::chrono::steady_clock::time_point pressed_;
    std::chrono::steady_clock::time_point committed_;
    std::int32_t savedId_ = 0;
};

} // namespace Quillane
