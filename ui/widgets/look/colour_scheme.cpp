#include "ui/widgets/look/colour_scheme.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>

namespace frimbolate::look {
namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop";
constexpr char path[] = "/org/freedesktop/portal/desktop";
constexpr char interface[] = "org.freedesktop.portal.Settings";
constexpr char group[] = "org.freedesktop.appearance";
constexpr char key[] = "color-scheme";
/// A portal that does not answer must not hold up the start for long.
constexpr int portalTimeoutMilliseconds = 250;

std::optional<bool> chosenByEnvironment() {
    const QByteArray name = qgetenv("FRIMBOLATE_COLOR_SCHEME");
    if (name == "dark" || name == "light")
        return name == "dark";
    return std::nullopt;
}

/// The portal's 0 means no preference, 1 dark and 2 light. Older portals wrap the value twice.
std::optional<bool> darkness(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    switch (value.toUInt()) {
    case 1:
        return true;
    case 2:
        return false;
    default:
        return std::nullopt;
    }
}

bool isPlatformDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

} // namespace

ColourScheme::ColourScheme(QObject* parent) : QObject(parent) {
    if (const auto chosen = chosenByEnvironment()) {
        dark_ = *chosen;
        return;
    }
    dark_ = askPortal().value_or(isPlatformDark());
    QDBusConnection::sessionBus().connect(
        service, path, interface, "SettingChanged", this,
        SLOT(portalSettingChanged(QString, QString, QDBusVariant)));
}

std::optional<bool> ColourScheme::askPortal() {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << group << key;
    const QDBusReply<QDBusVariant> reply =
        bus.call(question, QDBus::Block, portalTimeoutMilliseconds);
    return reply.isValid() ? darkness(reply.value().variant()) : std::nullopt;
}

void ColourScheme::portalSettingChanged(const QString& changedGroup, const QString& changedKey,
                                        const QDBusVariant& value) {
    if (changedGroup != group || changedKey != key)
        return;
    const bool dark = darkness(value.variant()).value_or(false);
    if (std::exchange(dark_, dark) != dark)
        emit changed(dark);
}

} // namespace frimbolate::look
