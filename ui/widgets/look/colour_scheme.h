// Whether the desktop wants dark windows, and when it changes its mind.
//
// Asked in this order: FRIMBOLATE_COLOR_SCHEME (light or dark), the desktop's settings portal, the
// palette of the platform's theme as it is before the program puts on its own.
#pragma once

#include <QObject>

#include <optional>

class QDBusVariant;

namespace frimbolate::look {

class ColourScheme : public QObject {
    Q_OBJECT

  public:
    explicit ColourScheme(QObject* parent);

    bool isDark() const { return dark_; }

  signals:
    void changed(bool dark);

  private slots:
    void portalSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    std::optional<bool> askPortal();

    bool dark_;
};

} // namespace frimbolate::look
