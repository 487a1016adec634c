#include "ui/widgets/look/colour_scheme.h"
#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/style.h"
#include "ui/widgets/look/tokens.h"

#include <QApplication>
#include <QToolTip>

namespace frimbolate::look {
namespace {

void wear(bool dark) {
    QApplication::setPalette(palette(dark));
    QToolTip::setPalette(palette(dark));
}

} // namespace

void install(QApplication& application) {
    adoptDesktopFont(application.font());
#ifndef Q_OS_MACOS
    auto* scheme = new ColourScheme(&application);
    QApplication::setStyle(new Style);
    QApplication::setFont(font(FontRole::control));
    QApplication::setFont(font(FontRole::hint), "QMenuBar");
    QToolTip::setFont(font(FontRole::hint));
    wear(scheme->isDark());
    QObject::connect(scheme, &ColourScheme::changed, &application, wear);
#endif
}

} // namespace frimbolate::look
