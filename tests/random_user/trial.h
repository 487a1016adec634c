// One run of a random user in a process of its own, and how it ended.
#pragma once

#include "tests/random_user/step.h"

#include <cstdint>
#include <optional>
#include <string>

namespace frimbolate::test {

/// A fault that is put in on purpose, to see that it is found and its steps are shortened.
enum class Planted {
    Nothing,
    Rule,   ///< a rule forbids the list of agents beside an open drawer
    Crash,  ///< the process ends by a signal there
    Object, ///< an object for each hundred steps is never destroyed
    Stray,  ///< the user stays where a panel has led, also outside of the home
    Blocks  ///< each step leaves memory behind that no object of the toolkit holds
};

struct Trial {
    std::uint32_t seed = 1;
    int count = 300;
    std::optional<Steps> replayed; ///< in place of drawn steps
    Planted planted = Planted::Nothing;
    bool printsVisits = false;
    bool isShortened = true;       ///< after a fault, to the steps that it needs
    bool needsShortVisits = false; ///< see Visits::missing(); a long run always needs all
};

struct Ending {
    /// The name of the broken rule, or the summary of a sanitizer, or the signal; empty for none.
    std::string fault;
    std::string detail;
    Steps steps; ///< those that were run, the one that failed last
    bool isGood() const { return fault.empty(); }
};

/// Runs it in a forked process. Call it before any thread or application exists.
Ending endingOf(const Trial& trial);

/// The body of that process. Exits.
[[noreturn]] void runTrial(const Trial& trial, const std::string& folder);

} // namespace frimbolate::test
