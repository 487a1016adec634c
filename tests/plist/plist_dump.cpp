// For interop_test.py: plist_dump FILE … prints the line of verdictOn() for each file.
#include "tests/plist/verdict.h"

#include <cstdio>
#include <fstream>
#include <iterator>

int main(int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        std::ifstream in(arguments[i], std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), {});
        std::printf("%s\n", frimbolate::test::verdictOn(bytes).c_str());
    }
    return 0;
}
