// two_at_once [--seed S] [--count N] [--programs P]
#include "tests/two_at_once/rounds.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

int main(int count, char** arguments) {
    int rounds = 40, programs = 2;
    std::uint32_t seed = 1;
    try {
        for (int i = 1; i < count; i += 2) {
            const std::string option = arguments[i];
            if (i + 1 == count)
                throw std::runtime_error(option + " needs a value");
            const int value = std::stoi(arguments[i + 1]);
            if (option == "--count")
                rounds = value;
            else if (option == "--seed")
                seed = static_cast<std::uint32_t>(value);
            else if (option == "--programs")
                programs = value;
            else
                throw std::runtime_error("unknown option " + option);
        }
        int failures = 0;
        frimbolate::test::Rounds trial(programs, seed);
        for (int round = 1; round <= rounds; ++round)
            if (const std::string flaw = trial.run(round); !flaw.empty()) {
                ++failures;
                std::printf("seed %u, round %d:\n%s\n", seed, round, flaw.c_str());
            }
        std::printf("%d programs, %d killed, %d temporary files left by them, "
                    "%ld readings of all files\n",
                    programs, trial.kills(), trial.leftovers(), trial.readings());
        constexpr int enoughKills = 20; // some leave a file, if not each
        if (trial.readings() == 0 || trial.kills() == 0 ||
            (trial.kills() >= enoughKills && trial.leftovers() == 0))
            ++failures;
        std::printf("result\ttwo_at_once\t%d\trounds\t%d\n", rounds, failures);
        return failures == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "two_at_once: %s\n", error.what());
        return 2;
    }
}
