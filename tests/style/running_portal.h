// A settings portal on the session bus, provided by the test.
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QMap>
#include <QThread>

#include <gtest/gtest.h>

namespace frimbolate::style {

using Settings = QMap<QString, QVariant>; ///< by "group key", separated by a space

/// The portal's object on the bus. It lives in a thread of its own, because the caller blocks.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

  public:
    explicit Portal(Settings settings) : settings_(std::move(settings)) {}

  public slots:
    QDBusVariant Read(const QString& group, const QString& key, const QDBusMessage& question) {
        const QVariant value = settings_.value(group + ' ' + key);
        if (!value.isValid()) {
            question.setDelayedReply(true);
            bus().send(question.createErrorReply("org.freedesktop.portal.Error.NotFound", key));
            return {};
        }
        // Wrapped twice, as the oldest portals reply.
        return QDBusVariant(QVariant::fromValue(QDBusVariant(value)));
    }

  signals:
    void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  public:
    static QDBusConnection bus() {
        return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    }

  private:
    Settings settings_;
};

/// Registers a portal on the bus during its lifetime.
class RunningPortal {
  public:
    explicit RunningPortal(const Settings& settings) : portal_(new Portal(settings)) {
        portal_->moveToThread(&thread_);
        thread_.start();
        bool isThere = false;
        QMetaObject::invokeMethod(
            portal_,
            [&] {
                QDBusConnection bus = Portal::bus();
                isThere = bus.registerObject("/org/freedesktop/portal/desktop", portal_,
                                             QDBusConnection::ExportAllSlots |
                                                 QDBusConnection::ExportAllSignals) &&
                          bus.registerService("org.freedesktop.portal.Desktop");
            },
            Qt::BlockingQueuedConnection);
        EXPECT_TRUE(isThere);
    }
    RunningPortal(const RunningPortal&) = delete;
    RunningPortal& operator=(const RunningPortal&) = delete;
    ~RunningPortal() {
        QMetaObject::invokeMethod(
            portal_,
            [this] {
                Portal::bus().unregisterService("org.freedesktop.portal.Desktop");
                delete portal_;
                QDBusConnection::disconnectFromBus("portal");
            },
            Qt::BlockingQueuedConnection);
        thread_.quit();
        thread_.wait();
    }
    void tell(const QString& group, const QString& key, const QVariant& value) {
        QMetaObject::invokeMethod(
            portal_, [=, this] { emit portal_->SettingChanged(group, key, QDBusVariant(value)); });
    }

  private:
    QThread thread_;
    Portal* portal_;
};

} // namespace frimbolate::style
