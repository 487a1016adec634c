#include "tests/random_user/rules.h"

#include "widgets/controls/clock_format.h"
#include "widgets/panels/panel_dialog.h"

namespace frimbolate::test {

namespace {

/// An alert or a panel that is shown or waits. One that was closed is not there any more.
bool isAsking(MainWindow& window) {
    return !window.findChildren<AlertDialog*>().isEmpty() ||
           !window.findChildren<PanelDialog*>().isEmpty();
}

} // namespace

std::optional<BrokenRule> brokenRule(Session& session, const Step& step, const StoredFiles& before,
                                     const StoredFiles& after) {
    const std::string home = session.home().home();
    TextStyle style{home, localeClockFormat()};
    style.now = session.desktop().wallClock();
    const auto shown = present(session.form(), style, localPathState);
    const Seen seen{session, step, session.form(), shown, isAsking(session.window()),
                    before,  after};
    for (const auto rules : {formRules(), choiceRules(), windowRules(), fileRules()})
        for (const Rule& rule : rules)
            if (auto detail = rule.broken(seen); !detail.empty())
                return BrokenRule{rule.name, std::move(detail)};
    return std::nullopt;
}

} // namespace frimbolate::test
