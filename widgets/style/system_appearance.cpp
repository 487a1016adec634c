#include "widgets/style/system_appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QGuiApplication>
#include <QPalette>

#include <utility>

namespace frimbolate::style {
namespace {

constexpr char service[] = "org.freedesktop.portal.Desktop";
constexpr char path[] = "/org/freedesktop/portal/desktop";
constexpr char interface[] = "org.freedesktop.portal.Settings";
/// Limits the delay of the start by a portal that does not answer.
constexpr int portalTimeoutMilliseconds = 250;

struct Setting {
    const char* group;
    const char* key;
};
constexpr Setting colourScheme{"org.freedesktop.appearance", "color-scheme"};
constexpr Setting reducedMotion{"org.freedesktop.appearance", "reduced-motion"};
/// GNOME's own setting, for portals that do not know the one above.
constexpr Setting animations{"org.gnome.desktop.interface", "enable-animations"};

std::optional<bool> chosenByEnvironment() {
    const QByteArray name = qgetenv("FRIMBOLATE_COLOR_SCHEME");
    if (name == "dark" || name == "light")
        return name == "dark";
    return std::nullopt;
}

bool isPlatformDark() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

/// Older portals wrap a value twice.
QVariant unwrapped(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value;
}

/// The value of a setting; invalid if the portal does not know it, nothing if no portal answers.
std::optional<QVariant> askPortal(const Setting& setting) {
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Read");
    question << setting.group << setting.key;
    const QDBusReply<QDBusVariant> reply =
        bus.call(question, QDBus::Block, portalTimeoutMilliseconds);
    if (reply.isValid())
        return unwrapped(reply.value().variant());
    const auto error = reply.error().type();
    if (error == QDBusError::NoReply || error == QDBusError::TimedOut ||
        error == QDBusError::ServiceUnknown)
        return std::nullopt;
    return QVariant();
}

} // namespace

SystemAppearance::SystemAppearance(QObject* parent)
    : QObject(parent), chosenDark_(chosenByEnvironment()),
      dark_(chosenDark_.value_or(isPlatformDark())) {
    for (const Setting& setting : {colourScheme, reducedMotion, animations}) {
        const auto value = askPortal(setting);
        if (!value)
            break; // further calls would time out as well
        if (value->isValid())
            take(setting.group, setting.key, *value);
    }
    QDBusConnection::sessionBus().connect(
        service, path, interface, "SettingChanged", this,
        SLOT(portalSettingChanged(QString, QString, QDBusVariant)));
}

void SystemAppearance::portalSettingChanged(const QString& group, const QString& key,
                                            const QDBusVariant& value) {
    const bool wasReduced = isMotionReduced();
    // A desktop that changes from dark to "no preference" counts as light.
    if (group == colourScheme.group && key == colourScheme.key)
        setDark(unwrapped(value.variant()).toUInt() == 1);
    else
        take(group, key, unwrapped(value.variant()));
    if (isMotionReduced() != wasReduced)
        emit reducedMotionChanged(isMotionReduced());
}

void SystemAppearance::take(const QString& group, const QString& key, const QVariant& value) {
    const auto is = [&](const Setting& setting) {
        return group == setting.group && key == setting.key;
    };
    // 0 means no preference, 1 dark and 2 light.
    if (is(colourScheme) && value.toUInt() != 0)
        setDark(value.toUInt() == 1);
    else if (is(reducedMotion))
        reducedMotion_ = value.toUInt() == 1;
    else if (is(animations))
        stoppedAnimations_ = !value.toBool();
}

void SystemAppearance::setDark(bool dark) {
    if (chosenDark_)
        return;
    if (std::exchange(dark_, dark) != dark)
        emit darkChanged(dark);
}

} // namespace frimbolate::style
