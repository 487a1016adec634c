#include "core/agent_upgrade.h"

#include "core/agent_form.h"
#include "core/agent_reader.h"
#include "core/conversions.h"

namespace frimbolate {

UpgradedNames upgradedNames(std::string_view oldPath) {
    // Replaced in the whole path, not only in the file name.
    const auto path = replacedAll(oldPath, "fr\u0131mbolate", "frimbolate");
    const std::string fileName(afterLast(path, "/"));
    return {fileName, std::string(labelPrefix) + agentNameFromLabel(fileName)};
}

} // namespace frimbolate
