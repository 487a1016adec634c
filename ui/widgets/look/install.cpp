#include "ui/widgets/look/install.h"

#include "ui/widgets/look/desktop_wishes.h"
#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/style.h"
#include "ui/widgets/look/tokens.h"

#include <QApplication>
#include <QToolTip>

namespace frimbolate::look {
namespace {

#ifndef Q_OS_MACOS
void wear(bool dark) {
    QApplication::setPalette(palette(dark));
    QToolTip::setPalette(palette(dark));
}
#endif

} // namespace

void install(QApplication& application) {
    adoptDesktopFont(application.font());
#ifndef Q_OS_MACOS
    auto* wishes = new DesktopWishes(&application);
    auto* style = new Style;
    style->setMoves(!wishes->isMotionReduced());
    QApplication::setStyle(style);
    QApplication::setFont(font(FontRole::control));
    QApplication::setFont(font(FontRole::hint), "QMenuBar");
    QToolTip::setFont(font(FontRole::hint));
    wear(wishes->isDark());
    QObject::connect(wishes, &DesktopWishes::darkChanged, &application, wear);
    QObject::connect(wishes, &DesktopWishes::reducedMotionChanged, style,
                     [style](bool reduced) { style->setMoves(!reduced); });
#endif
}

} // namespace frimbolate::look
