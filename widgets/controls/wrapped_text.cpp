#include "widgets/controls/wrapped_text.h"

#include "widgets/style/tokens.h"

#include <QAccessible>
#include <QEvent>
#include <QMimeData>
#include <QTextDocument>

#include <cmath>

namespace frimbolate {
namespace {

constexpr int gapToScrollBar = 12; // pixels

QColor colourOf(WrappedText::Tone tone, const style::Tokens& tokens) {
    switch (tone) {
    case WrappedText::Tone::hint:
        return tokens.secondaryText;
    case WrappedText::Tone::warning:
        return tokens.warnText;
    case WrappedText::Tone::plain:
        break;
    }
    return tokens.text;
}

/// The text with a space for each carriage return: a document counts CR LF as one character, but
/// positions in the document must equal positions in the text.
QString laidOut(QString text) { return text.replace('\r', ' '); }

} // namespace

WrappedText::WrappedText(const QString& text, Tone tone, QWidget* parent)
    : QTextEdit(parent), tone_(tone) {
    setFrameShape(NoFrame);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setTabChangesFocus(true);
    setFocusPolicy(Qt::ClickFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    applyTone();
    setText(text);
}

void WrappedText::setText(const QString& text) {
    text_ = text;
    setPlainText(laidOut(text));
    updateGeometry();
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

void WrappedText::scrollWithin(int height) {
    setFixedHeight(height);
    setViewportMargins(0, 0, gapToScrollBar, 0);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setFocusPolicy(Qt::StrongFocus);
}

int WrappedText::heightForWidth(int width) const {
    QTextDocument measured;
    measured.setDocumentMargin(0);
    measured.setDefaultFont(font());
    QTextOption option;
    option.setWrapMode(wordWrapMode());
    measured.setDefaultTextOption(option);
    measured.setPlainText(laidOut(text_));
    measured.setTextWidth(width);
    return static_cast<int>(std::ceil(measured.size().height()));
}

QSize WrappedText::sizeHint() const {
    constexpr int width = 200; // pixels; layouts call heightForWidth() with the actual width
    return {width, heightForWidth(width)};
}

QMimeData* WrappedText::createMimeDataFromSelection() const {
    // The document's own selection text differs from what was set: a no-break space, for example,
    // becomes a space.
    const QTextCursor cursor = textCursor();
    auto* result = new QMimeData;
    result->setText(
        text_.mid(cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()));
    return result;
}

void WrappedText::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyTone();
    if (event->type() == QEvent::FontChange)
        updateGeometry();
}

void WrappedText::applyTone() {
    const QColor colour = colourOf(tone_, style::tokens(palette()));
    if (palette().color(QPalette::Text) == colour)
        return;
    QPalette own; // sets one colour only; all others follow the desktop
    own.setColor(QPalette::Text, colour);
    setPalette(own);
}

} // namespace frimbolate
