// Makes a failing list of steps as short as it can be.
#pragma once

#include "tests/random_user/step.h"

#include <functional>

namespace frimbolate::test {

/// A shortest list of steps that fails as the given one does, in the sense that no step of it can
/// be left out. Leaves out halves, then quarters, and so on (delta debugging). \param fails called
/// with a shorter list, at most `mostTries` times
Steps shortened(Steps steps, const std::function<bool(const Steps&)>& fails, int mostTries);

} // namespace frimbolate::test
