// Points: one operation in one circumstance with one or two faults at chosen calls.
#pragma once

#include "tests/faults/fault_operations.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace frimbolate::test {

const char* nameOfKind(FaultKind kind);

/// An operation in a circumstance, run once without a fault.
struct CountedOperation {
    const Operation* operation;
    const Variation* variation;
    std::vector<CountedCall> calls;
    std::string problem; ///< of the run without a fault; empty where there is none
};

CountedOperation countedOperation(const Operation& operation, const Variation& variation);

struct Point {
    const CountedOperation* counted;
    std::array<Fault, 2> faults; ///< the second may be none
};

/// All points with one fault.
std::vector<Point> singlePoints(const CountedOperation& counted);

/// Runs a point in a fresh folder. \returns what is wrong, or nothing
std::string problemOf(const Point& point);

/// What is needed in order to run the point again.
std::string description(const Point& point);

} // namespace frimbolate::test
