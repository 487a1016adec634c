// What the desktop appearance of the look of its programs, and when it changes its mind: dark
// windows or light ones, and whether things may move.
//
// The colours are asked for in this order: FRIMBOLATE_COLOR_SCHEME (light or dark), the desktop's
// settings portal, the palette of the platform's theme as it is before the program puts on its own.
// Motion: the portal alone, and wanted where it does not say.
#pragma once

#include <QObject>
#include <QVariant>

#include <optional>

class QDBusVariant;

namespace frimbolate::style {

class SystemAppearance : public QObject {
    Q_OBJECT

  public:
    explicit SystemAppearance(QObject* parent);

    bool isDark() const { return dark_; }
    bool isMotionReduced() const { return reducedMotion_ || stoppedAnimations_; }

  signals:
    void darkChanged(bool dark);
    void reducedMotionChanged(bool reduced);

  private slots:
    void portalSettingChanged(const QString& group, const QString& key, const QDBusVariant& value);

  private:
    void take(const QString& group, const QString& key, const QVariant& value);
    void setDark(bool dark);

    std::optional<bool> chosenDark_; ///< by the environment; the desktop's wish is nothing then
    bool dark_ = false;
    bool reducedMotion_ = false;
    bool stoppedAnimations_ = false;
};

} // namespace frimbolate::style
