// Measures the list of agents: how long until it shows a folder of real files, and the longest time
// that the window handles no event meanwhile. The limits: 0.2 seconds for 1,000 agents, and 50
// milliseconds without an event for 10,000.
#include "bench/toolkit.h"
#include "core/agent_plist.h"
#include "posix/local_agent_folder.h"
#include "posix/local_clock.h"
#include "posix/property_list_file.h"
#include "tests/widgets/scripted_window.h"
#include "widgets/pages/agent_list_reader.h"
#include "widgets/pages/agents_model.h"

#include <QAction>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTableView>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>

namespace frimbolate {

namespace {

void fill(const QTemporaryDir& folder, int count) {
    for (int i = 0; i < count; ++i) {
        // Scattered, so that the order of the files is not that of the names.
        const std::string name = "agent_" + std::to_string((i * 7919) % count);
        AgentForm form;
        form.name = name;
        form.targetType = TargetType::File;
        form.targetPath = "/bin/" + name;
        form.action = AgentAction::OnSchedule;
        form.scheduleType = ScheduleType::EveryDay;
        form.scheduleTime = {.hour = i % 24, .minute = i % 60};
        const std::string file = "com.frimbolate." + std::to_string(i);
        writePropertyListFile(
            folder.filePath(QString::fromStdString(file + ".plist")).toStdString(),
            buildAgentPlist(form, "com.frimbolate." + name));
    }
}

void showAgents(benchmark::State& state) {
    startToolkit();
    const int count = static_cast<int>(state.range(0));
    const QTemporaryDir folder;
    fill(folder, count);
    double longest = 0;
    for (auto _ : state) {
        state.PauseTiming();
        test::ScriptedWindow window;
        window.start();
        window.platform.defaults.contents["Bookmark"] =
            test::bookmarkOf(folder.path().toStdString());
        LocalAgentFolder agents;
        AgentListReader reader(agents, window.delegate, localWallClock);
        window.window.setAgentListReader(reader);
        QCoreApplication::processEvents();
        bool isRead = false;
        QObject::connect(&reader, &AgentListReader::finished, [&] { isRead = true; });
        auto* view = window.find<QTableView>("agents");
        state.ResumeTiming();
        QElapsedTimer turn;
        turn.start();
        window.find<QAction>("showAgents")->trigger();
        while (!isRead || view->model()->rowCount() < count) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            longest = std::max(longest, static_cast<double>(turn.nsecsElapsed()) / 1e6);
            turn.restart();
        }
        QCoreApplication::processEvents();
        longest = std::max(longest, static_cast<double>(turn.nsecsElapsed()) / 1e6);
        state.PauseTiming();
        // The watches of the files are added behind the reading, in the same event loop.
        for (int i = 0; i < 20; ++i) {
            turn.restart();
            QCoreApplication::processEvents();
            longest = std::max(longest, static_cast<double>(turn.nsecsElapsed()) / 1e6);
        }
        state.ResumeTiming();
    }
    state.counters["longest_ms"] = longest;
}

BENCHMARK(showAgents)
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(5)
    ->UseRealTime();

/// A key typed into the filter of a long list.
void filterAgents(benchmark::State& state) {
    startToolkit();
    const int count = static_cast<int>(state.range(0));
    AgentRows rows;
    for (int i = 0; i < count; ++i) {
        AgentOverview overview;
        overview.path = "/" + std::to_string(100000 + i);
        overview.name = "agent_" + std::to_string((i * 7919) % count);
        overview.sentence = "Runs a.sh every day at 07:30.";
        rows.push_back(makeAgentRow(overview, LocalMinute(), ClockFormat::TwentyFourHours));
    }
    AgentsModel model;
    AgentsFilter filter(model);
    model.setRows(rows);
    QTableView view;
    view.setModel(&filter);
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        filter.setFilter(odd ? "agent_1" : "agent_");
    }
}

BENCHMARK(filterAgents)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

} // namespace frimbolate
