// Runs a fuzz target over the files of folders, without a fuzzer.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size);

int main(int count, char** arguments) {
    int files = 0;
    for (int i = 1; i < count; ++i)
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::ifstream in(entry.path(), std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(in)), {});
            LLVMFuzzerTestOneInput(reinterpret_cast<const unsigned char*>(bytes.data()),
                                   bytes.size());
            ++files;
        }
    std::printf("%d files replayed\n", files);
    return files > 0 ? 0 : 1;
}
