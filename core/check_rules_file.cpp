// Rules about the file that holds the agent.
#include "core/check_rules.h"
#include "core/conversions.h"

#include <algorithm>

namespace frimbolate {

namespace {

constexpr unsigned writableByGroupOrOthers = 022;
constexpr std::string_view suffix = ".plist";

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void checkName(const CheckedAgent& agent, const std::string& label) {
    auto name = afterLast(agent.context.filePath, "/");
    if (name.ends_with(suffix))
        name.remove_suffix(suffix.size());
    // A file system may store accented letters in another form than the label.
    const bool canCompare = isAscii(name) || isAscii(label);
    if (canCompare && name != label)
        agent.findings.add(Rule::FileName, "Label", 0, {label});
}

} // namespace

void checkFile(const CheckedAgent& agent) {
    const auto& context = agent.context;
    if (context.mode && (*context.mode & writableByGroupOrOthers) != 0)
        agent.findings.add(Rule::FileWritable, "");
    if (context.ownedByUser && !*context.ownedByUser)
        agent.findings.add(Rule::FileOwner, "");
    const auto* label = agent.string("Label");
    if (label && !label->empty() && !context.filePath.empty())
        checkName(agent, *label);
}

} // namespace frimbolate
