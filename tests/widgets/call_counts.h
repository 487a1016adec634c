// Counts calls of the functions that an update of the window needs. The linker's --wrap redirects
// these calls to counting functions.
#pragma once

namespace frimbolate::test {

struct CallCounts {
    int records = 0;     ///< agentForm()
    int validations = 0; ///< validate()
    int agentPlists = 0; ///< buildAgentPlist()
};

/// The calls since the program started; reset it before the calls to count.
extern CallCounts callCounts;

} // namespace frimbolate::test
