#include "tests/random_user/user_home.h"

#include "core/agent_plist.h"
#include "plist/xml_writer.h"

#include <algorithm>
#include <filesystem>
#include <sys/stat.h>

namespace frimbolate::test {

namespace {

namespace fs = std::filesystem;

Array texts(std::initializer_list<const char*> items) {
    Array result;
    for (const char* item : items)
        result.emplace_back(item);
    return result;
}

/// What the writer makes of a form that runs a script daily.
std::string dailyAgent(const std::string& label, const char* target = "/bin/ls") {
    AgentForm form;
    form.targetType = TargetType::File;
    form.targetPath = target;
    form.action = AgentAction::OnSchedule;
    form.scheduleTime.hour = 7;
    return xmlPropertyList(buildAgentPlist(form, label));
}

/// An agent of each kind of start, with settings of the drawer.
std::string watchingAgent() {
    AgentForm form;
    form.targetType = TargetType::Script;
    form.scriptText = "#!/bin/sh\nset -eu\nls ~/Documents\n";
    form.action = AgentAction::PathModified;
    form.watchPath = "/tmp";
    form.scheduleType = ScheduleType::NoSelection;
    form.alsoRunAtLoad = form.alsoRunOnVolumeMount = true;
    form.niceLevel = -5;
    form.workingDirectory = "/tmp";
    form.standardOutPath = "~/out.log";
    return xmlPropertyList(buildAgentPlist(form, "com.frimbolate.watch"));
}

std::string keptRunning() {
    AgentForm form;
    form.targetType = TargetType::File;
    form.targetPath = "/bin/sleep";
    form.action = AgentAction::KeepRunning;
    form.allowSuccessfulExit = true;
    form.scheduleType = ScheduleType::OnceAMonth;
    form.dayOfMonthText = "31";
    return xmlPropertyList(buildAgentPlist(form, "com.frimbolate.kept"));
}

std::string foreignAgent() {
    return xmlPropertyList({{"Label", "org.example.sync"},
                            {"ProgramArguments", texts({"sync-helper", "--all"})},
                            {"RunAtLoad", true},
                            {"Enabled", false}});
}

const std::string earlierFile =
    std::string("Library/LaunchAgents/").append(earlierLabelPrefix).append("old.plist");
const std::string earlierAgent = dailyAgent(std::string(earlierLabelPrefix).append("old"));

std::int64_t nanoseconds(const struct stat& status) {
    return std::int64_t{status.st_ctim.tv_sec} * 1'000'000'000 + status.st_ctim.tv_nsec;
}

const std::string damaged = "<?xml version=\"1.0\"?><plist><dict><key>Label</key>";

} // namespace

UserHome::UserHome() { putBack(); }

void UserHome::putBack() {
    for (const auto& entry : fs::directory_iterator(root()))
        fs::remove_all(entry.path());
    for (const char* folder : {"Library/LaunchAgents", "Documents/Notes", "Elsewhere", ".Trash"})
        fs::create_directories(home() + "/" + folder);
    fs::create_directories(config());
    fs::permissions(config(), fs::perms::owner_all);
    for (const char* script : {"backup.sh", "tool.py", "blank \u00e9 %.rb", "notes.txt", "plain"})
        make(std::string("Scripts/") + script, "#!/bin/sh\necho\n", 0755);
    make("Good.app/Contents/Info.plist", xmlPropertyList({{"CFBundleExecutable", "good"}}));
    make("Good.app/Contents/MacOS/good", "#!/bin/sh\n", 0755);
    make("Broken.app/Contents/Info.plist", xmlPropertyList({{"CFBundleExecutable", "gone"}}));
    putAgents();
    const std::string bookmark = "path1:" + agents();
    writeBytes(preferences(),
               xmlPropertyList({{"ShowWelcomeWindow", "False - 3.0"},
                                {"Bookmark", Data{{bookmark.begin(), bookmark.end()}}}}));
}

void UserHome::putAgents() const {
    put("Library/LaunchAgents/com.frimbolate.daily.plist", dailyAgent("com.frimbolate.daily"));
    put("Library/LaunchAgents/com.frimbolate.watch.plist", watchingAgent());
    put("Library/LaunchAgents/com.frimbolate.kept.plist", keptRunning());
    put("Library/LaunchAgents/org.example.sync.plist", foreignAgent());
    put("Library/LaunchAgents/com.frimbolate.damaged.plist", damaged);
    put(earlierFile, earlierAgent);
}

std::string UserHome::expanded(std::string_view path) const {
    if (path == "~" || path.starts_with("~/"))
        return home().append(path.substr(1));
    return std::string(path);
}

void UserHome::make(std::string_view path, std::string_view bytes, unsigned mode) const {
    put(path, bytes);
    ::chmod((home() + "/").append(path).c_str(), mode);
}

void UserHome::put(std::string_view path, std::string_view bytes) const {
    const std::string whole = (home() + "/").append(path);
    fs::create_directories(fs::path(whole).parent_path());
    const std::string draft = whole + ".draft"; // as programs that do not leave half a file
    writeBytes(draft, bytes);
    fs::rename(draft, whole);
}

void UserHome::remove(std::string_view path) const {
    std::error_code ignored;
    fs::remove((home() + "/").append(path), ignored);
}

const std::vector<UserHome::Change>& UserHome::changes() {
    static const std::vector<Change> rows = {
        {"addsOwnAgent",
         [](UserHome& home) {
             home.put("Library/LaunchAgents/com.frimbolate.daily.plist",
                      dailyAgent("com.frimbolate.daily"));
         }},
        {"changesOwnAgent",
         [](UserHome& home) {
             home.put("Library/LaunchAgents/com.frimbolate.daily.plist",
                      dailyAgent("com.frimbolate.daily", "/bin/cat"));
         }},
        {"removesOwnAgent",
         [](UserHome& home) { home.remove("Library/LaunchAgents/com.frimbolate.daily.plist"); }},
        {"addsEarlierAgent", [](UserHome& home) { home.put(earlierFile, earlierAgent); }},
        {"removesEarlierAgent", [](UserHome& home) { home.remove(earlierFile); }},
        {"damagesEarlierAgent", [](UserHome& home) { home.put(earlierFile, damaged); }},
        {"addsForeignAgent",
         [](UserHome& home) {
             home.put("Library/LaunchAgents/org.example.sync.plist", foreignAgent());
         }},
        {"addsDamagedAgent",
         [](UserHome& home) {
             home.put("Library/LaunchAgents/com.frimbolate.damaged.plist", damaged);
         }},
        {"putsAllAgentsBack", [](UserHome& home) { home.putAgents(); }},
        {"removesAllAgents",
         [](UserHome& home) {
             for (const auto& path : home.agentFiles())
                 fs::remove(path);
         }},
        {"removesScript", [](UserHome& home) { home.remove("Scripts/backup.sh"); }},
        {"addsScript",
         [](UserHome& home) { home.make("Scripts/backup.sh", "#!/bin/sh\necho\n", 0755); }},
        {"removesFolder",
         [](UserHome& home) {
             std::error_code ignored;
             fs::remove_all(home.agents(), ignored);
         }},
        {"makesFolder",
         [](UserHome& home) {
             fs::create_directories(home.agents());
             home.putAgents();
         }},
        {"removesSettings", [](UserHome& home) { fs::remove(home.preferences()); }},
        {"damagesSettings", [](UserHome& home) { writeBytes(home.preferences(), "rubbish"); }},
        {"forgetsGrant",
         [](UserHome& home) {
             writeBytes(home.preferences(),
                        xmlPropertyList({{"ShowWelcomeWindow", "False - 3.0"}}));
         }},
    };
    return rows;
}

void UserHome::change(std::string_view name) {
    const auto row = std::ranges::find(changes(), name, &Change::name);
    if (row != changes().end())
        row->make(*this);
}

StoredFiles UserHome::files(const StoredFiles& before) const {
    StoredFiles result;
    for (const auto& entry : fs::recursive_directory_iterator(root())) {
        const std::string path = entry.path().string();
        struct stat status {};
        if (::lstat(path.c_str(), &status) != 0)
            continue;
        const std::string name = path.substr(root().size() + 1);
        const bool isFolder = S_ISDIR(status.st_mode);
        const auto known = before.find(name);
        StoredFile file{status.st_ino, isFolder ? 0 : nanoseconds(status), isFolder, {}};
        const bool isKnown = known != before.end() && known->second.inode == file.inode &&
                             known->second.changed == file.changed;
        if (isKnown)
            file.bytes = known->second.bytes;
        else if (!isFolder)
            file.bytes = bytesOf(path);
        result.emplace(name, std::move(file));
    }
    return result;
}

std::vector<std::string> UserHome::agentFiles() const {
    std::vector<std::string> result;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(agents(), ignored)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(".plist") && !name.starts_with('.'))
            result.push_back(entry.path().string());
    }
    std::ranges::sort(result);
    return result;
}

} // namespace frimbolate::test
