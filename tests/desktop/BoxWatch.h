#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <string>
#include <vector>

class QMessageBox;

namespace Quillane::Testing {

/// Records every message box that is really shown during its lifetime.
class BoxWatch : public QObject {
public:
    BoxWatch();
    ~BoxWatch() override;

    struct Seen {
        std::string title;
        std::string text;
    };
    /// All that came up, in order.
    const std::vector<Seen>& All() const { return all_; }
    /// The innermost box that is up; null where none is.
    QMessageBox* Up() const;
    /// How many are up at once.
    std::size_t CountUp() const { return up_.size(); }
    std::size_t MostAtOnce() const { return mostAtOnce_; }
    /// Milliseconds from the end of one to the next, the shortest of all; -1 before there are two.
    qint64 ShortestPause() const { return shortestPause_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::vector<Seen> all_;
    std::vector<QMessageBox*> up_;
    std::size_t mostAtOnce_ = 0;
    QElapsedTimer sinceLast_;
    qint64 shortestPause_ = -1;
};

} // namespace Quillane::Testing
