// Counts a call of the C library and makes it fail as the test asked for.
#pragma once

#include "tests/faults/fault_control.h"

#include <cerrno>
#include <cstddef>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/types.h>
#include <unistd.h>

namespace frimbolate::test {

/// The function of that name in the libraries after this one.
template <typename Function>
Function* nextFunction(const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

/// What a call is about: a path from a folder, or an open file. Only main threads count: what other
/// threads do meanwhile would differ from run to run.
struct Subject {
    int folder = AT_FDCWD;
    const char* path = nullptr;
    int file = -1;
};
inline Subject at(const char* path) { return {AT_FDCWD, path, -1}; }
inline Subject at(int folder, const char* path) { return {folder, path, -1}; }
inline Subject of(int file) { return {AT_FDCWD, nullptr, file}; }

/// Counts the call if its subject is watched. Does not return for killBefore.
/// \param other a second path, such as the target of a rename
/// \returns the fault to apply
FaultKind countCall(const char* function, Subject subject, Subject other, bool isTransfer);

/// The errno of a kind; 0 for one without.
int errorOf(FaultKind kind);

/// Whether the test forbids to change this path (FaultControl::guarded).
bool isGuarded(Subject subject);
/// Whether the test forbids to create this file (FaultControl::refusesTemporaryFiles).
bool isRefusedCreation(const char* path);
bool skipsFlushes();
[[noreturn]] void killOwnProcess();

/// Performs a call that either has its whole effect or none.
/// \param undo called with the result where the effect stays but the caller is told of an error:
///             closes what the caller will not know of
template <typename Result, typename Act, typename Undo>
Result performed(FaultKind kind, Result failure, Act act, Undo undo) {
    if (const int error = errorOf(kind)) {
        if (kind == FaultKind::doneButError) {
            const Result result = act();
            if (result == failure)
                return failure;
            undo(result);
        }
        errno = error;
        return failure;
    }
    const Result result = act();
    if (kind == FaultKind::killAfter)
        killOwnProcess();
    return result;
}

template <typename Result, typename Act>
Result performed(FaultKind kind, Result failure, Act act) {
    return performed(kind, failure, act, [](Result) {});
}

/// Performs a transfer of bytes.
/// \param act takes the number of bytes to transfer
template <typename Act>
ssize_t transferred(FaultKind kind, std::size_t size, Act act) {
    if (kind == FaultKind::zeroTransfer)
        return 0;
    if (kind == FaultKind::shortTransfer)
        return act(size > 1 ? size / 2 : size);
    return performed(kind, ssize_t{-1}, [&] { return act(size); });
}

} // namespace frimbolate::test
