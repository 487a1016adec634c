#include "tests/faults/fault_points.h"

#include "posix/temporary_files.h"
#include "tests/support/child_process.h"

#include <algorithm>
#include <csignal>
#include <exception>

namespace frimbolate::test {

namespace {

constexpr Fault noFault{0, FaultKind::none};

FaultControl& prepareControl(const Operation& operation, const UserFolders& place,
                             const std::array<Fault, 2>& faults) {
    FaultControl& control = *frimbolateFaultControl();
    control.armed = control.calls = control.applied = 0;
    control.skipsFlushes = 1;
    control.refusesTemporaryFiles = operation.refusesTemporaryFiles ? 1 : 0;
    control.faults = faults;
    control.only = {};
    control.watched = {};
    place.path().copy(control.watched.data(), control.watched.size() - 1);
    return control;
}

bool kills(FaultKind kind) { return kind == FaultKind::killBefore || kind == FaultKind::killAfter; }

bool kills(const Point& point) {
    return std::ranges::any_of(point.faults, [](const Fault& fault) { return kills(fault.kind); });
}

void prepare(const Operation& operation, const Variation& variation, UserFolders& place) {
    variation.ofFolders(place);
    operation.prepare(place, variation);
}

/// What a run of the same operation without a fault leaves.
FolderState stateAfter(const Operation& operation, const Variation& variation) {
    UserFolders place;
    prepare(operation, variation, place);
    prepareControl(operation, place, {noFault, noFault});
    static_cast<void>(operation.run(place));
    return place.state();
}

const FolderState& rememberedStateAfter(const Operation& operation, const Variation& variation) {
    static std::map<std::pair<const Operation*, const Variation*>, FolderState> known;
    const auto place = known.find({&operation, &variation});
    if (place != known.end())
        return place->second;
    return known[{&operation, &variation}] = stateAfter(operation, variation);
}

bool isName(const CountedCall& call, std::string_view function) {
    return function == call.function.data();
}

/// Whether a fault met such a call of the last run. Not looked for among the counted calls: a first
/// fault moves those after it.
bool hit(const Point& point, bool (*condition)(const CountedCall&, FaultKind)) {
    const FaultControl& control = *frimbolateFaultControl();
    const auto made = std::min<std::size_t>(control.calls, control.log.size());
    return std::ranges::any_of(point.faults, [&](const Fault& fault) {
        return fault.call > 0 && fault.call <= made &&
               condition(control.log[fault.call - 1], fault.kind);
    });
}

/// A call that reads or sets the rights, the owner or the attributes of a file, denied as a
/// permission can deny it: then one of them may be lost with the replaced file.
bool concernsMetadata(const CountedCall& call, FaultKind kind) {
    return kind == FaultKind::denied &&
           (isName(call, "openat") || isName(call, "fstat") || isName(call, "fchown") ||
            isName(call, "flistxattr") || isName(call, "fgetxattr") || isName(call, "fsetxattr"));
}

/// A second fault moves the calls after the first, so any may be one of unlinkat().
bool maySpareTemporaryFile(const Point& point) { return point.faults[1].call != 0; }

/// The state with the rights and attributes of a path taken from another state, where its content
/// is the same and no right was widened.
void takeMetadata(FolderState& state, const FolderState& from, const std::string& path) {
    const auto found = state.find(path);
    const Item* wanted = itemAt(from, path);
    if (found == state.end() || !wanted || found->second.content != wanted->content ||
        (found->second.mode & ~wanted->mode) != 0)
        return;
    found->second = *wanted;
}

std::string problemOfLeftOvers(const Point& point, const FolderState& before,
                               const FolderState& now) {
    if (kills(point) || maySpareTemporaryFile(point))
        return {};
    for (const auto& path : leftOvers(now))
        if (!before.contains(path))
            return "left behind: " + path;
    return {};
}

/// The next save in the same folders works and leaves nothing of a killed one.
std::string problemOfNextSave(const Operation& operation, const UserFolders& place,
                              const FolderState& before) {
    try {
        operation.nextSave(place);
    } catch (const std::exception& error) {
        return error.what();
    }
    // Older ones may be in folders in which this operation does not save.
    for (const auto& path : leftOvers(place.state()))
        if (!before.contains(path))
            return "still there after the next save: " + path;
    return {};
}

/// What the operation did, with the metadata that a permission may cost taken as kept.
FolderState stateForRules(const Point& point, const UserFolders& place, const FolderState& before,
                          const FolderState& after) {
    FolderState now = place.state();
    if (hit(point, concernsMetadata))
        for (const FolderState* known : {&before, &after})
            for (const auto& [path, item] : *known)
                takeMetadata(now, *known, path);
    return now;
}

/// Once the disk works again, what the program still held is written.
std::string problemOfRest(const Point& point, const UserFolders& place, Told& told,
                          const FolderState& after) {
    if (!told.kept)
        return {};
    told.kept.reset();
    // A reset removes the keys that it could read. After two failed readings it knows none.
    if (std::string_view(point.counted->operation->name) == "PreferencesReset" &&
        point.faults[1].call != 0 &&
        told.text.find("Could not read the preferences") != told.text.npos)
        return {};
    const FolderState now = stateForRules(point, place, after, after);
    const Told rest{true, told.text, nullptr};
    const auto problem = point.counted->operation->problem(
        {place, after, after, now, rest, false, point.faults[1].call != 0});
    return problem.empty() ? "" : "once the disk works again: " + problem;
}

std::string problemOfKilled(const Point& point, UserFolders& place, const FolderState& before,
                            const FolderState& after) {
    const auto& operation = *point.counted->operation;
    const int status = statusOfChild([&] { return operation.run(place).success ? 0 : 1; });
    if (!WIFSIGNALED(status) || WTERMSIG(status) != SIGKILL)
        return point.faults[1].call != 0 ? "" : "was not killed";
    const FolderState now = stateForRules(point, place, before, after);
    const auto problem = operation.problem({place, before, after, now, {}, true});
    return problem.empty() ? problemOfNextSave(operation, place, before) : problem;
}

std::string problemOfFailed(const Point& point, UserFolders& place, const FolderState& before,
                            const FolderState& after) {
    const auto& operation = *point.counted->operation;
    const bool twice = point.faults[1].call != 0;
    Told told = operation.run(place);
    const FolderState now = stateForRules(point, place, before, after);
    std::string problem =
        operation.problem({place, before, after, now, told, false, twice,
                           twice && point.faults[0].kind == FaultKind::doneButError});
    if (problem.empty())
        problem = problemOfLeftOvers(point, before, now);
    if (problem.empty())
        problem = problemOfRest(point, place, told, after);
    if (problem.empty())
        problem = problemOfNextSave(operation, place, before);
    return problem.empty() ? "" : problem + "\n  told: " + told.text;
}

/// A power cut must find either file complete: the new one is flushed after its last byte and
/// before it gets its name, and its folder afterwards.
std::string problemOfFlushes(const std::vector<CountedCall>& calls) {
    for (auto move = calls.begin(); move != calls.end(); ++move) {
        const std::string_view path = move->path.data();
        if (!isName(*move, "renameat") || !isTemporaryName(path.substr(path.rfind('/') + 1)))
            continue;
        const auto isOfFile = [path](const CountedCall& call) { return path == call.path.data(); };
        bool isFlushed = false;
        for (auto call = calls.begin(); call != move; ++call)
            if (isOfFile(*call) && (isName(*call, "write") || isName(*call, "fsync")))
                isFlushed = isName(*call, "fsync");
        if (!isFlushed)
            return "a file is moved before it is flushed";
        const auto folder = path.substr(0, path.rfind('/'));
        if (std::none_of(move, calls.end(), [folder](const CountedCall& call) {
                return isName(call, "fsync") && folder == call.path.data();
            }))
            return "a folder is not flushed after a move";
    }
    return {};
}

} // namespace

const char* nameOfKind(FaultKind kind) {
    static constexpr std::array names = {
        "none",          "no space",      "quota",         "input/output",   "denied",
        "read-only",     "interrupted",   "too many open", "done but error", "short transfer",
        "zero transfer", "killed before", "killed after"};
    static_assert(names.size() == static_cast<std::size_t>(FaultKind::count));
    return names[static_cast<std::size_t>(kind)];
}

CountedOperation countedOperation(const Operation& operation, const Variation& variation) {
    CountedOperation result{&operation, &variation, {}, {}};
    UserFolders place;
    prepare(operation, variation, place);
    const FolderState before = place.state();
    FaultControl& control = prepareControl(operation, place, {noFault, noFault});
    const Told told = operation.run(place);
    const auto count = std::min<std::size_t>(control.calls, control.log.size());
    result.calls.assign(control.log.begin(),
                        control.log.begin() + static_cast<std::ptrdiff_t>(count));
    const FolderState now = place.state();
    result.problem =
        operation.problem({place, before, rememberedStateAfter(operation, variation), now, told});
    if (told.success != operation.succeeds)
        result.problem += "a run without a fault tells the wrong result: " + told.text;
    if (operation.succeeds && now == before)
        result.problem += "a run without a fault changes nothing";
    result.problem += problemOfFlushes(result.calls);
    if (control.calls > control.log.size())
        result.problem += "more calls than the log holds";
    return result;
}

std::vector<Point> singlePoints(const CountedOperation& counted) {
    std::vector<Point> points;
    for (std::uint32_t call = 1; call <= counted.calls.size(); ++call)
        for (std::uint32_t i = 1; i < static_cast<std::uint32_t>(FaultKind::count); ++i) {
            const auto kind = static_cast<FaultKind>(i);
            const bool isTransfer =
                kind == FaultKind::shortTransfer || kind == FaultKind::zeroTransfer;
            if (!isTransfer || counted.calls[call - 1].isTransfer != 0)
                points.push_back({&counted, {Fault{call, kind}, noFault}});
        }
    return points;
}

std::string problemOf(const Point& point) {
    const auto& operation = *point.counted->operation;
    const auto& variation = *point.counted->variation;
    const FolderState& after = rememberedStateAfter(operation, variation);
    UserFolders place;
    prepare(operation, variation, place);
    const FolderState before = place.state();
    const FaultControl& control = prepareControl(operation, place, point.faults);
    std::string problem = kills(point) ? problemOfKilled(point, place, before, after)
                                       : problemOfFailed(point, place, before, after);
    if (problem.empty() && (control.applied & 1U) == 0)
        problem = "the fault did not take place";
    return problem;
}

std::string description(const Point& point) {
    std::string text =
        std::string(point.counted->operation->name) + ", " + point.counted->variation->name;
    for (const Fault& fault : point.faults) {
        if (fault.call == 0)
            continue;
        const auto& calls = point.counted->calls;
        text +=
            ", call " + std::to_string(fault.call) +
            (fault.call <= calls.size() ? std::string(" ") + calls[fault.call - 1].function.data()
                                        : "") +
            ": " + nameOfKind(fault.kind);
    }
    return text;
}

} // namespace frimbolate::test
