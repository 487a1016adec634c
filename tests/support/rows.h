// Names for the tests of a table.
#pragma once

#include <gtest/gtest.h>

#include <string>

namespace frimbolate::test {

/// Names a test after its row: the last argument of INSTANTIATE_TEST_SUITE_P.
struct NamedAfterRow {
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& info) const {
        return std::string(info.param.name);
    }
};

} // namespace frimbolate::test
