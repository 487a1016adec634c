// One step of a random user, as it is drawn, recorded and replayed.
#pragma once

#include "tests/support/random_values.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace frimbolate::test {

class Session;

using Arguments = std::vector<std::string>;

struct Step {
    std::string kind;
    Arguments arguments;

    /// The kind and the arguments, separated by tabs.
    std::string line() const;
    static Step ofLine(std::string_view line);
    friend bool operator==(const Step&, const Step&) = default;
};

using Steps = std::vector<Step>;

/// A kind of step, a row of the tables of steps_*.cpp.
struct StepKind {
    const char* name;
    int weight; ///< how often it is drawn, relative to the others
    /// Arguments that make sense in the present state; nothing where the kind makes none.
    std::optional<Arguments> (*draw)(Session& session, RandomValues& random);
    /// Does nothing where the arguments name what is not there now.
    void (*run)(Session& session, const Arguments& arguments);
};

std::span<const StepKind> formSteps();    ///< controls, keys and drops of the window
std::span<const StepKind> dialogSteps();  ///< file panels, menus, and the list of agents
std::span<const StepKind> desktopSteps(); ///< the window, time, other programs
std::vector<StepKind> allStepKinds();

/// Runs a step of any kind, without waiting for what it causes.
void run(Session& session, const Step& step);

/// Draws steps: mostly one by one, now and then the steps of a plan in their order, since no chance
/// fills a whole form and saves it.
class StepSource {
  public:
    explicit StepSource(std::uint32_t seed) : random_(seed) {}

    Step next(Session& session);

  private:
    void begin(std::string_view plan, Session& session);

    RandomValues random_;
    std::vector<StepKind> kinds_ = allStepKinds();
    Steps planned_; ///< the next one last
};

} // namespace frimbolate::test
