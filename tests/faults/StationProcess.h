#pragma once

#include "platform/forms/core/Text.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillane::Testing {

/// A station in a process of its own, as station/Main.cpp describes it.
class StationProcess {
public:
    static constexpr int Patience = 60'000;

    /// Waits until it is ready for orders.
    StationProcess(const std::string& connectionString, const std::string& name) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(FAULTS_STATION, {ToQt(connectionString), ToQt(name)});
        EXPECT_EQ(NextLine(), "ready");
    }
    ~StationProcess() {
        process_.closeWriteChannel();
        if (!process_.waitForFinished(Patience))
            process_.kill();
    }

    void Order(const char* order) {
        process_.write((std::string(order) + "\n").c_str());
        process_.waitForBytesWritten(Patience);
    }
    /// What it writes next; empty at its end.
    std::string NextLine() {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(Patience))
                return {};
        return FromQt(QString::fromUtf8(process_.readLine()).trimmed());
    }
    /// Everything up to the end of the order, that left out.
    std::vector<std::string> LinesOfOrder() {
        std::vector<std::string> lines;
        for (std::string line; (line = NextLine()) != "done";) {
            if (line.empty()) {
                ADD_FAILURE() << "the station has ended";
                break;
            }
            lines.push_back(line);
        }
        return lines;
    }

private:
    QProcess process_;
};

} // namespace Quillane::Testing
