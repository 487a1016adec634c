#include "ui/widgets/tip_button.h"

#include "ui/widgets/form_mirror.h"
#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/tokens.h"

#include <QCoreApplication>
#include <QPainter>
#include <QToolButton>

#include <string>

namespace frimbolate {

namespace {

class TipButton : public QToolButton {
  public:
    TipButton() {
        setFixedSize(look::scaled(20), look::scaled(20));
        setFocusPolicy(Qt::StrongFocus);
        QSizePolicy policy = sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        setSizePolicy(policy);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const look::Tokens& tokens = look::tokens(palette());
        const bool focused = hasFocus();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(focused ? tokens.accent : tokens.controlBorder, focused ? 2 : 1));
        painter.setBrush(isDown()       ? tokens.pressed
                         : underMouse() ? tokens.hover
                                        : QColor(Qt::transparent));
        const double inset = focused ? 1.5 : 1;
        painter.drawEllipse(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
        painter.setPen(tokens.text2);
        painter.setFont(look::font(look::FontRole::toolbar));
        painter.drawText(rect(), Qt::AlignCenter, "?");
    }
};

} // namespace

QToolButton* makeTipButton(FormMirror& mirror, std::string_view outlet, Button FormModel::*member,
                           const QString& section) {
    auto* button = new TipButton;
    const QString title = QCoreApplication::translate("tips", "Tip: %1").arg(section);
    button->setAccessibleName(title);
    button->setToolTip(title);
    mirror.bind(outlet, button, member, [outlet = std::string(outlet)](AppDelegate& delegate) {
        delegate.showTip(outlet);
    });
    return button;
}

} // namespace frimbolate
