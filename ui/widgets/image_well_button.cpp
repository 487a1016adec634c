#include "ui/widgets/image_well_button.h"

#include "ui/widgets/look/fonts.h"
#include "ui/widgets/look/tokens.h"

#include <QPainter>

namespace frimbolate {

namespace {

/// An empty well: a dashed square with a plus.
void paintEmptyWell(QPainter& painter, const QRectF& well, const look::Tokens& tokens) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tokens.controlBorder, 1, Qt::CustomDashLine, Qt::FlatCap));
    QPen dashes = painter.pen();
    dashes.setDashPattern({3, 3});
    painter.setPen(dashes);
    const double radius = look::scaled(6);
    painter.drawRoundedRect(well.adjusted(1.5, 1.5, -1.5, -1.5), radius, radius);
    painter.setPen(QPen(tokens.text, 1.5, Qt::SolidLine, Qt::RoundCap));
    const double arm = look::scaled(9) / 2.0;
    const QPointF middle = well.center();
    painter.drawLine(middle - QPointF(arm, 0), middle + QPointF(arm, 0));
    painter.drawLine(middle - QPointF(0, arm), middle + QPointF(0, arm));
}

} // namespace

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
    if (!icon().isNull())
        return;
    QPainter painter(this);
    paintEmptyWell(painter, rect(), look::tokens(palette()));
}

} // namespace frimbolate
