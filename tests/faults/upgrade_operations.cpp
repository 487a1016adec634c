// Upgrading agents of the earlier version: a new file, then the removal of the old one.
#include "tests/faults/fault_operations.h"
#include "tests/faults/scripted_desk.h"

#include "plist/xml_writer.h"

namespace frimbolate::test {

namespace {

constexpr const char* oldKey = "LaunchAgents/com.fr\u0131mbolate.Backup.plist";

void prepareOldAgent(const UserFolders& place, const Variation& variation) {
    writeBytes(place / oldKey,
               xmlPropertyList({{"Label", "com.fr\u0131mbolate.Backup"},
                                {"ProgramArguments", Array{Value("/Users/maya/backup.sh")}},
                                {"RunAtLoad", true},
                                {"OfAnotherProgram", "kept"}}));
    variation.ofFile(place / oldKey);
}

void prepareOntoExisting(const UserFolders& place, const Variation& variation) {
    prepareOldAgent(place, variation);
    writeBytes(place.agent(), xmlPropertyList({{"Label", "another"}}));
    std::filesystem::permissions(place.agent(), std::filesystem::perms(0644));
    variation.ofFile(place.agent());
}

void prepareOntoFolder(const UserFolders& place, const Variation& variation) {
    prepareOldAgent(place, variation);
    std::filesystem::create_directory(place.agent());
}

/// From the answer to the question on. The alert tells the failure; where the file at the new path
/// is another one, only the log does.
Told upgrade(const UserFolders& place) {
    ScriptedDesk desk(place.agents());
    desk.editor.editAgent(place / oldKey);
    {
        const Armed armed;
        desk.platform.press("Ok");
        if (desk.platform.asksWhereToSave)
            desk.platform.saveAs(place.agent());
    }
    return {desk.alert().empty() && !desk.logged("The upgraded agent was not written"),
            desk.alert() + "\n" + desk.logText()};
}

/// Whether the bytes of the old agent are still somewhere: in its place or in the trash.
bool oldAgentExists(const Seen& seen) {
    const auto& bytes = itemAt(seen.before, oldKey)->content;
    for (const auto& [path, item] : seen.now)
        if ((path == oldKey || path.starts_with("home/data/Trash/files/")) && item.content == bytes)
            return true;
    return false;
}

/// No alert but the log tells what became of the old agent where another file is in the way. The
/// removal of the old file may fail without being told; both files exist then. Before the new
/// file is complete, the old agent exists.
std::string problemOfUpgrade(const Seen& seen) {
    const auto& newKey = seen.place.agentKey();
    const auto changed = changedBesides(seen, {oldKey, newKey});
    if (!changed.empty())
        return changed;
    if (itemAt(seen.now, oldKey) && !isOld(seen, oldKey))
        return "the old agent changed";
    const bool isUpgraded = isNew(seen, newKey) && !isOld(seen, newKey);
    if (!isUpgraded && !oldAgentExists(seen))
        return "the agent is lost";
    if (!seen.killed && !seen.told.success && !itemAt(seen.now, oldKey) &&
        seen.told.text.find("the old one is") == std::string::npos)
        return "the old agent is gone, which is not told";
    // Where the new file cannot be looked at once it is written, the upgrade is told as failed and
    // the old agent stays: both are there.
    if (!seen.killed && !seen.told.success && isNew(seen, newKey) && isOld(seen, oldKey))
        return {};
    return untrueAbout(seen, newKey);
}

void saveBeside(const UserFolders& place) {
    RecordingLog log;
    LocalFiles files(log);
    if (!files.writeDictionary(place.agents() + "/next.plist", {{"Label", "next"}}))
        throw std::runtime_error("the next save fails: " + log.lines.back());
}

} // namespace

void addUpgradeOperations(std::vector<Operation>& all) {
    const Operation made[] = {
        {"Upgrade", 20, prepareOldAgent, upgrade, problemOfUpgrade, saveBeside},
        {"UpgradeOntoExisting", 26, prepareOntoExisting, upgrade, problemOfUpgrade, saveBeside},
        {"UpgradeOntoFolder", 15, prepareOntoFolder, upgrade, problemOfUpgrade, saveBeside, false},
    };
    all.insert(all.end(), std::begin(made), std::end(made));
}

} // namespace frimbolate::test
