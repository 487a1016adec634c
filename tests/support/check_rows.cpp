#include "tests/support/check_rows.h"

#include <algorithm>
#include <map>

namespace frimbolate::test {

std::string lineOf(const Finding& finding) {
    return finding.rule + " " + finding.key + ": " + finding.text;
}

bool CheckRow::breaksRule() const {
    return std::any_of(findings.begin(), findings.end(),
                       [this](const auto& finding) { return finding.starts_with(rule + " "); });
}

Dictionary edited(Dictionary agent, const Edits& edits) {
    for (const auto& [key, value] : edits)
        if (value)
            agent.insert_or_assign(key, *value);
        else
            agent.erase(key);
    return agent;
}

Value texts(const std::vector<std::string>& elements) {
    Array array;
    for (const auto& element : elements)
        array.emplace_back(element);
    return array;
}

Dictionary backup() {
    return {{"Label", "com.example.backup"},
            {"ProgramArguments", texts({"/opt/homebrew/bin/restic", "backup", "/srv/photos"})},
            {"StartCalendarInterval", Dictionary{{"Hour", 2}, {"Minute", 30}}},
            {"StandardOutPath", "/Users/maya/Library/Logs/backup.log"},
            {"StandardErrorPath", "/Users/maya/Library/Logs/backup.log"},
            {"EnvironmentVariables", Dictionary{{"PATH", "/opt/homebrew/bin:/usr/bin:/bin"}}}};
}

Dictionary server() {
    return {{"Label", "org.example.server"},
            {"ProgramArguments", texts({"/opt/homebrew/opt/nginx/bin/nginx", "-g", "daemon off;"})},
            {"KeepAlive", true},
            {"RunAtLoad", true},
            {"WorkingDirectory", "/opt/homebrew"},
            {"ProcessType", "Background"}};
}

Dictionary poller() {
    return {{"Label", "com.example.poller"},
            {"ProgramArguments", texts({"/bin/sh", "-c", "cd ~/mail && fetch $HOME/.rc"})},
            {"StartInterval", 300},
            {"Nice", 10},
            {"LowPriorityIO", true}};
}

Dictionary watcher() {
    return {{"Label", "com.example.watcher"},
            {"Program", "/usr/local/bin/convert"},
            {"ProgramArguments", texts({"convert", "--all"})},
            {"WatchPaths", texts({"/Users/maya/Pictures"})},
            {"ThrottleInterval", 30}};
}

Dictionary running(const std::vector<std::string>& arguments) {
    return edited(backup(), {{"ProgramArguments", texts(arguments)}});
}

Dictionary backupWith(const char* key, Value value) {
    return edited(backup(), {{key, std::move(value)}});
}

Dictionary at(Value calendar) {
    return edited(backup(), {{"StartCalendarInterval", std::move(calendar)}});
}

CheckContext homeContext() {
    CheckContext context;
    context.home = "/Users/maya";
    return context;
}

CheckContext machine() {
    CheckContext context;
    context.pathState = [](const std::string& path) {
        static const std::map<std::string, PathState> states = {
            {"/opt", PathState::Folder},         {"/usr", PathState::Folder},
            {"/opt/logs", PathState::Folder},    {"/usr/bin/tool", PathState::Executable},
            {"/opt/notes.txt", PathState::File}, {"/bin", PathState::Folder},
            {"/bin/sh", PathState::Executable},  {"/opt/run.sh", PathState::File},
            {"/locked", PathState::Unknown},     {"/opt/unknown", PathState::Unknown},
            {"/afile", PathState::File}};
        const auto found = states.find(path);
        return found == states.end() ? PathState::Missing : found->second;
    };
    return context;
}

std::vector<CheckRow> checkRows() {
    std::vector<CheckRow> all;
    for (const auto rows : {fileCheckRows, keyCheckRows, stateCheckRows, programCheckRows,
                            pathCheckRows, scheduleCheckRows, triggerCheckRows, executionCheckRows})
        for (auto& row : rows())
            all.push_back(std::move(row));
    return all;
}

} // namespace frimbolate::test
