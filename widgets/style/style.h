// Paints the controls. A proxy over Fusion rather than a stylesheet: one place of pure painting
// that keeps the palette, the sub-control geometry and every platform hint of the base style.
//
// What a widget can ask for:
//   - bool property "faulty" on a field or pop-up: drawn with the border of a fault. The widget
//     needs update() when the property changes; setFaulty() does both.
//   - bool property "round" on a tool button: a disc with a border, as the tips are. Every other
//     tool button has no plate at rest; with its text under the icon it is an item of the toolbar.
//   - QPushButton::setDefault(): the accent button.
#pragma once

#include <QProxyStyle>

class QApplication;

namespace frimbolate::style {

class Style : public QProxyStyle {
    Q_OBJECT

  public:
    Style();

    /// Whether things slide and fade; they do at first.
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
    bool underlinesMnemonics_ = false; ///< only while Alt is held, as long as they are of use
};

void setFaulty(QWidget* widget, bool faulty);
bool isFaulty(const QWidget& widget);

/// Whether a drawer or sheet may slide: not where the desktop asks for less motion, nor where
/// FRIMBOLATE_REDUCED_MOTION is set.
bool animationsEnabled(const QWidget& widget);

} // namespace frimbolate::style
