// The preference store on a file of any bytes.
#include "core/named_error.h"
#include "plist/xml_writer.h"
#include "posix/plist_defaults.h"
#include "tests/fuzz/fuzz_folder.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/fuzz/reader_properties.h"
#include "tests/support/recording_log.h"

#include <set>

namespace frimbolate::test {

namespace {

constexpr const char* fileName = "settings.plist";
constexpr const char* damagedName = "settings.damaged-1.plist";
constexpr const char* newKey = "TheNewKey";

bool canBeWritten(const Dictionary& dictionary) try {
    static_cast<void>(xmlPropertyList(dictionary));
    return true;
} catch (const NamedError&) {
    return false;
}

std::vector<std::string> keysOf(const Dictionary& dictionary) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : dictionary)
        keys.push_back(key);
    return keys;
}

/// Opens the store and sets a key.
/// \return the lines of its log
std::vector<std::string> setNewKey(const std::string& path, const PropertyListFile& before) {
    RecordingLog log;
    PlistDefaults store(path, log);
    if (before.condition == FileCondition::read) {
        require(store.keys() == keysOf(before.dictionary), "the keys are those of the file");
        for (const auto& [key, value] : before.dictionary)
            require(isSame(*store.object(key), value), "the values are those of the file");
    }
    store.set(newKey, "the new value");
    require(store.object(newKey) == Value("the new value"), "a value that is set is known");
    return log.lines;
}

} // namespace

void fuzzPreferences(std::string_view input) {
    static const TemporaryFolder folder;
    emptyFolder(folder);
    const std::string path = folder / fileName;
    writeBytes(path, input);
    const PropertyListFile before = readPropertyListFile(path);
    const auto lines = setNewKey(path, before);

    Dictionary expected = before.dictionary;
    expected.insert_or_assign(newKey, "the new value");
    const bool isDamaged = before.condition == FileCondition::damaged;
    std::set<std::string> names = {fileName, std::string(fileName) + ".lock"};
    if (!canBeWritten(expected)) {
        require(bytesOf(path) == input, "what XML cannot hold stays in the file");
        require(!lines.empty(), "the log says that nothing was written");
    } else {
        const PropertyListFile after = readPropertyListFile(path);
        require(after.condition == FileCondition::read && isSame(after.dictionary, expected),
                "a change keeps every other value");
        require(isDamaged == !lines.empty(), "the log says what was set aside");
    }
    if (isDamaged) {
        names.insert(damagedName);
        require(bytesOf(folder / damagedName) == input, "a damaged file is kept as it is");
    }
    require(folder.names() == names, "nothing else is left in the folder");
}

} // namespace frimbolate::test
