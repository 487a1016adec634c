// What a test tells the library of faults, and what the library counted. Lies in memory that
// several processes share: those that a test forks, or the program and the test that drives it.
//
// tests/e2e/fault_control.py reads and writes the same bytes: keep both alike.
#pragma once

#include <array>
#include <cstdint>

namespace frimbolate::test {

/// How a call fails. The first ones set an error and have no effect, except that close() always
/// closes, as on Linux.
enum class FaultKind : std::uint32_t {
    none,
    noSpace,       ///< ENOSPC
    quota,         ///< EDQUOT
    inputOutput,   ///< EIO
    denied,        ///< EACCES
    readOnly,      ///< EROFS
    interrupted,   ///< EINTR
    tooManyOpen,   ///< EMFILE
    doneButError,  ///< EIO, although the call had its whole effect
    shortTransfer, ///< half of the bytes, at least one
    zeroTransfer,  ///< no byte and no error
    killBefore,    ///< SIGKILL instead of the call
    killAfter,     ///< SIGKILL after the call
    count
};

struct Fault {
    std::uint32_t call; ///< the first counted call is 1; 0 is none
    FaultKind kind;
};

struct CountedCall {
    std::array<char, 16> function; ///< ends with a NUL
    std::array<char, 112> path;    ///< its last 111 bytes; ends with a NUL
    std::uint32_t isTransfer;      ///< of bytes: read, write and their like
    std::uint32_t reserved;
};

struct FaultControl {
    std::uint32_t armed;   ///< counts and fails only while this is 1
    std::uint32_t calls;   ///< counted since the test set it to 0
    std::uint32_t applied; ///< bits 0 and 1: the faults that took place
    /// Nothing is flushed to the disk, though the calls are counted: only a power cut could tell
    /// the difference.
    std::uint32_t skipsFlushes;
    /// 1: creating a file with a temporary name fails with EPERM, as in a folder that permits no
    /// other file than the chosen one. Not counted as a fault.
    std::uint32_t refusesTemporaryFiles;
    /// 1: changing, replacing or removing `guarded` fails with EPERM, as for an immutable file.
    std::uint32_t guards;
    std::array<Fault, 2> faults;
    std::array<char, 16> only;     ///< count this function alone; empty for all
    std::array<char, 512> guarded; ///< a path
    std::array<char, 512> watched; ///< the calls on it and on what is below it are counted
    std::array<CountedCall, 512> log;
};

} // namespace frimbolate::test

extern "C" {
/// The control of this process. Never null. Shared with the processes that it forks, and with those
/// that map the file named in $FRIMBOLATE_FAULT_CONTROL.
frimbolate::test::FaultControl* frimbolateFaultControl();
}
