// An image well: the picture of what was chosen, whose path it tells in its tool tip. A press on
// it chooses anew.
#pragma once

#include "core/form_model.h"
#include "ui/widgets/look/icons.h"

#include <QToolButton>

namespace frimbolate {

class ImageWellButton : public QToolButton {
    Q_OBJECT

  public:
    /// \param side of the square, in pixels of the 1x layout
    ImageWellButton(int side, look::Plane plane, QWidget* parent = nullptr);

    void setImage(const Image& image);
    const Image& image() const { return image_; }

    /// \param path what was chosen; empty for nothing
    void setPath(const QString& path);

    /// What a press does while nothing is chosen; the tool tip then.
    void setEmptyToolTip(const QString& toolTip);
    /// Shown while there is no image; none shows a plus in a dashed square.
    void setPlaceholder(const Image& placeholder);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void showImage();

    look::Plane plane_;
    Image image_;
    Image placeholder_;
    QString path_;
    QString emptyToolTip_;
};

} // namespace frimbolate
