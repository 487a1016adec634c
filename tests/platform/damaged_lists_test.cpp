// Damaged files of every kind: whatever stands in them, a reader gives a value or a Failure. The
// sanitizers of the build see whether it strayed on the way.
#include "platform/qt/property_list_binary_reader.h"
#include "platform/qt/property_list_writer.h"
#include "platform/qt/property_list_xml_reader.h"
#include "tests/platform/property_lists.h"

#include <gtest/gtest.h>

namespace frimbolate::test {

namespace {

using namespace std::string_literals;

struct Outcome {
    int read = 0;
    int refused = 0;

    void take(const QByteArray& bytes) {
        try {
            if (isBinaryPropertyList(bytes))
                readBinaryPropertyList(bytes);
            else
                readXmlPropertyList(bytes);
            ++read;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.name(), "Unreadable property list");
            EXPECT_NE(failure.reason(), "");
            ++refused;
        }
    }
};

QByteArray validXml() {
    std::mt19937_64 random(7);
    return QByteArray::fromStdString(xmlPropertyList(randomDictionary(random)));
}

QByteArray validBinary() {
    return BinaryFile{{"\xd5\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a", "\x51\x61", "\x51\x62",
                       "\x61\x00\x63"s, "\x51\x64", "\x51\x65", "\xa2\x08\x09",
                       "\x4f\x10\x10"s + "0123456789abcdef", "\x13" + bigEndian(99, 8), "\x09",
                       "\x33\x41\xc0\x00\x00\x00\x00\x00\x00"s}}
        .bytes();
}

TEST(DamagedLists, everyBeginningOfAnXmlFileIsRefused) {
    // The last line end may be missing.
    const auto file = validXml().trimmed();
    Outcome outcome;
    for (qsizetype size = 0; size < file.size(); ++size)
        outcome.take(file.first(size));
    EXPECT_EQ(outcome.read, 0);
    outcome.take(file);
    EXPECT_EQ(outcome.read, 1);
}

TEST(DamagedLists, everyBeginningOfABinaryFileIsRefused) {
    const auto file = validBinary();
    Outcome outcome;
    for (qsizetype size = 0; size < file.size(); ++size)
        outcome.take(file.first(size));
    EXPECT_EQ(outcome.read, 0);
    outcome.take(file);
    EXPECT_EQ(outcome.read, 1);
}

void flipBytes(const QByteArray& file) {
    std::mt19937_64 random(20011);
    Outcome outcome;
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = file;
        for (auto flips = 1 + random() % 4; flips > 0; --flips)
            damaged[static_cast<qsizetype>(random() % static_cast<std::uint64_t>(file.size()))] =
                static_cast<char>(random());
        outcome.take(damaged);
    }
    // Otherwise the rounds did not reach what they are about.
    EXPECT_GT(outcome.read, 0);
    EXPECT_GT(outcome.refused, 0);
    EXPECT_EQ(outcome.read + outcome.refused, 3000);
}

TEST(DamagedLists, flippedBytesInXml) { flipBytes(validXml()); }
TEST(DamagedLists, flippedBytesInBinary) { flipBytes(validBinary()); }

TEST(DamagedLists, everyByteOfABinaryFileWithEveryValue) {
    const auto file = validBinary();
    Outcome outcome;
    for (qsizetype place = 0; place < file.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            QByteArray damaged = file;
            damaged[place] = static_cast<char>(byte);
            outcome.take(damaged);
        }
    EXPECT_EQ(outcome.read + outcome.refused, file.size() * 256);
}

} // namespace

} // namespace frimbolate::test
