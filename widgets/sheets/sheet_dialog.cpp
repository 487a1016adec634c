#include "widgets/sheets/sheet_dialog.h"

#include "widgets/style/fonts.h"
#include "widgets/style/style.h"
#include "widgets/style/surfaces.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPushButton>
#include <QShowEvent>
#include <QToolBar>
#include <QVBoxLayout>
#include <QVariantAnimation>

#include <cmath>
#include <utility>

namespace frimbolate {
namespace {

constexpr int slideMilliseconds = 160;

/// These platforms do not let a program position a window; the desktop frames the sheet there.
bool desktopPlacesSheets() {
    const QString platform = QGuiApplication::platformName();
    return platform == "cocoa" || platform.startsWith("wayland");
}

/// Covers the sheet with its image while that slides out from under the toolbar.
class SlideInOverlay : public QWidget {
  public:
    explicit SlideInOverlay(SheetDialog& sheet)
        : QWidget(&sheet), sheet_(sheet), content_(sheet.grab(sheet.panelRect())) {
        setObjectName("sheetCurtain");
        setAttribute(Qt::WA_TransparentForMouseEvents);
        // It covers the sheet, whose controls therefore need not be painted below it.
        setAttribute(Qt::WA_OpaquePaintEvent);
        setGeometry(sheet.rect());
    }

    void showBy(const QVariantAnimation& slide) {
        slide_ = &slide;
        show();
        raise();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        const QRect panel = sheet_.panelRect();
        const double hidden = (1 - slide_->currentValue().toDouble()) * panel.height();
        style::paintSlidingSheet(*this, sheet_.backdrop(),
                                 panel.translated(0, -static_cast<int>(std::lround(hidden))),
                                 content_);
    }

  private:
    SheetDialog& sheet_;
    QPixmap content_;
    const QVariantAnimation* slide_ = nullptr;
};

} // namespace

QRect sheetArea(const QWidget& mainWindow) {
    QRect area = mainWindow.rect();
    if (const auto* toolBar = mainWindow.findChild<QToolBar*>())
        area.setTop(toolBar->mapTo(&mainWindow, toolBar->rect().bottomLeft()).y() + 1);
    return area;
}

SheetDialog::SheetDialog(const QString& objectName, int panelWidth, QWidget* mainWindow)
    : QDialog(mainWindow, Qt::Sheet), mainWindow_(mainWindow), body_(new QVBoxLayout),
      paintsFrame_(!desktopPlacesSheets()) {
    setObjectName(objectName);
    setWindowModality(Qt::WindowModal);
    auto* frame = new QVBoxLayout(this);
    frame->setContentsMargins(0, 0, 0, 0);
    if (paintsFrame_) {
        setWindowFlag(Qt::FramelessWindowHint);
        setAttribute(Qt::WA_OpaquePaintEvent);
        frame->setContentsMargins(shadowWidth, 0, shadowWidth, shadowWidth);
    }
    setPanelWidth(panelWidth);
    body_->setSpacing(0);
    setBodyPadding({padding, padding, padding, padding});
    frame->addLayout(body_);
    mainWindow_->installEventFilter(this);
}

void SheetDialog::setPanelWidth(int width) {
    setFixedWidth(style::scaled(width) + (paintsFrame_ ? 2 * shadowWidth : 0));
}

void SheetDialog::setBodyPadding(const QMargins& margins) { body_->setContentsMargins(margins); }

QWidget* SheetDialog::addButtonRow(QWidget* side, const QList<QPushButton*>& buttons) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    if (side)
        layout->addWidget(side);
    layout->addStretch();
    for (QPushButton* button : buttons)
        layout->addWidget(button);
    body_->addWidget(row);
    return row;
}

QRect SheetDialog::panelRect() const {
    return paintsFrame_ ? rect().adjusted(shadowWidth, 0, -shadowWidth, -shadowWidth) : rect();
}

void SheetDialog::placeOverMainWindow() {
    layout()->activate();
    // Only wrapped texts make the height depend on the width.
    setFixedHeight(layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width())
                                                 : layout()->totalSizeHint().height());
    if (!paintsFrame_)
        return;
    const auto* form = mainWindow_->findChild<QWidget*>("form");
    const QRect across =
        form ? QRect(form->mapTo(mainWindow_, QPoint()), form->size()) : mainWindow_->rect();
    const QPoint corner(across.center().x() + 1 - width() / 2, sheetArea(*mainWindow_).top());
    move(mainWindow_->mapToGlobal(corner));
}

void SheetDialog::renewBackdrop() {
    isBackdropOld_ = true;
    update();
}

const QPixmap& SheetDialog::backdrop() {
    // When it is painted, not when the window changes: the window changes several times until then.
    if (paintsFrame_ && std::exchange(isBackdropOld_, false))
        backdrop_ = mainWindow_->grab(QRect(mainWindow_->mapFromGlobal(pos()), size()));
    return backdrop_;
}

void SheetDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    placeOverMainWindow();
    renewBackdrop();
    if (paintsFrame_ && !event->spontaneous() && style::animationsEnabled(*this))
        slideOut();
}

void SheetDialog::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    // Otherwise the image taken at the next show would contain the overlay.
    delete overlay_;
}

void SheetDialog::slideOut() {
    // The sheet itself is in place at once and accepts clicks and keys; only its image slides, on
    // an overlay in front of it.
    auto* overlay = new SlideInOverlay(*this);
    auto* slide = new QVariantAnimation(overlay);
    slide->setStartValue(0.0);
    slide->setEndValue(1.0);
    slide->setDuration(slideMilliseconds);
    slide->setEasingCurve(QEasingCurve::OutCubic);
    connect(slide, &QVariantAnimation::valueChanged, overlay, qOverload<>(&QWidget::update));
    connect(slide, &QVariantAnimation::finished, overlay, &QObject::deleteLater);
    overlay_ = overlay;
    overlay->showBy(*slide);
    slide->start();
}

bool SheetDialog::event(QEvent* event) {
    // Handled before the base class, because its handling of the event may delete the sheet.
    if (isVisible()) {
        if (event->type() == QEvent::LayoutRequest)
            placeOverMainWindow();
        if (event->type() == QEvent::Resize || event->type() == QEvent::PaletteChange)
            renewBackdrop();
    }
    return QDialog::event(event);
}

bool SheetDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mainWindow_ && isVisible()) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
            placeOverMainWindow();
        // The window's content behind the sheet has changed: the window is updated after the action
        // that has shown the sheet.
        if (event->type() == QEvent::Resize || event->type() == QEvent::UpdateRequest)
            renewBackdrop();
    }
    return QDialog::eventFilter(watched, event);
}

void SheetDialog::paintEvent(QPaintEvent*) {
    if (paintsFrame_)
        style::paintSheet(*this, backdrop(), panelRect());
    else
        style::paintPlainSheet(*this);
}

} // namespace frimbolate
