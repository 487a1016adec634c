// Counts which kinds of step, pages, sheets, alerts, panels and other states a run has visited.
#pragma once

#include "tests/random_user/session.h"
#include "tests/random_user/step.h"

#include <map>
#include <string>
#include <vector>

namespace frimbolate::test {

class Visits {
  public:
    void add(Session& session, const Step& step);

    /// What a run should have visited and has not.
    /// \param isLong whether all of it; else what the short run of the tests visits
    std::vector<std::string> missing(bool isLong) const;
    /// A line for each: the count, a tab, the name.
    std::string table() const;

  private:
    std::map<std::string, int> counts_;
};

} // namespace frimbolate::test
