// For run_hostile.py, which measures this process:
//   hostile_run                         prints the names of the files and of the consumers
//   hostile_run make NAME SIZE PATH     writes a file of that size in bytes
//   hostile_run consume NAME PATH       reads a file
#include "tests/hostile/hostile_consumers.h"
#include "tests/hostile/hostile_files.h"
#include "tests/support/temporary_folder.h"

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

using namespace frimbolate::test;

template <typename Rows>
const auto* named(Rows rows, std::string_view name) {
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [name](const auto& row) { return row.name == name; });
    return found == rows.end() ? nullptr : &*found;
}

void printNames() {
    for (const auto& file : hostileFiles())
        std::printf("file\t%s\n", file.name);
    for (const auto& consumer : hostileConsumers())
        std::printf("consumer\t%s\n", consumer.name);
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments(values + 1, values + count);
    if (arguments.empty()) {
        printNames();
        return 0;
    }
    if (arguments.size() == 4 && arguments[0] == "make")
        if (const auto* file = named(hostileFiles(), arguments[1])) {
            writeBytes(arguments[3], file->make(std::stoul(arguments[2])));
            return 0;
        }
    if (arguments.size() == 3 && arguments[0] == "consume")
        if (const auto* consumer = named(hostileConsumers(), arguments[1])) {
            consumer->consume(arguments[2]);
            return 0;
        }
    std::fprintf(stderr, "usage: hostile_run [make NAME SIZE PATH | consume NAME PATH]\n");
    return 2;
}
