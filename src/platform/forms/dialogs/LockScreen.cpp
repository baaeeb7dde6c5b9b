#include "platform/forms/dialogs/LockScreen.h"

#include "platform/forms/core/Boxes.h"
#include "platform/forms/core/Pointer.h"
#include "platform/forms/core/Text.h"

#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QProgressBar>
#include <QTimer>

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace Quillane {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds step{20};
/// A shorter wait shows no window, to avoid a flicker.
constexpr milliseconds untilWindow{400};

int shownLockScreens = 0;

/// Painting a window may read rows of the database.
class UnpaintedWindows {
public:
    UnpaintedWindows() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->updatesEnabled()) {
                window->setUpdatesEnabled(false);
                windows_.emplace_back(window);
            }
    }
    ~UnpaintedWindows() {
        for (const auto& window : windows_)
            if (window)
                window->setUpdatesEnabled(true);
    }
    UnpaintedWindows(const UnpaintedWindows&) = delete;
    UnpaintedWindows& operator=(const UnpaintedWindows&) = delete;

private:
    std::vector<QPointer<QWidget>> windows_;
};

class ShownWait : public LockWait {
public:
    explicit ShownWait(std::string_view whatFollows) : whatFollows_(whatFollows) {}
    ~ShownWait() override { shownLockScreens -= window_ ? 1 : 0; }

    bool GoOn(milliseconds waited) override {
        if (waited < untilWindow) {
            std::this_thread::sleep_for(step);
            return true;
        }
        if (!window_)
            Open();
        LetEventsPass();
        return !window_->IsCancelled;
    }

private:
    void Open() {
        hourglass_.reset();
        others_.emplace();
        window_ = std::make_unique<LockScreen>(whatFollows_);
        ++shownLockScreens;
        window_->Show();
    }

    static void LetEventsPass() {
        QEventLoop loop;
        QTimer::singleShot(step, &loop, &QEventLoop::quit);
        loop.exec();
    }

    std::string whatFollows_;
    std::optional<Hourglass> hourglass_{std::in_place};
    std::optional<UnpaintedWindows> others_;
    std::unique_ptr<LockScreen> window_;
};

} // namespace

std::unique_ptr<LockWait> WaitWithLockScreen(std::string_view whatFollows) {
    return std::make_unique<ShownWait>(whatFollows);
}

bool IsLockScreenShown() {
    return shownLockScreens > 0;
}

LockScreen::LockScreen(std::string_view whatFollows)
    : CancelScreen("LockScreen", ProgramTitle(), "Please wait") {
    Text.setText(ToQt("Another station or program has locked the database. " +
                      std::string(whatFollows) + " as soon as the lock is released."));
    Progress.setRange(0, 0);
}

// `Show` makes a screen that is not modal, as at the start, where no other window is shown.
// Otherwise the other windows must take no input.
void LockScreen::setVisible(bool visible) {
    const auto windows = QApplication::topLevelWidgets();
    if (visible && std::ranges::any_of(windows, &QWidget::isVisible))
        setWindowModality(Qt::ApplicationModal);
    Screen::setVisible(visible);
}

void LockScreen::BtnCancel_Click() {
    IsCancelled = true;
    BtnCancel.SetEnabled(false);
}

} // namespace Quillane
