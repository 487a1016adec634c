// CoreFoundation in memory, as far as the services of macos/ call it: an implementation of the
// declarations in frameworks/ with the ownership rules of the platform. A wrong call fails the
// running test.
#pragma once

#include "core/value.h"

#include <CoreFoundation/CoreFoundation.h>

#include <map>
#include <set>
#include <string>
#include <vector>

namespace frimbolate::test {

/// What is behind the functions. One at a time exists; a test constructs it first and so destroys
/// it last. Its destructor fails the test for an object that was not released.
class FakeCoreFoundation {
  public:
    FakeCoreFoundation();
    ~FakeCoreFoundation();
    FakeCoreFoundation(const FakeCoreFoundation&) = delete;
    FakeCoreFoundation& operator=(const FakeCoreFoundation&) = delete;

    /// The preferences by domain. The running application's is "(current)".
    std::map<std::string, Dictionary, std::less<>> preferences;
    bool synchronizeFails = false;

    std::set<std::string, std::less<>> folders;      ///< those that a bookmark can be made of
    std::set<std::string, std::less<>> stale;        ///< those whose bookmark is stale
    std::map<std::string, int, std::less<>> begun;   ///< accesses begun and not ended yet
    std::vector<std::string> accesses;               ///< "begin …" and "end …"
    std::map<std::string, std::string> applications; ///< paths by bundle identifier
    std::vector<std::pair<std::string, unsigned>> launched; ///< paths, with the flags
    std::vector<std::string> shownInFinder;                 ///< paths
    std::vector<std::string> logged;

    int objects = 0; ///< that exist
};

/// An object that no property list contains.
CFTypeRef makeUrlObject(const std::string& path);

} // namespace frimbolate::test
