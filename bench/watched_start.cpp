// Starts a program with a window, and measures it until it rests. Prints one line, values separated
// by tabs: milliseconds to the first mapped window, milliseconds of processor time until rest, the
// peak of resident memory in KiB, and the proportional memory at rest in KiB. Ends the program
// then.
//
//     watched_start PROGRAM [ARGUMENT ...]
//
// The window counts from its MapNotify: the X server sends it, so no polling delays it. At rest the
// program has used less than a millisecond of processor time within 300; that time is not counted.
#include <xcb/xcb.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <memory>
#include <poll.h>
#include <set>
#include <spawn.h>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace {

using Clock = std::chrono::steady_clock;
constexpr double startLimit = 30'000; ///< milliseconds; a program without a window has failed
constexpr double restPeriod = 300, restUse = 1, restLimit = 10'000; ///< milliseconds

[[noreturn]] void fail(const std::string& reason) {
    std::fprintf(stderr, "watched_start: %s\n", reason.c_str());
    std::exit(1);
}

double since(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// The processor time of all threads of a process, those that have ended included; milliseconds.
double processorTime(pid_t process) {
    clockid_t clock = 0;
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
        fail("the program ended before it was at rest");
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// A value in KiB of a file of /proc.
long kibibytes(pid_t process, const char* file, const std::string& key) {
    std::ifstream lines("/proc/" + std::to_string(process) + "/" + file);
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with(key + ":"))
            return std::atol(line.c_str() + key.size() + 1);
    fail("no " + key);
}

class Windows {
  public:
    Windows() : connection_(xcb_connect(nullptr, nullptr)) {
        if (xcb_connection_has_error(connection_))
            fail("no X server");
        select(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root,
               XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }
    ~Windows() { xcb_disconnect(connection_); }
    Windows(const Windows&) = delete;

    /// Waits until a window that was created since is mapped. A window manager maps frames of its
    /// own, so only windows count that were adopted by it or bypass it.
    bool waitForWindow(Clock::time_point start) {
        while (since(start) < startLimit) {
            while (const Event event{xcb_poll_for_event(connection_), &std::free})
                if (isMapped(*event))
                    return true;
            pollfd readable{xcb_get_file_descriptor(connection_), POLLIN, 0};
            ::poll(&readable, 1, 100);
        }
        return false;
    }

  private:
    using Event = std::unique_ptr<xcb_generic_event_t, void (*)(void*)>;

    void select(xcb_window_t window, std::uint32_t events) {
        xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &events);
        xcb_flush(connection_);
    }

    bool isMapped(const xcb_generic_event_t& event) {
        switch (event.response_type & 0x7f) {
        case XCB_CREATE_NOTIFY: {
            const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
            if (!created.override_redirect)
                select(created.window, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
            return false;
        }
        case XCB_REPARENT_NOTIFY:
            adopted_.insert(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window);
            return false;
        case XCB_MAP_NOTIFY:
            return adopted_.contains(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
        default:
            return false;
        }
    }

    xcb_connection_t* connection_;
    std::set<xcb_window_t> adopted_;
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 2)
        fail("which program?");
    Windows windows;
    const auto start = Clock::now();
    pid_t process = 0;
    if (const int error = ::posix_spawn(&process, argv[1], nullptr, nullptr, argv + 1, environ))
        fail(std::string(argv[1]) + ": " + std::strerror(error));
    const bool isMapped = windows.waitForWindow(start);
    const double mapped = since(start);

    double used = processorTime(process), usedBefore = 0;
    const auto quiet = Clock::now();
    bool rests = false;
    while (isMapped && !rests && since(quiet) < restLimit) {
        usedBefore = used;
        ::poll(nullptr, 0, static_cast<int>(restPeriod));
        used = processorTime(process);
        rests = used - usedBefore < restUse;
    }
    if (rests)
        std::printf("%.3f\t%.3f\t%ld\t%ld\n", mapped, usedBefore,
                    kibibytes(process, "status", "VmHWM"),
                    kibibytes(process, "smaps_rollup", "Pss"));
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    if (!isMapped)
        fail("no window was mapped");
    if (!rests)
        fail("the program did not come to rest");
    return 0;
}
