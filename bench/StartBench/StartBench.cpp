// The time from the start of a process to the first paint of its first window: for the station, an
// empty dialog program and a dialog with one word, in turn. The difference between the last two is
// the time to find the system fonts for the first text. The benchmark reads the middle of the
// screen of a bare X server, where the dialogs appear, until a pixel is no longer the black of the
// root window. The programs are not modified.
//
//     StartBench ROUNDS STATION EMPTY WORD

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

struct FreeReply {
    void operator()(void* reply) const { std::free(reply); }
};

/// The middle of the default display.
class MiddleOfScreen {
public:
    MiddleOfScreen() : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect) {
        if (xcb_connection_has_error(connection_.get()) != 0) {
            throw std::runtime_error("no X server: start one and set DISPLAY");
        }
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    }

    bool IsPainted() const {
        constexpr std::uint16_t side = 32;
        const auto left = static_cast<std::int16_t>((screen_->width_in_pixels - side) / 2);
        const auto top = static_cast<std::int16_t>((screen_->height_in_pixels - side) / 2);
        const auto cookie = xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP,
                                          screen_->root, left, top, side, side, 0xFFFFFFU);
        const std::unique_ptr<xcb_get_image_reply_t, FreeReply> reply(
            xcb_get_image_reply(connection_.get(), cookie, nullptr));
        if (!reply) {
            throw std::runtime_error("the X server has ended");
        }
        const auto* begin = xcb_get_image_data(reply.get());
        const auto* end = begin + xcb_get_image_data_length(reply.get());
        return std::any_of(begin, end, [](std::uint8_t byte) { return byte != 0; });
    }

private:
    std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection_;
    xcb_screen_t* screen_ = nullptr;
};

void WaitUntilPainted(const MiddleOfScreen& middle, bool painted) {
    const auto deadline = Clock::now() + std::chrono::seconds(20);
    while (middle.IsPainted() != painted) {
        if (Clock::now() > deadline) {
            throw std::runtime_error(painted ? "no window was shown" : "the window was not closed");
        }
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
}

double StartOnce(const MiddleOfScreen& middle, const std::string& program) {
    WaitUntilPainted(middle, false);
    std::array<char*, 2> arguments{const_cast<char*>(program.c_str()), nullptr};
    pid_t process = 0;
    const auto start = Clock::now();
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ) != 0) {
        throw std::runtime_error("cannot start " + program);
    }
    try {
        WaitUntilPainted(middle, true);
    } catch (...) {
        kill(process, SIGKILL);
        throw;
    }
    const Milliseconds taken = Clock::now() - start;
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return taken.count();
}

double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

struct Program {
    const char* name;
    std::string path;
    std::vector<double> times;
};

void Run(int rounds, Program& empty, Program& word, Program& station) {
    const MiddleOfScreen middle;
    for (Program* program : {&empty, &word, &station})
        StartOnce(middle, program->path); // fills the disk cache
    for (int round = 0; round < rounds; ++round)
        for (Program* program : {&empty, &word, &station})
            program->times.push_back(StartOnce(middle, program->path));
    std::printf("process start to first paint, median of %d in turn\n", rounds);
    for (const Program* program : {&empty, &word, &station})
        std::printf("  %-20s %7.2f ms (minimum %.2f)  %.2f times the empty dialog\n", program->name,
                    Median(program->times),
                    *std::min_element(program->times.begin(), program->times.end()),
                    Median(program->times) / Median(empty.times));
    std::printf("limit for the sign-in dialog: 1.5 times the empty dialog\n");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: %s ROUNDS STATION EMPTY WORD\n", argv[0]);
        return 2;
    }
    try {
        Program empty{"empty dialog", argv[3], {}};
        Program word{"dialog with a word", argv[4], {}};
        Program station{"sign-in dialog", argv[2], {}};
        Run(std::max(1, std::atoi(argv[1])), empty, word, station);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
