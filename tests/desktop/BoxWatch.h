#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <string>
#include <vector>

class QMessageBox;

namespace Quillane::Testing {

/// Records every message box that is shown during its lifetime.
class BoxWatch : public QObject {
public:
    BoxWatch();
    ~BoxWatch() override;

    struct Seen {
        std::string title;
        std::string text;
    };
    /// All boxes that were shown, in order.
    const std::vector<Seen>& All() const { return all_; }
    /// The innermost open box; null if there is none.
    QMessageBox* Up() const;
    /// The largest number of boxes that were open at the same time.
    std::size_t CountUp() const { return up_.size(); }
    std::size_t MostAtOnce() const { return mostAtOnce_; }
    /// The shortest time from the end of a box to the next one, in milliseconds; -1 before the
    /// second box.
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
