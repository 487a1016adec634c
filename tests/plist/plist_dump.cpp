// For the comparisons with plistlib:
//   plist_dump FILE …    prints the line of verdictOn() for each file
//   plist_dump           answers requests on the standard input, until its end; each is a letter,
//   the
//                        length of its content as four bytes, the most significant first, and the
//                        content:
//                          r  a file       answered with the line of verdictOn(), a tab and the
//                          reason
//                                          why the file is rejected
//                          w  a number     answered with the random content of that seed, written
//                          as
//                                          XML, in hexadecimal
#include "plist/xml_writer.h"
#include "tests/plist/verdict.h"
#include "tests/support/random_values.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>

namespace {

using namespace frimbolate;

/// \return nothing at the end of the input
std::optional<std::string> request(std::size_t size) {
    std::string bytes(size, '\0');
    if (std::fread(bytes.data(), 1, size, stdin) != size)
        return std::nullopt;
    return bytes;
}

std::string hexadecimal(const std::string& bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        text += digits[static_cast<unsigned char>(c) >> 4];
        text += digits[static_cast<unsigned char>(c) & 15];
    }
    return text;
}

std::string answer(char kind, const std::string& content) {
    if (kind == 'w') {
        test::RandomValues random(static_cast<std::uint32_t>(std::stoul(content)));
        return hexadecimal(xmlPropertyList(random.dictionary(4)));
    }
    const std::string verdict = test::verdictOn(content);
    return verdict == "error" ? "error\t" + test::rejectionReasonFor(content) : verdict;
}

int answerRequests() {
    while (const auto head = request(5)) {
        std::size_t size = 0;
        for (std::size_t i = 1; i < head->size(); ++i)
            size = size << 8 | static_cast<unsigned char>((*head)[i]);
        const auto content = request(size);
        if (!content)
            return 1;
        std::printf("%s\n", answer(head->front(), *content).c_str());
        std::fflush(stdout);
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    if (count == 1)
        return answerRequests();
    for (int i = 1; i < count; ++i) {
        std::ifstream in(arguments[i], std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(in)), {});
        std::printf("%s\n", frimbolate::test::verdictOn(bytes).c_str());
    }
    return 0;
}
