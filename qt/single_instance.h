// Makes a second start bring the running window to the front instead of opening another one.
//
// The instances of one user that share one preference file meet in a folder that only this user can
// enter. A lock on a file there decides which of them is the first, also among starts at the same
// moment; the first one listens on a socket beside it and acknowledges what it is asked. An
// instance that was started beside another on purpose does not ask, and becomes the first when that
// one ends.
#pragma once

#include "posix/file_lock.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>

#include <chrono>
#include <functional>
#include <string>

class QDeadlineTimer;

namespace frimbolate {

/// What a start has found.
enum class RunningInstance {
    none,   ///< this one is the first now, or the instances have no place to meet
    told,   ///< the first one has acknowledged and shows itself; this one is to end
    silent, ///< the first one does not answer, as a stopped one does
};

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    struct Limits {
        /// For the acknowledgement of an instance that listens.
        std::chrono::milliseconds answer{1000};
        /// For an instance that holds the lock to begin to listen, which is when its window is
        /// made.
        std::chrono::milliseconds start{10000};
    };

    /// \param preferencePath of the preference file that the instances share
    explicit SingleInstance(const std::string& preferencePath)
        : SingleInstance(preferencePath, Limits()) {}
    SingleInstance(const std::string& preferencePath, Limits limits);
    ~SingleInstance() override;

    /// Becomes the first instance, or asks the one that is to show itself, and waits for its
    /// answer within the limits. Needs no running event loop, but the first instance does.
    RunningInstance askRunningInstance();
    /// Calls back each time another start asks. Where this is not the first instance, it becomes
    /// that when the first one ends.
    void listen(std::function<void()> onReopen);
    /// Whether this instance is the one that others find.
    bool isListening() const { return server_.isListening(); }

    /// The path of the socket; empty where there is no folder for it.
    QString socketName() const { return name_; }

  private:
    FileLock::State becomeFirst();
    void tryToListen();
    void accept();
    bool connectTo(QLocalSocket& socket) const;
    bool isAcknowledged(QLocalSocket& socket, const QDeadlineTimer& deadline) const;

    QString name_;
    Limits limits_;
    FileLock lock_;
    QLocalServer server_;
    QLocalSocket predecessor_; ///< connected for as long as the instance before this one lives
    std::function<void()> onReopen_;
};

} // namespace frimbolate
