// Makes a second start bring the running window to the front instead of opening another one.
//
// The instances of one person that share one preference file find each other through a local
// socket that only that person may use. An instance that was started beside another on purpose
// skips the question, and takes the socket over when the other ends.
#pragma once

#include <QLocalServer>
#include <QLocalSocket>
#include <QObject>

#include <functional>
#include <string>

namespace frimbolate {

class SingleInstance : public QObject {
    Q_OBJECT

  public:
    /// \param preferencePath of the preference file that the instances share
    explicit SingleInstance(const std::string& preferencePath);

    /// Asks a running instance to show itself. False when there is none, or none of this person's.
    bool tellRunningInstance();
    /// Calls back each time another start asks. While another instance still holds the socket,
    /// waits until that one has ended.
    void listen(std::function<void()> onReopen);
    /// Whether this instance is the one that others find.
    bool isListening() const { return server_.isListening(); }

    QString socketName() const { return name_; }

  private:
    void tryToListen();
    void accept();
    bool connectTo(QLocalSocket& socket) const;

    QString name_;
    QLocalServer server_;
    QLocalSocket predecessor_; ///< connected for as long as the instance before this one lives
    std::function<void()> onReopen_;
};

} // namespace frimbolate
