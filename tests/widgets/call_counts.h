// How often the functions that a refresh of the window needs were called. The linker leads every
// call of them through here.
#pragma once

namespace frimbolate::test {

struct CallCounts {
    int records = 0;     ///< agentForm()
    int validations = 0; ///< validate()
    int agentFiles = 0;  ///< buildAgentPlist()
};

/// Those since the program began; set it back before what is to be counted.
extern CallCounts callCounts;

} // namespace frimbolate::test
