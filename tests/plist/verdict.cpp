#include "tests/plist/verdict.h"

#include "core/failure.h"
#include "plist/property_list_reader.h"
#include "tests/plist/value_text.h"

#include <stdexcept>

namespace frimbolate::test {

std::string verdictOn(std::string_view file) try {
    return "ok\t" + valueText(readPropertyList(file));
} catch (const Failure& failure) {
    if (failure.name() != "Unreadable property list" || failure.reason().empty())
        throw std::logic_error("another failure: " + failure.name() + ": " + failure.reason());
    return "error";
}

std::string refusalOf(std::string_view file) try {
    return "read as " + valueText(readPropertyList(file));
} catch (const Failure& failure) {
    return failure.reason();
}

} // namespace frimbolate::test
