// An image well: the icon of the chosen item, with its path as tool tip. A click asks for another
// choice; a file or folder dropped on the well becomes the choice.
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
    /// \param surface what the well is drawn on; selects its tile colours
    ImageWellButton(int side, style::Surface surface, QWidget* parent = nullptr);

    void setImage(const Image& image);
    const Image& image() const { return image_; }

    /// \param path the chosen path; empty if nothing is chosen
    void setPath(const QString& path);

    /// The tool tip while nothing is chosen; says what a click does.
    void setEmptyToolTip(const QString& toolTip);
    /// Shown while there is no image. Without a placeholder a plus in a dashed square is drawn.
    void setPlaceholder(const Image& placeholder);
    /// Hides the empty well, where there is no use for a path yet.
    void setHiddenWhenEmpty(bool hidden) { isHiddenWhenEmpty_ = hidden; }
    bool isUseful() const { return !isHiddenWhenEmpty_ || image_.kind != Image::Kind::None; }
    /// Accepts drops of what this panel would accept, while no sheet is shown.
    void acceptDropsFor(const OpenPanel& panel);

  signals:
    /// \param path absolute, as the panel would return it
    void dropped(const QString& path);

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void showImage();
    void setHovered(bool hovered);
    /// The path that the drop would choose; empty if none.
    QString pathDropped(const QDropEvent& event) const;

    style::Surface surface_;
    Image image_;
    Image placeholder_;
    QString path_;
    QString emptyToolTip_;
    std::optional<OpenPanel> panel_; ///< the rules for drops; none accepts no drop
    bool isHiddenWhenEmpty_ = false;
    bool isHovered_ = false; ///< an acceptable drag is over the well
};

} // namespace frimbolate
