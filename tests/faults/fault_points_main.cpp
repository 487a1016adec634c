// Runs points and prints a table of them:
//
//     fault_points [--count N] [--seed S] [--operation NAME] [--trace]
//
// First every single fault at every call of every operation in the ordinary folder, in an order
// that the seed chooses; then, chosen by the seed, single faults in other circumstances and pairs
// of faults; until N points were run. --operation runs one operation alone, --trace prints its
// calls. The last line is "result", "faults", the number of points, "points" and that of failures,
// with tabs in between.
#include "tests/faults/fault_points.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <deque>
#include <iomanip>
#include <iostream>
#include <map>
#include <random>
#include <set>

namespace {

using namespace frimbolate::test;

struct Arguments {
    std::size_t count = 1500;
    std::uint64_t seed = 1;
    std::string operation;
    bool traces = false;
};

Arguments parsedArguments(int count, char** texts) {
    Arguments arguments;
    for (int i = 1; i < count; ++i) {
        const std::string name = texts[i];
        const std::string value = i + 1 < count ? texts[i + 1] : "";
        if (name == "--trace") {
            arguments.traces = true;
            continue;
        }
        if (name == "--count")
            arguments.count = std::stoul(value);
        else if (name == "--seed")
            arguments.seed = std::stoull(value);
        else if (name == "--operation")
            arguments.operation = value;
        else
            throw std::runtime_error("unknown: " + name);
        ++i;
    }
    return arguments;
}

/// One row of the table.
struct Row {
    std::size_t calls = 0, points = 0, failures = 0;
    std::set<FaultKind> kinds;
};

class Run {
  public:
    explicit Run(const Arguments& arguments) : arguments_(arguments), random_(arguments.seed) {
        for (const auto& operation : operations())
            if (arguments.operation.empty() || arguments.operation == operation.name)
                count(operation);
        if (rows_.empty())
            throw std::runtime_error("no operation is named " + arguments.operation);
    }

    void runPoints() {
        std::vector<std::vector<Point>> ordinary;
        std::vector<Point> others;
        for (const auto& counted : counted_) {
            auto points = singlePoints(counted);
            std::ranges::shuffle(points, random_);
            if (counted.variation == &variations().front())
                ordinary.push_back(std::move(points));
            else
                others.insert(others.end(), points.begin(), points.end());
        }
        runInTurns(ordinary);
        std::ranges::shuffle(others, random_);
        // Every third of the rest is a pair.
        for (std::size_t i = 0; points_ < arguments_.count; ++i) {
            if (i < others.size())
                run(others[i]);
            if ((i % 2 == 1 || i >= others.size()) && points_ < arguments_.count)
                run(pairFrom(counted_[random_() % counted_.size()]));
        }
    }

    /// A table that shows little must not pass for one that shows all.
    void checkBreadth() {
        constexpr std::size_t pointsOfAll = 1500, leastKinds = 8;
        if (arguments_.count < pointsOfAll)
            return;
        for (const auto& [name, row] : rows_)
            if (row.kinds.size() < leastKinds)
                fail(name, "only " + std::to_string(row.kinds.size()) + " kinds of faults");
    }

    void print() const {
        std::cout << std::left << std::setw(28) << "operation" << std::right << std::setw(8)
                  << "calls" << std::setw(8) << "kinds" << std::setw(8) << "points" << std::setw(10)
                  << "failures"
                  << "\n";
        for (const auto& [name, row] : rows_)
            std::cout << std::left << std::setw(28) << name << std::right << std::setw(8)
                      << row.calls << std::setw(8) << row.kinds.size() << std::setw(8) << row.points
                      << std::setw(10) << row.failures << "\n";
        std::cout << "result\tfaults\t" << points_ << "\tpoints\t" << failures_ << std::endl;
    }

    std::size_t failures() const { return failures_; }

  private:
    void count(const Operation& operation) {
        for (const auto& variation : variations()) {
            counted_.push_back(countedOperation(operation, variation));
            const auto& counted = counted_.back();
            const bool isOrdinary = &variation == &variations().front();
            if (!counted.problem.empty())
                fail(operation.name, std::string(variation.name) + ": " + counted.problem);
            if (isOrdinary) {
                rows_[operation.name].calls = counted.calls.size();
                if (arguments_.traces)
                    trace(counted);
            }
            if (counted.calls.size() < operation.leastCalls)
                fail(operation.name, "only " + std::to_string(counted.calls.size()) + " calls");
        }
    }

    static void trace(const CountedOperation& counted) {
        std::cout << counted.operation->name << "\n";
        for (const auto& call : counted.calls)
            std::cout << "  " << call.function.data() << " " << call.path.data() << "\n";
    }

    /// One point of each operation after another, so that a short run meets all of them.
    void runInTurns(const std::vector<std::vector<Point>>& lists) {
        bool isDone = false;
        for (std::size_t i = 0; !isDone; ++i) {
            isDone = true;
            for (const auto& points : lists)
                if (i < points.size() && points_ < arguments_.count) {
                    run(points[i]);
                    isDone = false;
                }
        }
    }

    Point pairFrom(const CountedOperation& counted) {
        const auto singles = singlePoints(counted);
        Point point = singles[random_() % singles.size()];
        // A kill first would leave no second call. Calls after the first fault may be new ones,
        // such as those that put things back.
        while (point.faults[0].kind == FaultKind::killBefore ||
               point.faults[0].kind == FaultKind::killAfter)
            point = singles[random_() % singles.size()];
        const auto kinds = static_cast<std::uint32_t>(FaultKind::count) - 1;
        point.faults[1] = {point.faults[0].call + 1 + static_cast<std::uint32_t>(random_() % 8),
                           static_cast<FaultKind>(1 + random_() % kinds)};
        return point;
    }

    void run(const Point& point) {
        const char* name = point.counted->operation->name;
        ++points_;
        ++rows_[name].points;
        for (const Fault& fault : point.faults)
            if (fault.call != 0)
                rows_[name].kinds.insert(fault.kind);
        if (const auto problem = problemOf(point); !problem.empty())
            fail(name, description(point) + ": " + problem);
    }

    void fail(std::string name, const std::string& text) {
        ++failures_;
        ++rows_[name].failures;
        std::cerr << name << ": " << text << "\n";
    }

    Arguments arguments_;
    std::mt19937_64 random_;
    std::deque<CountedOperation> counted_;
    std::map<std::string, Row> rows_;
    std::size_t points_ = 0, failures_ = 0;
};

} // namespace

int main(int count, char** texts) {
    testing::InitGoogleTest(&count, texts);
    Run run(parsedArguments(count, texts));
    run.runPoints();
    run.checkBreadth();
    run.print();
    return run.failures() == 0 ? 0 : 1;
}
