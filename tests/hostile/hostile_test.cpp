// Each part of the program reads or rejects each hostile file with memory and work that are
// proportional to its size. run_hostile.py measures the largest files.
#include "tests/hostile/hostile_consumers.h"
#include "tests/hostile/hostile_files.h"
#include "tests/plist/memory_meter.h"
#include "tests/support/rows.h"
#include "tests/support/temporary_folder.h"

namespace frimbolate::test {

void PrintTo(const HostileFile& file, std::ostream* out) { *out << file.name; }

namespace {

constexpr std::size_t fileSize = std::size_t{32} << 10;
constexpr std::size_t mebibyte = std::size_t{1} << 20;
/// A value takes 40 times its file at most; some copies of texts, buffers, and the texts of limited
/// length that are made of a value: descriptions, and the file as it is written, which stops at
/// 16 MiB and was copied when it grew.
constexpr std::size_t mostPeak = 60 * fileSize + 32 * mebibyte;
/// The work is proportional to what is allocated, as no step reads its input more than a few times.
constexpr std::size_t mostTotal = 150 * fileSize + 96 * mebibyte;

class HostileFiles : public testing::TestWithParam<HostileFile> {};

TEST_P(HostileFiles, TakeBoundedMemoryAndWork) {
    const TemporaryFolder folder;
    const auto path = folder / "hostile.plist";
    const std::string bytes = GetParam().make(fileSize);
    ASSERT_LE(bytes.size(), fileSize);
    writeBytes(path, bytes);
    for (const auto& consumer : hostileConsumers()) {
        SCOPED_TRACE(consumer.name);
        const MemoryMeter meter;
        consumer.consume(path);
        EXPECT_LE(meter.peak(), mostPeak);
        EXPECT_LE(meter.total(), mostTotal);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, HostileFiles,
                         testing::ValuesIn(hostileFiles().begin(), hostileFiles().end()),
                         NamedAfterRow());

} // namespace

} // namespace frimbolate::test
