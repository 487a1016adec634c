// The desktop's appearance settings and their changes: dark or light, and reduced motion.
//
// The colour scheme is read from the first source that gives it: FRIMBOLATE_COLOR_SCHEME (light or
// dark), the desktop's settings portal, the palette of the platform's theme. So construct it before
// the program sets its own palette. Motion is read from the portal only; not reduced by default.
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

    std::optional<bool> chosenDark_; ///< by the environment; overrides the desktop
    bool dark_ = false;
    bool reducedMotion_ = false;
    bool stoppedAnimations_ = false;
};

} // namespace frimbolate::style
