#include "tests/plist/verdict.h"

#include "core/named_error.h"
#include "plist/property_list_reader.h"
#include "tests/plist/value_notation.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace frimbolate::test {

namespace {

const std::string folder = FRIMBOLATE_PLIST_TESTS;

} // namespace

std::string verdictOn(std::string_view file) try {
    return "ok\t" + valueText(readPropertyList(file));
} catch (const NamedError& failure) {
    if (failure.name() != "Unreadable property list" || failure.reason().empty())
        throw std::logic_error("another failure: " + failure.name() + ": " + failure.reason());
    return "error";
}

std::string rejectionReasonFor(std::string_view file) try {
    return "read as " + valueText(readPropertyList(file));
} catch (const NamedError& failure) {
    return failure.reason();
}

std::string VerdictRow::file() const {
    const std::string path = folder + "/cases/" + name + ".plist";
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw std::runtime_error(path + " is missing");
    return {std::istreambuf_iterator<char>(in), {}};
}

void PrintTo(const VerdictRow& row, std::ostream* out) { *out << row.name; }

std::vector<VerdictRow> verdictRows() {
    std::vector<VerdictRow> rows;
    std::ifstream in(folder + "/verdicts.tsv");
    for (std::string line; std::getline(in, line);) {
        const auto tab = line.find('\t');
        std::string verdict = line.substr(tab + 1);
        rows.push_back({line.substr(0, tab), verdict == "error\t" ? "error" : verdict});
    }
    return rows;
}

std::vector<VerdictRow> readableRows() {
    auto rows = verdictRows();
    std::erase_if(rows, [](const VerdictRow& row) { return !row.isReadable(); });
    return rows;
}

} // namespace frimbolate::test
