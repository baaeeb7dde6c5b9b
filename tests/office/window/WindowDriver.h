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

/// Works shown windows by keys, which go to the widget that has the focus in the window. A window
/// over which a dialog has closed is first made the active one again, as the window system does.
void Press(QWidget& window, QKeyCombination key);
inline void Press(QWidget& window, Qt::Key key) {
    Press(window, QKeyCombination(key));
}
/// Types an ASCII text.
void Type(QWidget& window, std::string_view text);

/// Shows a window and waits until it is there.
void ShowWindow(QWidget& window);

/// No button or label of the window is too small for its text. With a folder in QUILLANE_PICTURES a
/// picture of the window is saved there under this name.
void LookAt(QWidget& window, const std::string& name);

/// Acts inside the next dialog or box that comes up, once it is shown. One that the act leaves open
/// is closed, and fails the test; so does a visit that never took place. Visits nest: one for a box
/// over the dialog is made inside the act.
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

/// Answers the boxes that come up, one after the other, each by its button with this caption. One
/// that does not come up fails the test.
class Answers {
public:
    explicit Answers(std::vector<std::string> buttons);
    ~Answers();
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    /// The texts of the boxes, in their order.
    const std::vector<std::string>& Texts() const { return texts_; }

private:
    void Look();

    std::vector<std::string> buttons_;
    std::vector<std::string> texts_;
    QPointer<QWidget> answered_;
    QTimer timer_;
};

} // namespace Quillane::Office
