#pragma once

#include "platform/forms/core/Text.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Quillane::Testing {

/// A station in another process; station/Main.cpp describes its orders and answers.
class StationProcess {
public:
    static constexpr int Patience = 60'000;

    /// Waits until the station is ready for orders.
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
    /// The next line that it writes; empty when it has ended.
    std::string NextLine() {
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(Patience))
                return {};
        return FromQt(QString::fromUtf8(process_.readLine()).trimmed());
    }
    /// The lines up to the end of the order, without the line "done".
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
