// A read-only, selectable text. A word longer than the line is broken anywhere, so that a path
// without spaces is shown whole.
//
// The copied text and the accessible text equal the text that was set, character for character.
#pragma once

#include <QTextEdit>

namespace frimbolate {

class WrappedText : public QTextEdit {
    Q_OBJECT

  public:
    enum class Tone { plain, hint, warning };

    explicit WrappedText(const QString& text = {}, Tone tone = Tone::plain,
                         QWidget* parent = nullptr);

    const QString& text() const { return text_; }
    void setText(const QString& text);

    /// Fixes the height in pixels. The overflow can be scrolled, by the keyboard too.
    void scrollWithin(int height);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {}; }

  protected:
    QMimeData* createMimeDataFromSelection() const override;
    void changeEvent(QEvent* event) override;

  private:
    void applyTone();

    QString text_;
    Tone tone_;
};

} // namespace frimbolate
