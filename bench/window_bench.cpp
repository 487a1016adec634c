// Measures how long the window takes to show an agent with one text of a million characters, from
// the choice of its file to the painted window. The limit is half a second.
#include "bench/toolkit.h"
#include "tests/widgets/scripted_window.h"

#include <QAction>
#include <QPlainTextEdit>

#include <benchmark/benchmark.h>

#include <functional>

namespace frimbolate {

namespace {

constexpr std::size_t million = 1'000'000;

Dictionary usualAgent() {
    return {{"Label", "com.frimbolate.Backup"},
            {"ProgramArguments", Array{Value("/Users/maya/bin/backup.sh")}},
            {"StartOnMount", true}};
}

Dictionary agentWith(const std::string& key, Value value) {
    Dictionary result = usualAgent();
    result[key] = std::move(value);
    return result;
}

Dictionary agentWithScript(const std::string& script) {
    return agentWith("ProgramArguments", Array{Value("/bin/sh"), Value("-c"), Value(script)});
}

/// A text of a million characters in lines of a length in characters.
std::string lines(std::size_t lineLength) {
    const std::string line = "echo " + std::string(lineLength - 6, 'x') + "\n";
    std::string text;
    while (text.size() < million)
        text += line;
    return text;
}

const std::string longText(million, 'x');

void showAgent(benchmark::State& state, const std::function<Dictionary()>& make) {
    startToolkit();
    const std::string path = std::string(test::ScriptedWindow::agents) + "/com.frimbolate.a.plist";
    test::ScriptedWindow window;
    window.start();
    window.platform.defaults.contents["WarnForDelete"] = false;
    window.platform.files.contents[path] = make();
    for (auto _ : state) {
        window.delegate.continueEditingAgent();
        window.platform.choose(path);
        window.window.mirror();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.window.grab());
        state.PauseTiming();
        window.delegate.createNewAgent();
        window.delegate.form().popoverScriptObject.shown = false;
        window.window.mirror();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}

#define SHOW_AGENT(name, make)                                                                     \
    BENCHMARK_CAPTURE(showAgent, name, [] { return make; })->Unit(benchmark::kMillisecond)

SHOW_AGENT(shortTexts, usualAgent());
SHOW_AGENT(scriptInOneLine, agentWithScript(longText));
SHOW_AGENT(scriptInManyLines, agentWithScript(lines(50)));
SHOW_AGENT(scriptInWideLines, agentWithScript(lines(4000)));
SHOW_AGENT(label, agentWith("Label", "com.frimbolate." + longText));
SHOW_AGENT(target, agentWith("ProgramArguments", Array{Value("/" + longText)}));
SHOW_AGENT(watchedPath, agentWith("WatchPaths", Array{Value("/" + longText)}));
SHOW_AGENT(logPath, agentWith("StandardOutPath", "/" + longText));
SHOW_AGENT(queueFolder, agentWith("QueueDirectories", Array{Value("/" + longText)}));
SHOW_AGENT(interval, agentWith("StartInterval", std::string(million, '1')));

/// Measures a key press in such a text.
void typeIntoScript(benchmark::State& state, const std::function<std::string()>& make) {
    startToolkit();
    test::ScriptedWindow window;
    window.start();
    window.show([&](FormModel& form) {
        form.agentTargetButton.selectedItem = TargetType::Script;
        form.scriptPopOverScriptField.stringValue = make();
        form.popoverScriptObject.shown = true;
    });
    QCoreApplication::processEvents();
    auto* editor = window.find<QPlainTextEdit>("scriptPopOverScriptField");
    for (auto _ : state) {
        editor->insertPlainText("x");
        QCoreApplication::processEvents();
    }
}

/// Measures the page of the property list for such a text, from its command to the painted window.
void showPropertyList(benchmark::State& state, const std::function<std::string()>& make) {
    startToolkit();
    test::ScriptedWindow window;
    window.start();
    const auto setScript = [&](const std::string& script) {
        window.show([&](FormModel& form) {
            form.agentTargetButton.selectedItem = TargetType::Script;
            form.scriptPopOverScriptField.stringValue = script;
        });
        QCoreApplication::processEvents();
    };
    for (auto _ : state) {
        state.PauseTiming();
        setScript("");
        window.find<QAction>("showForm")->trigger();
        setScript(make());
        state.ResumeTiming();
        window.find<QAction>("showPropertyList")->trigger();
        QCoreApplication::processEvents();
        benchmark::DoNotOptimize(window.window.grab());
    }
}

BENCHMARK_CAPTURE(showPropertyList, oneLine, [] {
    return longText;
})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(showPropertyList, manyLines, [] {
    return lines(50);
})->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(typeIntoScript, oneLine, [] { return longText; })->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(typeIntoScript, manyLines, [] {
    return lines(50);
})->Unit(benchmark::kMillisecond);

} // namespace

} // namespace frimbolate
