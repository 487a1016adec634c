// Every write of the program, as a user or a start of the program causes it: through the controller
// with its real files and preferences, and through the words of the command line.
#pragma once

#include "tests/faults/fault_control.h"
#include "tests/faults/user_folders.h"

#include <memory>
#include <string>
#include <vector>

namespace frimbolate::test {

/// Counts calls and applies faults while it exists.
class Armed {
  public:
    Armed() { frimbolateFaultControl()->armed = 1; }
    Armed(const Armed&) = delete;
    Armed& operator=(const Armed&) = delete;
    ~Armed() { frimbolateFaultControl()->armed = 0; }
};

/// What the program told.
struct Told {
    bool success = false;
    std::string text; ///< alerts, log lines and standard error
    /// What the program still holds. Its destruction is its last chance to write.
    std::shared_ptr<void> kept = nullptr;
};

/// What was before, what a run without faults leaves, and what a run with faults left.
struct Seen {
    const UserFolders& place;
    const FolderState& before;
    const FolderState& after;
    const FolderState& now;
    const Told& told; ///< empty where the process was killed
    bool killed = false;
    /// After a first fault a second one took place, possibly of the removal of a temporary file.
    bool twice = false;
    /// A call was done but told as failed, and a second fault kept the program from finding out.
    bool unknowable = false;
};

struct Operation {
    const char* name;
    /// Fewer counted calls than this in an ordinary folder mean that the library does not see them.
    unsigned leastCalls;
    /// Puts the files there. Gets a place to which a variation was applied.
    void (*prepare)(const UserFolders& place, const Variation& variation);
    /// Does the operation; the calls of its writing are counted.
    Told (*run)(const UserFolders& place);
    /// Says what is wrong with a result, or nothing.
    std::string (*problem)(const Seen& seen);
    /// Saves something else in the same folders, which must clean up after a kill.
    void (*nextSave)(const UserFolders& place);
    /// Whether the fault-free run succeeds.
    bool succeeds = true;
    /// Whether any creation of a temporary file is refused (FaultControl::refusesTemporaryFiles).
    bool refusesTemporaryFiles = false;
};

const std::vector<Operation>& operations();

// Of the sources that together make operations()
void addAgentOperations(std::vector<Operation>& all);
void addUpgradeOperations(std::vector<Operation>& all);
void addPreferenceOperations(std::vector<Operation>& all);

// Rules that several operations share. Each returns what is wrong, or nothing.

/// Whether the item at a path is as it was before, or as a run without faults leaves it.
bool isOld(const Seen& seen, const std::string& path);
bool isNew(const Seen& seen, const std::string& path);

/// Nothing but these paths may have changed, and what is below the folders "home" and "tmp" and
/// temporary files of a killed process or of one that met two faults.
std::string changedBesides(const Seen& seen, const std::vector<std::string>& paths);

/// The path is new if success was told, and old if a failure was; either if nothing was told or
/// nobody could know.
std::string untrueAbout(const Seen& seen, const std::string& path);

/// The paths of the temporary files in a state.
std::vector<std::string> leftOvers(const FolderState& state);

} // namespace frimbolate::test
