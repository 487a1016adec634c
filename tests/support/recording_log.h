// A log that keeps its lines for the test.
#pragma once

#include "platform/services.h"

namespace frimbolate::test {

struct RecordingLog : Log {
    void line(const std::string& text) override { lines.push_back(text); }
    std::vector<std::string> lines;
};

} // namespace frimbolate::test
