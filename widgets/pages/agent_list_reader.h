// Reads the agents of the granted folder on a thread of its own, and again whenever the folder or
// one of its files changes, or a next run has passed.
#pragma once

#ifndef Q_MOC_RUN // which cannot parse the calendar of the standard library
#include "platform/agent_folder.h"
#include "widgets/pages/agent_row.h"
#endif

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QList>
#include <QObject>
#include <QString>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace frimbolate {

class AppDelegate;

/// Everything but the reading itself happens on the thread that made this object. The folder is
/// opened before each reading and closed after it, also after one that was stopped.
class AgentListReader : public QObject {
    Q_OBJECT

  public:
    /// The folder and the delegate, which opens it, must outlive this.
    /// \param clock by which the next runs are computed
    /// \param home the folder that "~" stands for; empty for that of the environment
    AgentListReader(AgentFolder& folder, AppDelegate& delegate, std::function<WallClock()> clock,
                    std::string home = {});
    /// Stops a reading and waits until it has left the file that it is at.
    ~AgentListReader() override;

    /// Reads the folder and follows it until stop(). While a reading runs, another one follows it.
    void start();
    /// Gives up a reading, and no longer follows the folder. Returns at once.
    void stop();
    bool isReading() const { return isReading_; }

  signals:
    /// Some rows, in the order of their paths, on the thread of this object.
    void rowsRead(const frimbolate::AgentRows& rows);
    /// All rows of the folder have been given.
    void finished();
    /// No folder is granted, or it cannot be read.
    void refused();

  private:
    /// Tells the thread of a reading to stop. (Not std::stop_token, which macOS's library lacks.)
    using StopFlag = std::shared_ptr<std::atomic<bool>>;
    enum class Outcome { Complete, Stopped, Unreadable };
    /// What a reading needs, gathered before it leaves the thread of this object.
    struct Reading {
        std::string folder, home;
        ClockFormat format;
        WallClock clock;
    };

    /// What tells whether a file was changed since it was read.
    struct FileState {
        QString path;
        QDateTime modified; ///< invalid where the file is not there
        qint64 size;
        friend bool operator==(const FileState&, const FileState&) = default;
    };

    void read();
    Outcome readFolder(const Reading& reading, const StopFlag& stop);
    void post(AgentRows rows, QList<FileState> files, const StopFlag& stop);
    static FileState stateOf(const QString& path);
    void readingEnded(Outcome outcome);
    void watch(const QStringList& paths);
    void watchFiles();
    void readWhenPassed();

    AgentFolder& folder_;
    AppDelegate& delegate_;
    std::function<WallClock()> clock_;
    std::string home_;
    std::optional<std::string> opened_; ///< the folder while a reading runs
    StopFlag stop_ = std::make_shared<std::atomic<bool>>(false); ///< of the last reading
    bool isReading_ = false;
    bool isWanted_ = false;  ///< between start() and stop()
    bool again_ = false;     ///< another reading follows
    LocalMinute passes_;     ///< the first of the next runs, or the midnight before it
    QList<FileState> files_; ///< of the last reading, still to be watched
    QFileSystemWatcher watcher_;
    QTimer debounce_;
    QTimer minute_{this}; ///< looks whether a next run has passed
    QTimer watching_;     ///< adds the files to the watcher, some at a time
    QThreadPool pool_;
};

} // namespace frimbolate
