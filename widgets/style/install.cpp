#include "widgets/style/install.h"

#include "widgets/style/fonts.h"
#include "widgets/style/style.h"
#include "widgets/style/system_appearance.h"
#include "widgets/style/tokens.h"

#include <QApplication>
#include <QToolTip>

namespace frimbolate::style {
namespace {

#ifndef Q_OS_MACOS
void applyPalette(bool dark) {
    QApplication::setPalette(palette(dark));
    QToolTip::setPalette(palette(dark));
}
#endif

} // namespace

void install(QApplication& application) {
    setDesktopFont(application.font());
#ifndef Q_OS_MACOS
    auto* appearance = new SystemAppearance(&application);
    auto* style = new Style;
    style->setAnimationsEnabled(!appearance->isMotionReduced());
    QApplication::setStyle(style);
    QApplication::setFont(font(FontRole::control));
    QApplication::setFont(font(FontRole::hint), "QMenuBar");
    QToolTip::setFont(font(FontRole::hint));
    applyPalette(appearance->isDark());
    QObject::connect(appearance, &SystemAppearance::darkChanged, &application, applyPalette);
    QObject::connect(appearance, &SystemAppearance::reducedMotionChanged, style,
                     [style](bool reduced) { style->setAnimationsEnabled(!reduced); });
#endif
}

} // namespace frimbolate::style
