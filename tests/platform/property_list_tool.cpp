// Lets a script of another language see what the readers and the writer do:
//   property_list_tool rewrite FILE        writes what it read from FILE to standard output
//   property_list_tool random SEED FILE    writes random content of that seed to FILE
#include "platform/qt/property_list_file.h"
#include "platform/qt/property_list_writer.h"
#include "tests/platform/property_lists.h"

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

namespace {

using namespace frimbolate;

int rewrite(const std::string& path) {
    const auto file = readPropertyListFile(path);
    if (file.condition != FileCondition::read) {
        std::fprintf(stderr, "%s\n", file.reason.c_str());
        return 1;
    }
    const auto text = xmlPropertyList(file.dictionary);
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size() ? 0 : 1;
}

int writeRandom(const char* seed, const std::string& path) {
    std::mt19937_64 random(std::strtoull(seed, nullptr, 10));
    return writePropertyListFile(path, test::randomDictionary(random)) ? 1 : 0;
}

} // namespace

int main(int count, char** values) {
    const std::span arguments(values, static_cast<std::size_t>(count));
    if (count == 3 && std::string_view(arguments[1]) == "rewrite")
        return rewrite(arguments[2]);
    if (count == 4 && std::string_view(arguments[1]) == "random")
        return writeRandom(arguments[2], arguments[3]);
    std::fprintf(stderr, "usage: property_list_tool rewrite FILE | random SEED FILE\n");
    return 2;
}
