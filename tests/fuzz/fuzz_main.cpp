// The entry of libFuzzer. The environment variable FUZZ_TARGET names the target.
#include "tests/fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>

namespace {

const frimbolate::test::FuzzTarget* chosenTarget = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    const char* name = std::getenv("FUZZ_TARGET");
    chosenTarget = frimbolate::test::fuzzTarget(name ? name : "");
    if (chosenTarget)
        return 0;
    std::fprintf(stderr, "FUZZ_TARGET names one of:");
    for (const auto& target : frimbolate::test::fuzzTargets())
        std::fprintf(stderr, " %s", target.name);
    std::fprintf(stderr, "\n");
    std::exit(2);
}

/// What the target throws ends the process, which libFuzzer reports with the input.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
    chosenTarget->run({reinterpret_cast<const char*>(bytes), size});
    return 0;
}
