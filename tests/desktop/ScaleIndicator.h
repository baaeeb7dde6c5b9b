#pragma once

#include <QProcess>

#include <string>

namespace Quillane::Testing {

/// A weighing indicator on a separate line, with a link to it: the tool, as a process that
/// ends with this object.
class ScaleIndicator {
public:
    ScaleIndicator(const std::string& link, int kilograms);
    ~ScaleIndicator();
    ScaleIndicator(const ScaleIndicator&) = delete;
    ScaleIndicator& operator=(const ScaleIndicator&) = delete;

    /// Gives a command of the tool ("weight 4320", "silence") and waits until it is done.
    void Command(const std::string& command);

private:
    bool WaitForAnswer(const QByteArray& start);

    QProcess tool_;
    QByteArray answers_;
};

} // namespace Quillane::Testing
