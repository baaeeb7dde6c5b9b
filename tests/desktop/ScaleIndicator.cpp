#include "ScaleIndicator.h"

#include "Operator.h"
#include "platform/forms/core/Text.h"

#include <QDeadlineTimer>

#include <gtest/gtest.h>

namespace Quillane::Testing {

ScaleIndicator::ScaleIndicator(const std::string& link, int kilograms) {
    tool_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool_.start(INDICATOR_TOOL,
                {"--link", ToQt(link), "--weight", QString::number(kilograms), "--seed", "1"});
    EXPECT_TRUE(WaitForAnswer("ready")) << "The indicator did not start";
}

ScaleIndicator::~ScaleIndicator() {
    tool_.write("quit\n");
    if (!tool_.waitForFinished(5000)) {
        tool_.kill();
        tool_.waitForFinished();
    }
}

void ScaleIndicator::Command(const std::string& command) {
    tool_.write(QByteArray::fromStdString(command + "\n"));
    EXPECT_TRUE(WaitForAnswer("ok " + QByteArray::fromStdString(command)))
        << command << ": " << answers_.toStdString();
}

bool ScaleIndicator::WaitForAnswer(const QByteArray& start) {
    const QDeadlineTimer end(Patience);
    answers_.clear();
    while (!answers_.startsWith(start) || !answers_.endsWith('\n')) {
        if (end.hasExpired() || !tool_.waitForReadyRead(static_cast<int>(end.remainingTime())))
            return false;
        answers_ += tool_.readAllStandardOutput();
    }
    return true;
}

} // namespace Quillane::Testing
