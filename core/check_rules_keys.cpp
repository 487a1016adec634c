// Rules about the names, types and states of the keys.
#include "core/check_rules.h"
#include "core/conversions.h"
#include "core/launchd_keys.h"

#include <algorithm>

namespace frimbolate {

namespace {

bool namesWhatToRun(std::string_view key) {
    return key == "Program" || key == "ProgramArguments" || key == "BundleProgram";
}

/// Walks through a dictionary of keys and those within it.
class KeyChecks {
  public:
    explicit KeyChecks(const CheckedAgent& agent)
        : findings_(agent.findings), namesProgram_(namesProgram(agent)) {}

    /// \param parent as in LaunchdKey
    /// \param path the key path of the dictionary
    void checkEntries(const Dictionary& entries, std::string_view parent, std::string_view path) {
        for (const auto& [name, value] : entries) {
            const auto* key = launchdKey(parent, name);
            if (!key)
                reportUnknown(parent, name, entryPath(path, name));
            else if (!isReportedByState(value, *key, path))
                checkType(value, *key, entryPath(path, name));
        }
    }

  private:
    /// \return whether the state says all that there is to say about the key
    bool isReportedByState(const Value& value, const LaunchdKey& key, std::string_view path) {
        const auto report = [&](Rule rule, std::size_t variant = 0) {
            findings_.add(rule, entryPath(path, key.name), variant);
        };
        switch (key.state) {
        case KeyState::DaemonsOnly:
            return report(Rule::DaemonKey), true;
        case KeyState::NotSupported:
            return report(Rule::DroppedKey), true;
        case KeyState::WithoutEffect:
            return report(Rule::DroppedKey, 1), true;
        case KeyState::Reported:
            return report(Rule::ReportedKey), true;
        case KeyState::Unread:
            return report(Rule::EnabledKey, toBoolOrFalse(value) ? 0 : 1), true;
        case KeyState::Retired:
            report(Rule::RetiredKey, key.name == "OnDemand" && value == Value(false) ? 1 : 0);
            return false;
        case KeyState::Discouraged:
            if (key.name != "Wait")
                report(Rule::DiscouragedKey, key.name == "PathState"         ? 1
                                             : key.name == "OtherJobEnabled" ? 2
                                                                             : 0);
            return false;
        case KeyState::Current:
        case KeyState::Undocumented:
            return false;
        }
        return false;
    }

    void checkType(const Value& value, const LaunchdKey& key, const std::string& path) {
        if (!isOfKinds(value, key.type.kinds)) {
            // The rules about label and program report these.
            if (key.name != "Label" && (namesProgram_ || !namesWhatToRun(key.name)))
                findings_.add(Rule::WrongType, path, 0, {kindWithArticle(value), key.type.words});
        } else if (const auto* elements = value.array()) {
            checkElements(*elements, key, path);
        } else if (const auto* entries = value.dictionary()) {
            checkInner(*entries, key, path);
        }
    }

    void checkElements(const Array& elements, const LaunchdKey& key, const std::string& path) {
        for (std::size_t i = 0; i < elements.size(); ++i) {
            const auto& element = elements[i];
            if (!isOfKinds(element, key.type.elements))
                report(element, elementPath(path, i), key.type.elements);
            else if (const auto* entries = element.dictionary())
                checkInner(*entries, key, elementPath(path, i));
        }
    }

    void checkInner(const Dictionary& entries, const LaunchdKey& key, const std::string& path) {
        if (hasKnownKeys(key.name))
            return checkEntries(entries, key.name, path);
        for (const auto& [name, value] : entries) {
            if (isOfKinds(value, key.type.entries))
                checkNamed(value, key, path, name);
            else if (key.name == "EnvironmentVariables")
                findings_.add(Rule::EnvironmentType, entryPath(path, name), 0,
                              {kindWithArticle(value)});
            else
                report(value, entryPath(path, name), key.type.entries);
        }
    }

    /// The dictionaries, or arrays of them, that bear a name of the user's choice.
    void checkNamed(const Value& value, const LaunchdKey& key, const std::string& path,
                    const std::string& name) {
        const auto parent = std::string(key.name).append(".*");
        if (!hasKnownKeys(parent))
            return;
        const auto inner = entryPath(path, name);
        if (const auto* entries = value.dictionary())
            checkEntries(*entries, parent, inner);
        if (const auto* elements = value.array())
            for (std::size_t i = 0; i < elements->size(); ++i) {
                const auto& element = (*elements)[i];
                if (const auto* entries = element.dictionary())
                    checkEntries(*entries, parent, elementPath(inner, i));
                else
                    report(element, elementPath(inner, i), Kinds::Dictionary);
            }
    }

    void report(const Value& value, std::string path, unsigned kinds) {
        findings_.add(Rule::WrongType, std::move(path), 0,
                      {kindWithArticle(value), kindsInWords(kinds)});
    }

    void reportUnknown(std::string_view parent, std::string_view name, std::string path) {
        if (++unknownKeys_ > mostUnknownKeys)
            return;
        const auto keys = launchdKeys();
        const auto elsewhere = std::find_if(keys.begin(), keys.end(), [name](const auto& key) {
            return key.name == name && !key.parent.ends_with('*');
        });
        if (elsewhere != keys.end())
            findings_.add(Rule::MisplacedKey, std::move(path), elsewhere->parent.empty() ? 1 : 0,
                          {elsewhere->parent});
        else if (const auto* nearest = nearestLaunchdKey(parent, name))
            findings_.add(Rule::MisspeltKey, std::move(path),
                          areEqualWithoutCase(nearest->name, name) ? 1 : 0, {nearest->name});
        else
            findings_.add(Rule::UnknownKey, std::move(path));
    }

    /// A search for the nearest key takes long beside the other rules.
    static constexpr int mostUnknownKeys = 100;

    FindingList& findings_;
    bool namesProgram_;
    int unknownKeys_ = 0;
};

} // namespace

bool namesProgram(const CheckedAgent& agent) {
    const auto isNamedBy = [&agent](std::string_view key) { return agent.hasInAnotherCase(key); };
    return agent.array("ProgramArguments") || agent.string("Program") ||
           agent.string("BundleProgram") || isNamedBy("ProgramArguments") || isNamedBy("Program") ||
           isNamedBy("BundleProgram");
}

void checkKeys(const CheckedAgent& agent) {
    KeyChecks(agent).checkEntries(agent.keys, "", "");
    if (agent.isSet("Disabled"))
        agent.findings.add(Rule::DisabledDefault, "Disabled");
}

} // namespace frimbolate
