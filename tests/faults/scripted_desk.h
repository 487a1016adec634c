// The controller with the real files, folder access and trash of this computer. Alerts and panels
// are scripted.
#pragma once

#include "posix/local_files.h"
#include "posix/path_folder_access.h"
#include "qt/qt_trash.h"
#include "tests/support/recording_log.h"
#include "tests/support/scripted_platform.h"
#include "ui/app_delegate.h"

#include <algorithm>
#include <string>

namespace frimbolate::test {

class ScriptedDesk {
  public:
    /// With preferences in memory that grant a folder.
    explicit ScriptedDesk(const std::string& agents) : defaults_(&platform.defaults) {
        platform.defaults.contents["Bookmark"] = access_.createBookmark(agents);
    }
    /// With these preferences, which must outlive the desk.
    explicit ScriptedDesk(Defaults& defaults) : defaults_(&defaults) {}
    ~ScriptedDesk() { platform.abandonQuestions(); }
    ScriptedDesk(const ScriptedDesk&) = delete;
    ScriptedDesk& operator=(const ScriptedDesk&) = delete;

    /// The message of the alert that is shown; empty where none is.
    std::string alert() { return platform.isAsking() ? platform.shownAlert().messageText : ""; }
    bool logged(std::string_view text) const {
        return std::ranges::any_of(log.lines, [&](const std::string& line) {
            return line.find(text) != std::string::npos;
        });
    }
    std::string logText() const {
        std::string text;
        for (const auto& line : log.lines)
            text += line + "\n";
        return text;
    }

    struct Platform : ScriptedPlatform {
        void save(const SavePanel& panel, SaveCompletion completion) override {
            asksWhereToSave = true;
            ScriptedPlatform::save(panel, std::move(completion));
        }
        bool asksWhereToSave = false;
    };
    Platform platform;
    RecordingLog log;

  private:
    LocalFiles files_{log};
    PathFolderAccess access_;
    QtTrash trash_;
    Defaults* defaults_;

  public:
    AppDelegate editor{Services{platform, platform, platform, files_, access_, *defaults_, platform,
                                platform, platform, log, platform, trash_}};
};

} // namespace frimbolate::test
