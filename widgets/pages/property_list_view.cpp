#include "widgets/pages/property_list_view.h"

#include "widgets/controls/long_text.h"
#include "widgets/style/fonts.h"
#include "widgets/style/property_list_colours.h"

#include <QEvent>
#include <QMimeData>
#include <QTextBlockFormat>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace frimbolate {

namespace {

constexpr int lineHeight = 18; // pixels of the 1x layout
constexpr int tabColumns = 4;

QString withShortLines(const QString& text) {
    QStringList lines = text.split('\n');
    for (QString& line : lines)
        if (line.size() > longestLine)
            line = line.left(lengthLaidOut(line)) + u'…';
    return lines.join('\n');
}

} // namespace

PropertyListView::PropertyListView(QWidget* parent) : QTextEdit(parent) {
    setObjectName("propertyList");
    setAccessibleName(tr("Property list"));
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setAcceptRichText(false);
    setContextMenuPolicy(Qt::NoContextMenu); // the toolkit's menu runs a nested event loop
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setAutoFillBackground(false);
    document()->setDocumentMargin(0);
    document()->setUndoRedoEnabled(false);
    style::setFont(this, style::FontRole::mono);
    setTabStopDistance(tabColumns * QFontMetricsF(font()).horizontalAdvance(' '));
    // Every inserted line takes the format of the first.
    QTextBlockFormat format;
    format.setLineHeight(style::scaled(lineHeight), QTextBlockFormat::FixedHeight);
    QTextCursor(document()).setBlockFormat(format);
    new style::PropertyListHighlighter(document(), palette());
}

bool PropertyListView::setText(const QString& text) {
    const QString wanted = withShortLines(text);
    if (wanted == shown_)
        return false;
    const auto [oldEnd, newEnd] = std::ranges::mismatch(shown_, wanted);
    const auto same = static_cast<int>(oldEnd - shown_.begin());
    const qsizetype mostAtEnd = std::min(shown_.size(), wanted.size()) - same;
    int sameAtEnd = 0;
    while (sameAtEnd < mostAtEnd &&
           shown_[shown_.size() - 1 - sameAtEnd] == wanted[wanted.size() - 1 - sameAtEnd])
        ++sameAtEnd;
    QTextCursor change(document());
    change.setPosition(same);
    change.setPosition(static_cast<int>(shown_.size()) - sameAtEnd, QTextCursor::KeepAnchor);
    change.insertText(wanted.mid(same, wanted.size() - same - sameAtEnd));
    shown_ = wanted;
    return true;
}

void PropertyListView::changeEvent(QEvent* event) {
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        if (auto* colours = findChild<style::PropertyListHighlighter*>())
            colours->setPalette(palette());
}

void PropertyListView::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    emit focusChanged();
}

void PropertyListView::focusOutEvent(QFocusEvent* event) {
    QTextEdit::focusOutEvent(event);
    emit focusChanged();
}

QMimeData* PropertyListView::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    // Offsets in the document are those in the text: it has no separators but line feeds.
    const QTextCursor selection = textCursor();
    copied->setText(shown_.mid(selection.selectionStart(),
                               selection.selectionEnd() - selection.selectionStart()));
    return copied;
}

} // namespace frimbolate
