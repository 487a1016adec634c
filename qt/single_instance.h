// Makes a second start show the running window instead of opening another one.
//
// The instances of one user that share one preference file use a folder that only this user can
// enter. The lock on a file there decides which instance is the first, also for simultaneous
// starts. The first instance listens on a socket beside the lock and acknowledges each request. An
// instance that was started beside another one sends no request, and becomes the first when the
// other one ends.
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

/// The result of a request to the first instance.
enum class RunningInstance {
    none,   ///< this instance is the first now, or there is no folder for the socket
    told,   ///< the first instance has acknowledged and shows its window; this one must end
    silent, ///< the first instance does not answer; it may be stopped
};

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    struct Limits {
        /// For the acknowledgement of an instance that listens.
        std::chrono::milliseconds answer{1000};
        /// For an instance that holds the lock to start listening, which it does once its window
        /// exists.
        std::chrono::milliseconds start{10000};
    };

    /// \param preferencePath of the preference file; instances with the same one form a group
    explicit SingleInstance(const std::string& preferencePath)
        : SingleInstance(preferencePath, Limits()) {}
    SingleInstance(const std::string& preferencePath, Limits limits);
    ~SingleInstance() override;

    /// Becomes the first instance, or asks the first instance to show its window and waits for the
    /// answer within the limits. Needs no running event loop, but the first instance does.
    RunningInstance askRunningInstance();
    /// Calls the function for each request of another start. An instance that is not the first
    /// becomes it when the first one ends.
    /// \param onReopen what it refers to must outlive this
    void listen(std::function<void()> onReopen);
    /// Whether this is the instance that others connect to.
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
    QLocalSocket predecessor_; ///< connected while another instance is the first
    std::function<void()> onReopen_;
};

} // namespace frimbolate
