#include "widgets/controls/image_well_button.h"

#include "widgets/controls/accessible_description.h"
#include "widgets/controls/dragged_path.h"
#include "widgets/controls/file_panel_rules.h"
#include "widgets/controls/long_text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/surfaces.h"

#include <QDropEvent>

namespace frimbolate {

ImageWellButton::ImageWellButton(int side, style::Surface surface, QWidget* parent)
    : QToolButton(parent), surface_(surface) {
    setFixedSize(style::scaled(side), style::scaled(side));
    setIconSize(size());
    setFocusPolicy(Qt::StrongFocus);
    setProperty("plain", true);
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);
}

void ImageWellButton::setImage(const Image& image) {
    if (image == image_)
        return;
    image_ = image;
    showImage();
}

void ImageWellButton::setPlaceholder(const Image& placeholder) {
    if (placeholder == placeholder_)
        return;
    placeholder_ = placeholder;
    showImage();
}

void ImageWellButton::showImage() {
    const bool isEmpty = image_.kind == Image::Kind::None;
    setIcon(style::imageIcon(isEmpty ? placeholder_ : image_, surface_));
    update();
}

void ImageWellButton::setPath(const QString& path) {
    path_ = path;
    setToolTip(path.isEmpty() ? emptyToolTip_ : labelText(path));
    updateAccessibleDescription(this, path.isEmpty() ? tr("Nothing chosen") : path);
}

void ImageWellButton::setEmptyToolTip(const QString& toolTip) {
    emptyToolTip_ = toolTip;
    setPath(path_);
}

void ImageWellButton::acceptDropsFor(const OpenPanel& panel) {
    panel_ = panel;
    setAcceptDrops(true);
}

QString ImageWellButton::pathDropped(const QDropEvent& event) const {
    const QString path = panel_ ? draggedPath(event) : QString();
    if (path.isEmpty())
        return {};
    const PanelSelection choice = validateSelection(*panel_, path);
    return choice.rejectionReason.isEmpty() ? choice.path : QString();
}

void ImageWellButton::setHovered(bool hovered) {
    isHovered_ = hovered;
    update();
}

void ImageWellButton::dragEnterEvent(QDragEnterEvent* event) {
    setHovered(!pathDropped(*event).isEmpty());
    answer(*event, isHovered_);
}

void ImageWellButton::dragLeaveEvent(QDragLeaveEvent*) { setHovered(false); }

void ImageWellButton::dropEvent(QDropEvent* event) {
    setHovered(false);
    const QString path = pathDropped(*event);
    answer(*event, !path.isEmpty());
    if (!path.isEmpty())
        emit dropped(path);
}

void ImageWellButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (icon().isNull())
        style::paintEmptyWell(*this);
    if (isHovered_)
        style::paintDropPlace(*this);
}

} // namespace frimbolate
