#include "macos/user_defaults.h"

#include "core/named_error.h"
#include "macos/values.h"

#include <algorithm>

namespace frimbolate {

UserDefaults::UserDefaults(Log& log, std::string_view domain) : log_(log) {
    if (!domain.empty())
        domain_ = stringOf(domain);
}

CFStringRef UserDefaults::domain() const {
    return domain_ ? domain_.get() : kCFPreferencesCurrentApplication;
}

std::optional<Value> UserDefaults::object(std::string_view key) {
    const auto name = stringOf(key);
    if (!name)
        return std::nullopt;
    const Owned<CFPropertyListRef> object(::CFPreferencesCopyAppValue(name.get(), domain()));
    return valueOf(object.get());
}

void UserDefaults::set(std::string_view key, Value value) {
    const auto name = stringOf(key);
    if (!name)
        return;
    try {
        ::CFPreferencesSetAppValue(name.get(), objectOf(value).get(), domain());
    } catch (const NamedError& error) {
        log_.line("Could not keep preference " + std::string(key) + ": " + error.reason());
    }
}

void UserDefaults::remove(std::string_view key) {
    if (const auto name = stringOf(key))
        ::CFPreferencesSetAppValue(name.get(), nullptr, domain());
}

std::vector<std::string> UserDefaults::keys() {
    const Owned<CFArrayRef> names(
        ::CFPreferencesCopyKeyList(domain(), kCFPreferencesCurrentUser, kCFPreferencesAnyHost));
    std::vector<std::string> result;
    const CFIndex count = names ? ::CFArrayGetCount(names.get()) : 0;
    for (CFIndex i = 0; i < count; ++i)
        result.push_back(
            toStdString(static_cast<CFStringRef>(::CFArrayGetValueAtIndex(names.get(), i))));
    std::ranges::sort(result); // the platform has no order
    return result;
}

void UserDefaults::synchronize() {
    if (!::CFPreferencesAppSynchronize(domain()))
        log_.line("Could not write the preferences");
}

} // namespace frimbolate
