#include "widgets/style/install.h"

#include "widgets/style/desktop_wishes.h"
#include "widgets/style/fonts.h"
#include "widgets/style/style.h"
#include "widgets/style/tokens.h"

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
