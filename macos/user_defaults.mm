#import "macos/user_defaults.h"

#import "macos/values.h"

namespace frimbolate {

namespace {

NSUserDefaults* store() { return NSUserDefaults.standardUserDefaults; }

} // namespace

std::optional<Value> UserDefaults::object(std::string_view key) {
    NSString* name = stringOf(key);
    return name ? valueOf([store() objectForKey:name]) : std::nullopt;
}

void UserDefaults::set(std::string_view key, Value value) {
    if (NSString* name = stringOf(key))
        [store() setObject:objectOf(value) forKey:name];
}

void UserDefaults::remove(std::string_view key) {
    if (NSString* name = stringOf(key))
        [store() removeObjectForKey:name];
}

std::vector<std::string> UserDefaults::keys() {
    NSString* domain = NSBundle.mainBundle.bundleIdentifier;
    std::vector<std::string> result;
    if (domain)
        for (NSString* key in [store() persistentDomainForName:domain])
            result.push_back(toStdString(key));
    return result;
}

void UserDefaults::synchronize() { [store() synchronize]; }

} // namespace frimbolate
