#include "widgets/controls/tip_button.h"

#include "widgets/controls/form_binder.h"
#include "widgets/style/fonts.h"
#include "widgets/style/surfaces.h"

#include <QCoreApplication>
#include <QToolButton>

#include <string>

namespace frimbolate {

namespace {

class TipButton : public QToolButton {
  public:
    TipButton() {
        setFixedSize(style::scaled(20), style::scaled(20));
        setFocusPolicy(Qt::StrongFocus);
        QSizePolicy policy = sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        setSizePolicy(policy);
    }

  protected:
    void paintEvent(QPaintEvent*) override { style::paintTip(*this); }
};

} // namespace

QToolButton* makeTipButton(FormBinder& binder, std::string_view outlet, Button FormModel::*member,
                           const QString& section) {
    auto* button = new TipButton;
    const QString title = QCoreApplication::translate("tips", "Tip: %1").arg(section);
    button->setAccessibleName(title);
    button->setToolTip(title);
    binder.bind(outlet, button, member, [outlet = std::string(outlet)](AppDelegate& delegate) {
        delegate.showTip(outlet);
    });
    return button;
}

} // namespace frimbolate
