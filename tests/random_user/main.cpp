// random_user [--seed S] [--count N] [--replay FILE] [--plant NAME] [--visits short]
//             [--shorten no]
#include "tests/random_user/shrinking.h"
#include "tests/random_user/trial.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace {

using namespace frimbolate::test;

constexpr int mostReplays = 150;

Steps stepsOfFile(const char* path) {
    std::ifstream file(path);
    if (!file)
        throw std::runtime_error(std::string("cannot read ") + path);
    Steps result;
    for (std::string line; std::getline(file, line);)
        if (!line.empty())
            result.push_back(Step::ofLine(line));
    return result;
}

Planted plantedOf(const std::string& name) {
    if (name == "rule")
        return Planted::Rule;
    if (name == "crash")
        return Planted::Crash;
    if (name == "object")
        return Planted::Object;
    if (name == "stray")
        return Planted::Stray;
    if (name == "blocks")
        return Planted::Blocks;
    throw std::runtime_error("no fault of this name can be planted: " + name);
}

Trial trialOf(int count, char** arguments) {
    Trial trial;
    trial.printsVisits = true;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string option = arguments[i];
        const char* value = arguments[i + 1];
        if (option == "--seed")
            trial.seed = static_cast<std::uint32_t>(std::stoul(value));
        else if (option == "--count")
            trial.count = std::stoi(value);
        else if (option == "--replay")
            trial.replayed = stepsOfFile(value);
        else if (option == "--visits" && std::strcmp(value, "short") == 0)
            trial.needsShortVisits = true;
        else if (option == "--shorten" && std::strcmp(value, "no") == 0)
            trial.isShortened = false;
        else if (option == "--plant")
            trial.planted = plantedOf(value);
        else
            throw std::runtime_error("unknown option " + option);
    }
    if (count % 2 == 0)
        throw std::runtime_error("an option without a value");
    return trial;
}

/// Whether the fault belongs to the steps, and not to their number.
bool canBeShortened(const std::string& fault) {
    return fault != "MemoryIsFlat" && fault != "EveryStateIsVisited";
}

void report(const Trial& trial, const Ending& ending) {
    std::printf("seed %u, step %zu: %s\n%s\n", trial.seed, ending.steps.size(),
                ending.fault.c_str(), ending.detail.c_str());
    if (!trial.isShortened || !canBeShortened(ending.fault))
        return;
    Trial replay = trial;
    replay.printsVisits = false;
    const auto fails = [&](const Steps& steps) {
        replay.replayed = steps;
        return endingOf(replay).fault == ending.fault;
    };
    if (!fails(ending.steps)) {
        std::puts("The same steps do not fail again. The last ones:");
        for (std::size_t i = ending.steps.size() - std::min<std::size_t>(20, ending.steps.size());
             i < ending.steps.size(); ++i)
            std::printf("%s\n", ending.steps[i].line().c_str());
        return;
    }
    const Steps steps = shortened(ending.steps, fails, mostReplays);
    std::printf("%zu steps are enough (--replay FILE):\n", steps.size());
    for (const Step& step : steps)
        std::printf("%s\n", step.line().c_str());
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Trial trial = trialOf(count, arguments);
        const Ending ending = endingOf(trial);
        if (!ending.isGood())
            report(trial, ending);
        std::printf("result\trandom_user\t%zu\tsteps\t%d\n", ending.steps.size(),
                    ending.isGood() ? 0 : 1);
        return ending.isGood() ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "random_user: %s\n", error.what());
        return 2;
    }
}
