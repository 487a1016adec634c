#include "tests/faults/fault_injection.h"

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/mman.h>
#include <sys/syscall.h>

// Calls of the system itself where a wrapper of the C library would come back here.

namespace frimbolate::test {

namespace {

using Text = std::array<char, PATH_MAX + 2>;

FaultControl* mapControl() {
    int file = -1;
    if (const char* path = std::getenv("FRIMBOLATE_FAULT_CONTROL"))
        file = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC, 0));
    void* memory = ::mmap(nullptr, sizeof(FaultControl), PROT_READ | PROT_WRITE,
                          MAP_SHARED | (file < 0 ? MAP_ANONYMOUS : 0), file, 0);
    if (file >= 0)
        ::syscall(SYS_close, file);
    return memory == MAP_FAILED ? nullptr : static_cast<FaultControl*>(memory);
}

FaultControl& control() {
    static FaultControl* const mapped = mapControl();
    static FaultControl none{};
    return mapped ? *mapped : none;
}

bool isMainThread() { return ::syscall(SYS_gettid) == ::syscall(SYS_getpid); }

/// The path of an open file or of the working directory; empty where it has none.
std::string_view readLink(const char* link, Text& text) {
    const long size = ::syscall(SYS_readlinkat, AT_FDCWD, link, text.data(), text.size() - 1);
    return {text.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
}

std::string_view pathOfFile(int file, Text& text) {
    std::array<char, 32> link{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    return readLink(link.data(), text);
}

/// The absolute path of a subject, its links not resolved.
std::string pathOf(const Subject& subject) {
    Text text;
    if (!subject.path)
        return subject.file < 0 ? std::string() : std::string(pathOfFile(subject.file, text));
    if (*subject.path == '/')
        return subject.path;
    const auto folder = subject.folder == AT_FDCWD ? readLink("/proc/self/cwd", text)
                                                   : pathOfFile(subject.folder, text);
    return std::string(folder) + '/' + subject.path;
}

bool isWatched(const std::string& path) {
    const std::string_view watched = control().watched.data();
    return !watched.empty() && path.starts_with(watched) &&
           (path.size() == watched.size() || path[watched.size()] == '/');
}

template <std::size_t Size>
void copyTail(std::string_view text, std::array<char, Size>& to) {
    const auto tail = text.substr(text.size() - std::min(text.size(), Size - 1));
    tail.copy(to.data(), tail.size());
    to[tail.size()] = '\0';
}

bool isArmed() {
    return __atomic_load_n(&control().armed, __ATOMIC_ACQUIRE) == 1 && isMainThread();
}

} // namespace

FaultKind countCall(const char* function, Subject subject, Subject other, bool isTransfer) {
    if (!isArmed())
        return FaultKind::none;
    const std::string_view only = control().only.data();
    if (!only.empty() && only != function)
        return FaultKind::none;
    const int before = errno;
    std::string path = pathOf(subject);
    bool counts = isWatched(path);
    if (!counts) {
        path = pathOf(other);
        counts = isWatched(path);
    }
    errno = before;
    if (!counts)
        return FaultKind::none;
    const auto number = __atomic_add_fetch(&control().calls, 1, __ATOMIC_ACQ_REL);
    if (number <= control().log.size()) {
        auto& entry = control().log[number - 1];
        copyTail(function, entry.function);
        copyTail(path, entry.path);
        entry.isTransfer = isTransfer ? 1 : 0;
    }
    for (unsigned i = 0; i < control().faults.size(); ++i) {
        const Fault fault = control().faults[i];
        if (fault.call != number)
            continue;
        control().applied |= 1U << i;
        if (fault.kind == FaultKind::killBefore)
            killOwnProcess();
        return fault.kind;
    }
    return FaultKind::none;
}

int errorOf(FaultKind kind) {
    switch (kind) {
    case FaultKind::noSpace:
        return ENOSPC;
    case FaultKind::quota:
        return EDQUOT;
    case FaultKind::inputOutput:
    case FaultKind::doneButError:
        return EIO;
    case FaultKind::denied:
        return EACCES;
    case FaultKind::readOnly:
        return EROFS;
    case FaultKind::interrupted:
        return EINTR;
    case FaultKind::tooManyOpen:
        return EMFILE;
    default:
        return 0;
    }
}

bool isGuarded(Subject subject) {
    if (!isArmed() || control().guards != 1)
        return false;
    const int before = errno;
    const bool is = pathOf(subject) == control().guarded.data();
    errno = before;
    return is;
}

bool isRefusedCreation(const char* path) {
    if (!isArmed() || control().refusesTemporaryFiles != 1)
        return false;
    const std::string_view name(path);
    return name.substr(name.rfind('/') + 1).starts_with(".frimbolate-") &&
           name.find('/') == std::string_view::npos; // by its folder, as beside the chosen file
}

bool skipsFlushes() { return control().skipsFlushes == 1; }

void killOwnProcess() {
    ::syscall(SYS_kill, ::syscall(SYS_getpid), SIGKILL);
    for (;;)
        ::pause();
}

} // namespace frimbolate::test

frimbolate::test::FaultControl* frimbolateFaultControl() { return &frimbolate::test::control(); }
