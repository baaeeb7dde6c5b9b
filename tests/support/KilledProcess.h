#pragma once

#include <gtest/gtest.h>

#include <QProcess>

namespace Quillane {

/// Kills a process and waits for its end. One that had ended by itself must have succeeded. What a
/// killed process has printed is not checked: a sanitizer that is killed during its last check
/// complains.
inline void Kill(QProcess& process) {
    process.kill();
    ASSERT_TRUE(process.waitForFinished(60'000));
    const bool hadEnded = process.exitStatus() == QProcess::NormalExit;
    ASSERT_TRUE(!hadEnded || process.exitCode() == 0)
        << process.readAllStandardError().toStdString();
}

} // namespace Quillane
