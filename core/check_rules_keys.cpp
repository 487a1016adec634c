// Rules about the names, types and states of the keys.
#include "core/check_rules.h"
#include "core/launchd_keys.h"

namespace frimbolate {

namespace {

/// Walks through a dictionary of keys and those within it.
class KeyChecks {
  public:
    explicit KeyChecks(FindingList& findings) : findings_(findings) {}

    /// \param parent as in LaunchdKey
    /// \param path the key path of the dictionary
    void checkEntries(const Dictionary& entries, std::string_view parent, std::string_view path) {
        for (const auto& [name, value] : entries) {
            if (const auto* key = launchdKey(parent, name))
                checkValue(value, *key, entryPath(path, name));
            else
                reportUnknown(parent, name, entryPath(path, name));
        }
    }

  private:
    void checkValue(const Value& value, const LaunchdKey& key, const std::string& path) {
        // Its own rules report these.
        if (key.name == "Label" || key.name == "EnvironmentVariables")
            return;
        if (!isOfKinds(value, key.type.kinds)) {
            findings_.add(Rule::WrongType, path, 0, {kindWithArticle(value), key.type.words});
            return;
        }
        if (const auto* elements = value.array())
            checkElements(*elements, key, path);
        if (const auto* entries = value.dictionary())
            checkInner(*entries, key, path);
    }

    void checkElements(const Array& elements, const LaunchdKey& key, const std::string& path) {
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const auto& element = elements[i];
            if (!isOfKinds(element, key.type.elements)) {
                findings_.add(Rule::WrongType, path, 0, {kindWithArticle(element), key.type.words});
                return;
            }
            if (const auto* entries = element.dictionary())
                checkInner(*entries, key, elementPath(path, i));
        }
    }

    void checkInner(const Dictionary& entries, const LaunchdKey& key, const std::string& path) {
        if (hasKnownKeys(key.name))
            return checkEntries(entries, key.name, path);
        for (const auto& [name, value] : entries)
            if (!isOfKinds(value, key.type.entries))
                findings_.add(Rule::WrongType, entryPath(path, name), 0,
                              {kindWithArticle(value), key.type.words});
    }

    void reportUnknown(std::string_view parent, std::string_view name, std::string path) {
        const auto* nearest = nearestLaunchdKey(parent, name);
        if (!nearest)
            findings_.add(Rule::UnknownKey, std::move(path));
        else
            findings_.add(Rule::MisspeltKey, std::move(path), 0, {nearest->name});
    }

    FindingList& findings_;
};

} // namespace

void checkKeys(const CheckedAgent& agent) {
    KeyChecks(agent.findings).checkEntries(agent.keys, "", "");
}

} // namespace frimbolate
