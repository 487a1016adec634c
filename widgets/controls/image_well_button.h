// An image well: the picture of what was chosen, whose path it tells in its tool tip. A press on
// it chooses anew, and so does a file or folder that is dropped on it.
#pragma once

#include "core/form_model.h"
#include "platform/file_panels.h"
#include "widgets/style/icons.h"

#include <QToolButton>

#include <optional>

namespace frimbolate {

class ImageWellButton : public QToolButton {
    Q_OBJECT

  public:
    /// \param side of the square, in pixels of the 1x layout
    ImageWellButton(int side, style::Surface surface, QWidget* parent = nullptr);

    void setImage(const Image& image);
    const Image& image() const { return image_; }

    /// \param path what was chosen; empty for nothing
    void setPath(const QString& path);

    /// What a press does while nothing is chosen; the tool tip then.
    void setEmptyToolTip(const QString& toolTip);
    /// Shown while there is no image; none shows a plus in a dashed square.
    void setPlaceholder(const Image& placeholder);
    /// An empty well would invite to choose a path that there is no use for.
    void setHiddenWhenEmpty(bool hidden) { isHiddenWhenEmpty_ = hidden; }
    bool isOfUse() const { return !isHiddenWhenEmpty_ || image_.kind != Image::Kind::None; }
    /// Takes what this panel would let through, as long as no sheet is up.
    void acceptDropsFor(const OpenPanel& panel);

  signals:
    /// \param path absolute, as the panel would hand it on
    void dropped(const QString& path);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void showImage();
    void setHovered(bool hovered);
    /// Empty where nothing of it is to be had.
    QString pathDropped(const QDropEvent& event) const;

    style::Surface surface_;
    Image image_;
    Image placeholder_;
    QString path_;
    QString emptyToolTip_;
    std::optional<OpenPanel> panel_; ///< whose rules a drop follows
    bool isHiddenWhenEmpty_ = false;
    bool isHovered_ = false; ///< by something that may be dropped
};

} // namespace frimbolate
