#include "ui/widgets/image_well_button.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/surfaces.h"

namespace frimbolate {

ImageWellButton::ImageWellButton(int side, look::Plane plane, QWidget* parent)
    : QToolButton(parent), plane_(plane) {
    setFixedSize(look::scaled(side), look::scaled(side));
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
    setIcon(look::imageIcon(isEmpty ? placeholder_ : image_, plane_));
    update();
}

void ImageWellButton::setPath(const QString& path) {
    path_ = path;
    setToolTip(path.isEmpty() ? emptyToolTip_ : path);
    setAccessibleDescription(path.isEmpty() ? tr("Nothing chosen") : path);
}

void ImageWellButton::setEmptyToolTip(const QString& toolTip) {
    emptyToolTip_ = toolTip;
    setPath(path_);
}

void ImageWellButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (icon().isNull())
        look::paintEmptyWell(*this);
}

} // namespace frimbolate
