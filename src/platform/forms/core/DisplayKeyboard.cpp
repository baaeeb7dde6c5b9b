#include "platform/forms/core/DisplayKeyboard.h"

#include <QGuiApplication>
#include <QWidget>
#include <QWindow>

#include <algorithm>

#if QT_CONFIG(xcb)
#include <QDeadlineTimer>
#include <QThread>

#include <xcb/xcb.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#endif

namespace Quillane {

#if QT_CONFIG(xcb)

namespace {

xcb_connection_t* Server() {
    auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

QWindow* ProgramsWindow(xcb_window_t id) {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(
        windows, [id](const QWindow* each) { return each->handle() && each->winId() == id; });
    return found == windows.end() ? nullptr : *found;
}

QWindow* AnyWindowShown() {
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(
        windows, [](const QWindow* each) { return each->handle() && each->isVisible(); });
    return found == windows.end() ? nullptr : *found;
}

xcb_window_t KeyboardsWindow(xcb_connection_t& server) {
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
        xcb_get_input_focus_reply(&server, xcb_get_input_focus(&server), nullptr), &std::free);
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

/// An invisible window. KeysOfClosedWindows redirects the keys that are sent to it.
xcb_window_t WaitingWindow(xcb_connection_t& server) {
    static xcb_window_t id = XCB_NONE;
    if (id == XCB_NONE) {
        const xcb_screen_t& display = *xcb_setup_roots_iterator(xcb_get_setup(&server)).data;
        const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_KEY_PRESS |
                                                         XCB_EVENT_MASK_KEY_RELEASE};
        id = xcb_generate_id(&server);
        xcb_create_window(&server, XCB_COPY_FROM_PARENT, id, display.root, -1, -1, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT,
                          XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
        xcb_map_window(&server, id);
    }
    return id;
}

bool IsPrograms(xcb_connection_t& server, xcb_window_t id) {
    return ProgramsWindow(id) || id == WaitingWindow(server);
}

bool HasWindowManager(xcb_connection_t& server) {
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(&server)).data->root;
    const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> reply(
        xcb_get_window_attributes_reply(&server, xcb_get_window_attributes(&server, root), nullptr),
        &std::free);
    return reply && reply->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
}

// A window manager gives the keyboard to each new window. If the window is hidden at that moment,
// the manager takes the keyboard itself for a short time, and keys are lost.
void WaitUntilGiven(xcb_connection_t& server, xcb_window_t window) {
    constexpr std::chrono::milliseconds limit{
        300}; // in case the manager gives it to another window
    const QDeadlineTimer end(limit);
    xcb_window_t now = KeyboardsWindow(server);
    while (now != window && IsPrograms(server, now) && !end.hasExpired()) {
        QThread::msleep(1);
        now = KeyboardsWindow(server);
    }
}

} // namespace

void PassKeyboard(const QWidget& from, const QWidget* to) {
    xcb_connection_t* server = Server();
    if (!server)
        return;
    if (HasWindowManager(*server))
        WaitUntilGiven(*server, static_cast<xcb_window_t>(from.winId()));
    if (!IsPrograms(*server, KeyboardsWindow(*server)))
        return;
    const auto next = to ? static_cast<xcb_window_t>(to->winId()) : WaitingWindow(*server);
    // The server refuses this for a window that is not visible; that is ignored.
    const auto request =
        xcb_set_input_focus_checked(server, XCB_INPUT_FOCUS_PARENT, next, XCB_CURRENT_TIME);
    xcb_discard_reply(server, request.sequence);
}

bool KeysOfClosedWindows::nativeEventFilter(const QByteArray& kind, void* message,
                                            qintptr* /*result*/) {
    if (kind != "xcb_generic_event_t")
        return false;
    const auto type = static_cast<xcb_generic_event_t*>(message)->response_type & 0x7F;
    if (type == XCB_FOCUS_IN) {
        const QWindow* window = ProgramsWindow(static_cast<xcb_focus_in_event_t*>(message)->event);
        return window && !window->isVisible();
    }
    if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
        return false;
    auto& key = *static_cast<xcb_key_press_event_t*>(message);
    if (!ProgramsWindow(key.event)) {
        if (const QWindow* window = AnyWindowShown())
            key.event = static_cast<xcb_window_t>(window->winId());
    }
    return false;
}

#else

void PassKeyboard(const QWidget& /*from*/, const QWidget* /*to*/) {}

bool KeysOfClosedWindows::nativeEventFilter(const QByteArray& /*kind*/, void* /*message*/,
                                            qintptr* /*result*/) {
    return false;
}

#endif

} // namespace Quillane
