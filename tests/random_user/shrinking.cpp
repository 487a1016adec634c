#include "tests/random_user/shrinking.h"

#include <algorithm>

namespace frimbolate::test {

namespace {

Steps without(const Steps& steps, std::size_t from, std::size_t count) {
    Steps result(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t rest = std::min(from + count, steps.size());
    result.insert(result.end(), steps.begin() + static_cast<std::ptrdiff_t>(rest), steps.end());
    return result;
}

} // namespace

Steps shortened(Steps steps, const std::function<bool(const Steps&)>& fails, int mostTries) {
    for (std::size_t part = (steps.size() + 1) / 2; part > 0;) {
        bool isShorter = false;
        // From the end: what a failure needs comes late, and what comes after it is not needed.
        for (std::size_t end = steps.size(); end > 0;) {
            const std::size_t from = end > part ? end - part : 0;
            if (mostTries-- <= 0)
                return steps;
            Steps candidate = without(steps, from, end - from);
            if (fails(candidate)) {
                steps = std::move(candidate);
                isShorter = true;
            }
            end = std::min(from, steps.size());
        }
        if (part == 1 && !isShorter)
            break;
        part = part == 1 ? 1 : (part + 1) / 2;
    }
    return steps;
}

} // namespace frimbolate::test
