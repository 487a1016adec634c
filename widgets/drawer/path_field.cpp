#include "widgets/drawer/path_field.h"

#include "widgets/controls/accessible_description.h"
#include "widgets/controls/dragged_path.h"
#include "widgets/controls/file_panel_rules.h"
#include "widgets/controls/form_binder.h"
#include "widgets/controls/long_text.h"
#include "widgets/controls/text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/style.h"
#include "widgets/style/surfaces.h"

#include <QDropEvent>
#include <QMimeData>
#include <QToolButton>

namespace frimbolate {

namespace {

/// The path that the field would accept; empty if none.
QString pathIn(const QDropEvent& event) {
    const QString path = draggedPath(event);
    return isUnreadableName(path) ? QString() : path;
}

} // namespace

void PathField::setHint(const QString& hint) {
    style::setFaulty(this, !hint.isEmpty());
    setToolTip(labelText(hint));
    updateAccessibleDescription(this, hint);
}

void PathField::setHovered(bool hovered) {
    isHovered_ = hovered;
    update();
}

// Not the base class: dragged URLs also carry a plain text, which is no path.

void PathField::dragEnterEvent(QDragEnterEvent* event) {
    if (!event->mimeData()->hasUrls())
        return QLineEdit::dragEnterEvent(event);
    setHovered(!pathIn(*event).isEmpty());
    answer(*event, isHovered_);
}

void PathField::dragMoveEvent(QDragMoveEvent* event) {
    if (!event->mimeData()->hasUrls())
        return QLineEdit::dragMoveEvent(event);
    answer(*event, isHovered_);
}

void PathField::dragLeaveEvent(QDragLeaveEvent* event) {
    setHovered(false);
    QLineEdit::dragLeaveEvent(event);
}

void PathField::dropEvent(QDropEvent* event) {
    setHovered(false);
    if (!event->mimeData()->hasUrls())
        return QLineEdit::dropEvent(event);
    const QString path = pathIn(*event);
    answer(*event, !path.isEmpty());
    if (path.isEmpty())
        return;
    selectAll();
    insert(path); // can be undone
    setFocus(Qt::OtherFocusReason);
}

void PathField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    if (isHovered_)
        style::paintDropPlace(*this);
}

QToolButton* makeChooseButton(FormBinder& binder, std::string_view outlet, const QString& caption,
                              QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setObjectName(text(outlet) + "Chooser");
    button->setIcon(style::toolIcon("choose"));
    button->setIconSize({style::scaled(16), style::scaled(16)});
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(PathField::tr("Choose: %1").arg(caption));
    button->setToolTip(button->accessibleName());
    QObject::connect(button, &QToolButton::clicked, button,
                     [&binder, outlet = std::string(outlet)] {
                         binder.send([&](AppDelegate& delegate) { delegate.choosePath(outlet); });
                     });
    return button;
}

} // namespace frimbolate
