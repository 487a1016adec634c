// Paints the controls. A proxy over Fusion, not a stylesheet: it keeps the palette, the sub-control
// geometry and the platform hints of the base style.
//
// What a widget can request:
//   - bool property "faulty" on a field or pop-up: drawn with the border of a fault. The widget
//     needs update() when the property changes; setFaulty() does both.
//   - bool property "round" on a tool button: a disc with a border, used by the tips. Every other
//     tool button has no background at rest; with its text under the icon it is drawn as an item of
//     the toolbar.
//   - QPushButton::setDefault(): the accent button.
#pragma once

#include <QProxyStyle>

class QApplication;

namespace frimbolate::style {

class Style : public QProxyStyle {
    Q_OBJECT

  public:
    Style();

    /// Whether drawer and sheets are animated; true at first.
    void setAnimationsEnabled(bool enabled) { animationsEnabled_ = enabled; }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QIcon standardIcon(StandardPixmap pixmap, const QStyleOption* option,
                       const QWidget* widget) const override;
    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void polish(QApplication* application) override;
    using QProxyStyle::unpolish;
    void unpolish(QApplication* application) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void setUnderlinesMnemonics(bool underlines);

    bool animationsEnabled_ = true;
    bool underlinesMnemonics_ = false; ///< true while Alt is held
};

void setFaulty(QWidget* widget, bool faulty);
bool isFaulty(const QWidget& widget);

/// Whether a drawer or sheet may slide: false if the desktop requests reduced motion or
/// FRIMBOLATE_REDUCED_MOTION is set.
bool animationsEnabled(const QWidget& widget);

} // namespace frimbolate::style
