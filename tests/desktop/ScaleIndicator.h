#pragma once

#include <QProcess>

#include <string>

namespace Quillane::Testing {

/// A weighing indicator on its own line, with a link to the device: the tool, as a process that
/// ends with this object.
class ScaleIndicator {
public:
    ScaleIndicator(const std::string& link, int kilograms);
    ~ScaleIndicator();
    ScaleIndicator(const ScaleIndicator&) = delete;
    ScaleIndicator& operator=(const ScaleIndicator&) = delete;

    /// Gives the tool a command ("weight 4320", "silence") and waits until it has been carried out.
    void Command(const std::string& command);

private:
    bool WaitForAnswer(const QByteArray& start);

    QProcess tool_;
    QByteArray answers_;
};

} // namespace Quillane::Testing
