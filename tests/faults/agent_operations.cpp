// Saving, switching and deleting agents.
#include "tests/cli/terminal_run.h"
#include "tests/faults/fault_operations.h"
#include "tests/faults/scripted_desk.h"

#include "plist/xml_writer.h"

namespace frimbolate::test {

namespace {

constexpr const char* linkTarget = "elsewhere/target.plist";

Dictionary existingAgent(bool enabled) {
    return {{"Label", "com.frimbolate.Backup"},
            {"ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value("echo before")}},
            {"RunAtLoad", true},
            {"Enabled", enabled},
            {"OfAnotherProgram", std::string(5000, 'k')}};
}

void prepareNothing(const UserFolders&, const Variation&) {}

void putAgent(const std::string& path, const Variation& variation, bool enabled = true) {
    writeBytes(path, xmlPropertyList(existingAgent(enabled)));
    std::filesystem::permissions(path, std::filesystem::perms(0644));
    variation.ofFile(path);
}

void prepareAgent(const UserFolders& place, const Variation& variation) {
    putAgent(place.agent(), variation);
}

void prepareDisabledAgent(const UserFolders& place, const Variation& variation) {
    putAgent(place.agent(), variation, false);
}

void prepareLink(const UserFolders& place, const Variation& variation) {
    putAgent(place / linkTarget, variation);
    std::filesystem::create_symlink(std::string("../") + linkTarget, place.agent());
}

/// The alert after a save does not depend on the result of the write: only a folder or a content
/// that cannot be written is an error. So the log has to tell the truth about the write, and a
/// save counts as told failed where either does.
Told save(const UserFolders& place) {
    ScriptedDesk desk(place.agents());
    desk.editor.createNewAgent();
    auto& form = desk.editor.form();
    form.agentNameTextField.stringValue = "Backup";
    form.agentTargetButton.selectedItem = TargetType::Script;
    form.scriptPopOverScriptField.stringValue = "echo after";
    desk.editor.saveLaunchAgent();
    {
        const Armed armed;
        desk.platform.saveAs(place.agent());
    }
    const bool isCreated = desk.alert() == "Your launch agent was created.";
    return {isCreated && !desk.logged("Could not write property list"),
            desk.alert() + "\n" + desk.logText()};
}

Told switchAgent(const UserFolders& place) {
    ScriptedDesk desk(place.agents());
    {
        const Armed armed;
        desk.editor.switchAgent(place.agent());
        if (desk.alert().starts_with("This launch agent is currently"))
            desk.platform.press("Continue");
    }
    return {desk.alert().empty(), desk.alert() + "\n" + desk.logText()};
}

Told deleteAgent(const UserFolders& place) {
    ScriptedDesk desk(place.agents());
    {
        const Armed armed;
        desk.editor.deleteAgent(place.agent());
        desk.platform.press("Delete");
    }
    return {desk.alert().empty(), desk.alert() + "\n" + desk.logText()};
}

Told runTerminal(const UserFolders& place, const std::vector<std::string>& arguments) {
    const Armed armed;
    const TerminalRun result = test::run(arguments, {.home = place / "home"});
    return {result.code == ExitCode::Nothing, result.err};
}

Told makeInTerminal(const UserFolders& place) {
    return runTerminal(place, {"new", "--name", "Backup", "--script", "echo after", "--at-load",
                               "--output", place.agent()});
}

Told replaceInTerminal(const UserFolders& place) {
    return runTerminal(place, {"new", "--name", "Backup", "--script", "echo after", "--at-load",
                               "--force", "--output", place.agent()});
}

Told switchInTerminal(const UserFolders& place) {
    return runTerminal(place, {"off", place.agent()});
}

std::string problemOfAgent(const Seen& seen) {
    const auto changed = changedBesides(seen, {seen.place.agentKey()});
    return changed.empty() ? untrueAbout(seen, seen.place.agentKey()) : changed;
}

std::string problemOfLinkedAgent(const Seen& seen) {
    const auto changed = changedBesides(seen, {linkTarget});
    return changed.empty() ? untrueAbout(seen, linkTarget) : changed;
}

/// Where no other file may be made, a crash can leave the file half written. Then the whole old
/// content is in the folder for temporary files, as it is where not even putting it back succeeds.
std::string problemOfChosenFile(const Seen& seen) {
    const auto& key = seen.place.agentKey();
    const auto changed = changedBesides(seen, {key});
    if (!changed.empty())
        return changed;
    if (isOld(seen, key) || isNew(seen, key))
        return untrueAbout(seen, key);
    if (seen.told.success)
        return "success told, but neither old nor new: " + key;
    for (const auto& [path, item] : seen.now)
        if (path.starts_with("tmp/") && item.content == itemAt(seen.before, key)->content &&
            (seen.killed || seen.told.text.find("its old content is in " + (seen.place / path)) !=
                                std::string::npos))
            return {};
    return "neither old nor new, and no copy is told of: " + key;
}

void saveAnother(const UserFolders& place) {
    RecordingLog log;
    LocalFiles files(log);
    for (const std::string& folder : {place.agents(), place / "elsewhere"})
        if (!files.writeDictionary(folder + "/next.plist", {{"Label", "next"}}))
            throw std::runtime_error("the next save fails: " + log.lines.back());
}

} // namespace

void addAgentOperations(std::vector<Operation>& all) {
    const Operation made[] = {
        {"AgentNew", 14, prepareNothing, save, problemOfAgent, saveAnother},
        {"AgentOverwritten", 20, prepareAgent, save, problemOfAgent, saveAnother},
        {"AgentThroughLink", 22, prepareLink, save, problemOfLinkedAgent, saveAnother},
        {"AgentWhereNoOtherFileMayBe", 20, prepareAgent, save, problemOfChosenFile, saveAnother,
         true, true},
        {"SwitchOff", 24, prepareAgent, switchAgent, problemOfAgent, saveAnother},
        {"SwitchOn", 24, prepareDisabledAgent, switchAgent, problemOfAgent, saveAnother},
        {"SwitchThroughLink", 26, prepareLink, switchAgent, problemOfLinkedAgent, saveAnother},
        {"Delete", 3, prepareAgent, deleteAgent, problemOfAgent, saveAnother},
        {"DeleteLink", 3, prepareLink, deleteAgent, problemOfAgent, saveAnother},
        {"TerminalNew", 14, prepareNothing, makeInTerminal, problemOfAgent, saveAnother},
        {"TerminalNewOverAnother", 1, prepareAgent, makeInTerminal, problemOfAgent, saveAnother,
         false},
        {"TerminalReplaced", 20, prepareAgent, replaceInTerminal, problemOfAgent, saveAnother},
        {"TerminalSwitch", 24, prepareAgent, switchInTerminal, problemOfAgent, saveAnother},
    };
    all.insert(all.end(), std::begin(made), std::end(made));
}

} // namespace frimbolate::test
