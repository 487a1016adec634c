#include "widgets/form/script_pop_over.h"

#include "core/script_types.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/pop_over_placement.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/controls/script_editor.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QToolButton>

namespace frimbolate {

using style::scaled;

namespace {

// Pixels of the 1x layout.
constexpr Size usualPanelSize{360, 232}, largePanelSize{640, 420}, leastPanelSize{280, 160};
constexpr int padding = 16;
constexpr int anchorGap = 5;     ///< between the anchor and the tip of the arrow
constexpr int aboveArrow = 32;   ///< from the panel's top to the tip
constexpr int besideCorner = 20; ///< from a corner of the panel to the tip

QSize scaledSize(const Size& size) { return {scaled(size.width), scaled(size.height)}; }

} // namespace

ScriptPopOver::ScriptPopOver(FormBinder& binder, QWidget* anchor, bool blendsWindows,
                             QWidget* parent)
    : QWidget(parent, Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      binder_(binder), anchor_(anchor), frame_(blendsWindows), larger_(new QToolButton(this)),
      language_(new PopUpButton(scriptLanguageItems(), this)), script_(new ScriptEditor(this)),
      grid_(new QGridLayout(this)) {
    setObjectName("popoverScriptObject");
    setWindowTitle(tr("Script"));
    setAccessibleName(tr("Script"));
    setAttribute(Qt::WA_TranslucentBackground, frame_.isTranslucent());
    layOut();
    binder_.bind("scriptPopOverLanguageButton", language_, &FormModel::scriptPopOverLanguageButton);
    binder_.bind("scriptPopOverScriptField", script_, &FormModel::scriptPopOverScriptField);
    binder_.addUpdater(
        [this](const FormModel& form) { setWanted(form.popoverScriptObject.shown); });
    language_->view()->installEventFilter(this);
    parent->installEventFilter(this);
}

void ScriptPopOver::layOut() {
    auto* title = new QLabel(tr("Script"), this);
    style::setFont(title, style::FontRole::defaultButton);
    language_->setUnlabelledName(tr("Language"));
    language_->setFixedSize(scaled(160), scaled(32));
    language_->setItemIcon(ScriptLanguage::Shell,
                           style::imageIcon(Image::resource(std::string(shellScript.image))));
    style::setFont(script_, style::FontRole::mono);
    script_->setAccessibleName(tr("Script"));
    script_->document()->setDocumentMargin(scaled(8));
    larger_->setIcon(style::toolIcon("expand"));
    larger_->setIconSize({scaled(20), scaled(20)});
    larger_->setFixedSize(scaled(32), scaled(32));
    larger_->setCheckable(true);
    larger_->setFocusPolicy(Qt::StrongFocus);
    larger_->setObjectName("largerScript");
    larger_->setAccessibleName(tr("Larger"));
    larger_->setToolTip(tr("More room for the script"));
    connect(larger_, &QToolButton::toggled, this, [this] {
        placeBesideAnchor();
        script_->setFocus(Qt::OtherFocusReason);
    });
    grid_->setVerticalSpacing(scaled(12));
    grid_->setColumnStretch(0, 1);
    grid_->addWidget(title, 0, 0);
    grid_->addWidget(larger_, 0, 1);
    grid_->addWidget(language_, 0, 2);
    grid_->addWidget(script_, 1, 0, 1, 3);
    setFocusProxy(script_);
}

void ScriptPopOver::setWanted(bool wanted) {
    wanted_ = wanted;
    // Deferred: shown at once, the pop-over would receive the key press that chose the item, since
    // the list closes before that press is delivered.
    if (wanted)
        QTimer::singleShot(0, this, &ScriptPopOver::showOrHide);
    else
        showOrHide();
}

void ScriptPopOver::setBlocked(bool blocked) {
    blocked_ = blocked;
    if (blocked)
        showOrHide();
    else // deferred until the window has restored the focus to its control
        QTimer::singleShot(0, this, &ScriptPopOver::showOrHide);
}

void ScriptPopOver::showOrHide() {
    const bool shown = wanted_ && !blocked_ && parentWidget()->isVisible();
    if (shown == isVisible())
        return;
    if (shown)
        placeBesideAnchor();
    setVisible(shown);
    if (shown)
        script_->setFocus(Qt::PopupFocusReason);
}

QRect ScriptPopOver::anchorOnScreen() const {
    return {anchor_->mapToGlobal(QPoint(0, 0)), anchor_->size()};
}

void ScriptPopOver::placeBesideAnchor() {
    const QRect anchor = anchorOnScreen();
    // The window may span several screens.
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    const PopOverPlacement placement =
        placePopOver(anchor, (screen ? screen : anchor_->screen())->availableGeometry(),
                     {.wanted = scaledSize(larger_->isChecked() ? largePanelSize : usualPanelSize),
                      .least = scaledSize(leastPanelSize),
                      .distance = scaled(anchorGap + style::PopOverFrame::arrow),
                      .corner = scaled(besideCorner),
                      .tipBelowTop = scaled(aboveArrow)});
    const QMargins around = frame_.around(placement.arrow);
    const QRect place = placement.panel.marginsAdded(around);
    grid_->setContentsMargins(around + scaled(padding));
    setFixedSize(place.size());
    move(place.topLeft());
    arrow_ = {placement.arrow, placement.tip + frame_.margin()};
    shape_ = frame_.shape(size(), arrow_);
    if (!frame_.isTranslucent())
        setMask(shape_);
    update();
}

void ScriptPopOver::paintEvent(QPaintEvent*) { frame_.paint(*this, arrow_); }

void ScriptPopOver::mousePressEvent(QMouseEvent* event) {
    // A click on the anchor closes the pop-over; replayed, it would open it again. Any other click
    // is replayed and has its usual effect.
    setAttribute(Qt::WA_NoMouseReplay,
                 anchorOnScreen().contains(event->globalPosition().toPoint()));
    // The shadow belongs to the window, but a click on it counts as outside.
    if (rect().contains(event->position().toPoint()) &&
        !shape_.contains(event->position().toPoint()))
        close();
    QWidget::mousePressEvent(event);
}

void ScriptPopOver::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && escapeIsUsed_) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

void ScriptPopOver::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && !event->isAutoRepeat())
        escapeIsUsed_ = false;
    QWidget::keyReleaseEvent(event);
}

void ScriptPopOver::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (wanted_ && !blocked_)
        binder_.edit([](FormModel& form) { form.popoverScriptObject.shown = false; });
}

bool ScriptPopOver::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget()) {
        if (event->type() == QEvent::WindowBlocked)
            setBlocked(true);
        else if (event->type() == QEvent::WindowUnblocked && wanted_ &&
                 !parentWidget()->isActiveWindow())
            // Qt ignores the activation of a window while a pop-up is open, so the main window must
            // be active again first.
            parentWidget()->activateWindow();
        else if (event->type() == QEvent::WindowUnblocked ||
                 (event->type() == QEvent::WindowActivate && !QApplication::activeModalWidget()))
            setBlocked(false);
    } else if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) {
        // Escape closes the list and then reaches the pop-over as well.
        escapeIsUsed_ = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace frimbolate
