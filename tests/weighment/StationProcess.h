#pragma once

#include "platform/forms/core/Text.h"
#include "weighment/WeighmentFixture.h"

#include <QProcess>

#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace Quillane::Testing {

/// A station in its own process; station/Main.cpp describes it.
class Station {
public:
    static constexpr int Patience = 60'000;

    Station(const StationDatabase& database, std::string name, std::string party, int bagLines,
            int actions, std::optional<unsigned> seed = {})
        : name_(std::move(name)), party_(std::move(party)), bagLines_(bagLines) {
        QStringList orders{
            ToQt(database.folder.path), ToQt(database.ConfigText()), ToQt(name_), ToQt(party_),
            QString::number(bagLines),  QString::number(actions)};
        if (seed)
            orders.append(QString::number(*seed));
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(WEIGHMENT_STATION, orders);
        EXPECT_EQ(NextLine(), "ready");
    }
    void Go() { Write("go"); }
    /// The next line that it writes; empty at its end.
    std::string NextLine() {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(Patience))
                return {};
        return FromQt(QString::fromUtf8(process_.readLine()).trimmed());
    }
    /// Records its lines up to its end or up to this number of saves.
    void Listen(std::size_t saves = SIZE_MAX) {
        const std::size_t enough = saves == SIZE_MAX ? saves : saves_.size() + saves;
        for (std::string text; saves_.size() < enough && !(text = NextLine()).empty();)
            TakeDown(text);
    }
    void ExpectGoodEnd() {
        EXPECT_TRUE(process_.state() == QProcess::NotRunning || process_.waitForFinished(Patience));
        EXPECT_EQ(process_.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process_.exitCode(), 0);
    }
    /// Kills it, like a power failure.
    void Kill() {
        process_.kill();
        process_.waitForFinished(Patience);
    }

    // For a caller that listens to several stations.

    bool HasLine() const { return process_.canReadLine(); }
    bool HasEnded() const { return process_.state() == QProcess::NotRunning && !HasLine(); }
    QProcess& Process() { return process_; }
    /// Answers its current question.
    void AnswerYes() { Write("yes"); }
    /// Records one line and returns its kind.
    std::string TakeDown(const std::string& text) {
        std::istringstream words(text);
        std::string word, driver;
        int id = 0;
        words >> word >> id >> driver;
        if (word == "saved") {
            saved_[id] = std::stoi(driver);
            saves_.emplace(id, std::stoi(driver));
        } else if (word == "asks") {
            asked_ = {id, driver};
        } else if (word == "removed") {
            removed_.emplace_back(id, driver);
        } else if (word == "missed") {
            ++missed_;
        } else if (word == "box") {
            boxes_.push_back(text);
        }
        return word;
    }

    const std::string& Name() const { return name_; }
    const std::string& Party() const { return party_; }
    int BagLines() const { return bagLines_; }
    const std::map<int, int>& Saved() const { return saved_; } ///< last serial by id
    /// Every save, also those that were overwritten or removed since: id and serial.
    const std::set<std::pair<int, int>>& Saves() const { return saves_; }
    /// An arrival by its id and its driver, which identifies its save.
    using Load = std::pair<int, std::string>;
    const std::vector<Load>& Removed() const { return removed_; }
    const Load& LastAsked() const { return asked_; }
    int Missed() const { return missed_; }
    const Lines& Boxes() const { return boxes_; }

private:
    void Write(const char* text) {
        process_.write(text);
        process_.write("\n");
        process_.waitForBytesWritten(Patience);
    }

    QProcess process_;
    std::string name_, party_;
    int bagLines_;
    std::map<int, int> saved_;
    std::set<std::pair<int, int>> saves_;
    std::vector<Load> removed_;
    Load asked_;
    int missed_ = 0;
    Lines boxes_;
};

/// The box of a station that was second with its number.
inline const std::string ClashBox =
    "box The Arrival ID already exists. A new Arrival ID has been generated. Please save your "
    "record again";

/// The box that it may show on SQL Server instead, if both have written before either checked
/// again.
inline const std::string KeyBox = "box " + EngineWords("");

/// Checks that the file of an embedded database is consistent and that no row refers to a missing
/// one. A server ensures this itself.
inline void ExpectSound(const StationDatabase& database) {
    if (OnSqlServer())
        return;
    EXPECT_EQ(database.Rows("PRAGMA integrity_check").at(0).at(0).Text(), "ok");
    EXPECT_TRUE(database.Rows("PRAGMA foreign_key_check").empty());
}

} // namespace Quillane::Testing
