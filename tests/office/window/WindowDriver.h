#pragma once

#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Quillane::Office {

/// Operates shown windows by keys, which go to the widget that has the focus in the window. A
/// window over which a dialog has closed is first made the active one again, as the window system
/// does.
void Press(QWidget& window, QKeyCombination key);
inline void Press(QWidget& window, Qt::Key key) {
    Press(window, QKeyCombination(key));
}
/// Types an ASCII text.
void Type(QWidget& window, std::string_view text);

/// Shows a window and waits until it is shown.
void ShowWindow(QWidget& window);

/// Checks that no button or label of the window is too small for its text. If QUILLANE_PICTURES
/// names a folder, saves a picture of the window there under this name.
void LookAt(QWidget& window, const std::string& name);

/// Acts inside the next dialog or box after it is shown. If the act leaves it open, or if no dialog
/// is shown, the test fails. Visits nest: one for a box over the dialog is created inside the act.
class Visit {
public:
    explicit Visit(std::function<void(QDialog&)> act);
    ~Visit();
    Visit(const Visit&) = delete;
    Visit& operator=(const Visit&) = delete;

private:
    void Look();

    std::function<void(QDialog&)> act_;
    QWidget* below_;
    QTimer timer_;
    bool tookPlace_ = false;
};

/// Answers the next boxes, one after the other, each by its button with this caption. If a box is
/// not shown, the test fails.
class Answers {
public:
    explicit Answers(std::vector<std::string> buttons);
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    /// The texts of the boxes, in order.
    const std::vector<std::string>& Texts() const { return texts_; }

private:
    void Look();

    std::vector<std::string> buttons_;
    std::vector<std::string> texts_;
    QPointer<QWidget> answered_;
    QTimer timer_;
};

} // namespace Quillane::Office
