// The folders that the programs of a trial share, and what the files in them hold.
#pragma once

#include "tests/support/temporary_folder.h"

#include <optional>
#include <string>

namespace frimbolate::test {

/// What a program writes in one round. Every file names it twice, so that half a file or a mixture
/// of two shows.
struct Mark {
    int program = 0, round = 0;
    std::string text() const { return std::to_string(program) + "." + std::to_string(round); }
    friend bool operator==(const Mark&, const Mark&) = default;
};

class SharedFolders {
  public:
    SharedFolders();

    const std::string& root() const { return root_.path(); }
    std::string agents() const { return root_ / "Users/maya/Library/LaunchAgents"; }
    std::string settings() const { return root_ / "config/com.qz.Frimbolate.plist"; }
    /// The agent that one program alone saves.
    std::string ownAgent(int program) const;
    /// The agent that all programs save.
    std::string sameAgent() const { return agents() + "/com.frimbolate.same.plist"; }
    /// The agent that all programs switch on and off.
    std::string switchedAgent() const { return agents() + "/org.example.switched.plist"; }
    /// The setting that one program alone changes.
    static std::string ownSetting(int program) { return "Program" + std::to_string(program); }

    /// What is wrong with one of the files now; empty where it is whole or not there.
    std::string flawOfAgent(const std::string& path) const;
    std::string flawOfSettings() const;
    /// The mark of a whole agent; nothing where there is none.
    static std::optional<Mark> markOf(const std::string& path);

  private:
    TemporaryFolder root_;
};

} // namespace frimbolate::test
