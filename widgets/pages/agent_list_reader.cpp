#include "widgets/pages/agent_list_reader.h"

#include "ui/app_delegate.h"
#include "widgets/controls/clock_format.h"
#include "widgets/controls/text.h"

#include <QDir>
#include <QFileInfo>
#include <QMetaObject>
#include <QSet>

#include <algorithm>
#include <chrono>

namespace frimbolate {

namespace {

using namespace std::chrono_literals;

/// Changes that come within this time are read together.
constexpr auto debounceTime = 120ms;
/// The rows of one delivery, and the files added to the watcher in one turn of the event loop.
constexpr std::size_t batchSize = 128;
/// The system bounds the watches of all programs together. A file beyond is still followed where it
/// is replaced as a whole, as most programs write a file.
constexpr qsizetype mostWatchedFiles = 1024;

} // namespace

AgentListReader::AgentListReader(AgentFolder& folder, AppDelegate& delegate,
                                 std::function<WallClock()> clock, std::string home)
    : folder_(folder), delegate_(delegate), clock_(std::move(clock)),
      home_(home.empty() ? QDir::homePath().toStdString() : std::move(home)) {
    pool_.setMaxThreadCount(1);
    debounce_.setSingleShot(true);
    debounce_.setInterval(debounceTime);
    connect(&debounce_, &QTimer::timeout, this, &AgentListReader::start);
    connect(&watching_, &QTimer::timeout, this, &AgentListReader::watchFiles);
    minute_.setObjectName("agentListMinute");
    minute_.setTimerType(Qt::VeryCoarseTimer);
    minute_.setInterval(1min);
    connect(&minute_, &QTimer::timeout, this, &AgentListReader::readWhenPassed);
    const auto changed = [this] {
        if (isWanted_ && !debounce_.isActive())
            debounce_.start();
    };
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, changed);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, changed);
}

AgentListReader::~AgentListReader() {
    *stop_ = true;
    pool_.waitForDone();
    // The end of the reading was posted to this object, which no longer gets it.
    if (opened_)
        delegate_.closeAgentFolder(opened_);
}

void AgentListReader::start() {
    isWanted_ = true;
    if (isReading_)
        again_ = true;
    else
        read();
}

void AgentListReader::stop() {
    isWanted_ = again_ = false;
    *stop_ = true;
    debounce_.stop();
    minute_.stop();
    watching_.stop();
    files_.clear();
    watch({});
}

void AgentListReader::read() {
    again_ = false;
    opened_ = delegate_.openAgentFolder();
    if (!opened_) {
        watch({});
        emit refused();
        return;
    }
    // Before the reading, so that no change behind it is missed.
    if (const QString path = text(*opened_); !watcher_.directories().contains(path))
        watch({path});
    isReading_ = true;
    files_.clear();
    stop_ = std::make_shared<std::atomic<bool>>(false);
    const WallClock clock = clock_();
    // "Today" is another day from midnight on.
    passes_ = std::chrono::floor<std::chrono::days>(clock.now()) + std::chrono::days(1);
    minute_.start();
    pool_.start(
        [this, stop = stop_, reading = Reading{*opened_, home_, localeClockFormat(), clock}] {
            const Outcome outcome = readFolder(reading, stop);
            QMetaObject::invokeMethod(
                this, [this, outcome] { readingEnded(outcome); }, Qt::QueuedConnection);
        });
}

AgentListReader::Outcome AgentListReader::readFolder(const Reading& reading, const StopFlag& stop) {
    const auto paths = folder_.list(reading.folder);
    if (!paths)
        return Outcome::Unreadable;
    const TextStyle style{.home = reading.home, .clock = reading.format, .now = reading.clock};
    const LocalMinute now = reading.clock.now();
    AgentRows rows;
    QList<FileState> files;
    for (const std::string& path : *paths) {
        if (*stop)
            return Outcome::Stopped;
        files.append(stateOf(text(path))); // before the reading, so that no change is missed
        rows.push_back(makeAgentRow(folder_.read(path, style), now, style.clock));
        if (rows.size() == batchSize)
            post(std::exchange(rows, {}), std::exchange(files, {}), stop);
    }
    post(std::move(rows), std::move(files), stop);
    return Outcome::Complete;
}

void AgentListReader::post(AgentRows rows, QList<FileState> files, const StopFlag& stop) {
    QMetaObject::invokeMethod(
        this,
        [this, stop, rows = std::move(rows), files = std::move(files)] {
            if (*stop || rows.empty())
                return;
            files_.append(files);
            for (const auto& row : rows)
                passes_ = std::min(passes_, row->overview.nextRun.value_or(passes_));
            emit rowsRead(rows);
        },
        Qt::QueuedConnection);
}

void AgentListReader::readingEnded(Outcome outcome) {
    isReading_ = false;
    delegate_.closeAgentFolder(std::exchange(opened_, {}));
    if (*stop_)
        outcome = Outcome::Stopped;
    if (outcome == Outcome::Complete)
        emit finished();
    else if (outcome == Outcome::Unreadable)
        emit refused();
    if (outcome == Outcome::Complete && isWanted_)
        watching_.start(0ms);
    if (again_)
        read();
}

void AgentListReader::watch(const QStringList& paths) {
    if (const QStringList before = watcher_.directories() + watcher_.files(); !before.isEmpty())
        watcher_.removePaths(before);
    if (!paths.isEmpty())
        watcher_.addPaths(paths);
}

void AgentListReader::readWhenPassed() {
    if (isWanted_ && !isReading_ && clock_().now() >= passes_)
        start();
}

AgentListReader::FileState AgentListReader::stateOf(const QString& path) {
    const QFileInfo file(path);
    return {path, file.lastModified(), file.size()};
}

void AgentListReader::watchFiles() {
    const QStringList before = watcher_.files();
    const qsizetype space = mostWatchedFiles - before.size();
    const auto count = std::min<qsizetype>({files_.size(), space, batchSize});
    if (count <= 0)
        return watching_.stop();
    const QList<FileState> files = files_.mid(0, count);
    files_.remove(0, count);
    QStringList paths;
    for (const FileState& file : files)
        paths.append(file.path);
    // A file that was replaced has lost its watch; one that is watched already is left alone.
    watcher_.addPaths(paths);
    // The watch does not tell of a change between the reading and itself.
    const QSet<QString> watched(before.begin(), before.end());
    if (std::ranges::any_of(files, [&](const FileState& file) {
            return !watched.contains(file.path) && stateOf(file.path) != file;
        }))
        debounce_.start();
}

} // namespace frimbolate
