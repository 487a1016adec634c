// What a fuzz target is: a function that reads untrusted bytes, and states what must hold of them.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace frimbolate::test {

struct FuzzTarget {
    const char* name; ///< also that of its folder in corpus/
    /// \throws BrokenProperty, or whatever the program let through
    void (*run)(std::string_view input);
};

/// Every target, in the order of the names.
std::span<const FuzzTarget> fuzzTargets();

/// The target of a name, or nullptr.
const FuzzTarget* fuzzTarget(std::string_view name);

class BrokenProperty : public std::logic_error {
  public:
    using std::logic_error::logic_error;
};

/// \param property what must hold, as a sentence
/// \throws BrokenProperty where it does not hold
inline void require(bool holds, const char* property) {
    if (!holds)
        throw BrokenProperty(property);
}

// The targets, one source each.
void fuzzAgentReader(std::string_view input);
void fuzzAnyForm(std::string_view input);
void fuzzBinary(std::string_view input);
void fuzzChecks(std::string_view input);
void fuzzCommandLine(std::string_view input);
void fuzzOldStyle(std::string_view input);
void fuzzPreferences(std::string_view input);
void fuzzTimeOfDay(std::string_view input);
void fuzzXml(std::string_view input);

} // namespace frimbolate::test
