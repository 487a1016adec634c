#include "widgets/controls/script_editor.h"

#include "widgets/controls/folded_text.h"
#include "widgets/controls/long_text.h"
#include "widgets/style/editor_marks.h"

#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

namespace frimbolate {

namespace {

bool hasLongLine(const QString& text) {
    for (const QStringView line : QStringView(text).split(u'\n'))
        if (line.size() > longestLine)
            return true;
    return false;
}

} // namespace

ScriptEditor::ScriptEditor(QWidget* parent) : QPlainTextEdit(parent) {
    setAccessibleDescription(tr("Tab types a tab; Ctrl+Tab leaves the field"));
    FoldedText::install(*document(), *this);
    fitTabs();
}

void ScriptEditor::fitTabs() {
    setTabStopDistance(tabColumns * QFontMetricsF(font()).horizontalAdvance(u' '));
}

void ScriptEditor::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        fitTabs();
}

QString ScriptEditor::withPlainLineBreaks(QString text) {
    return text.replace("\r\n", "\n").replace(u'\r', u'\n');
}

QString ScriptEditor::wholeText() const { return wholeText(0, document()->characterCount() - 1); }

QString ScriptEditor::wholeText(int from, int to) const {
    // toRawText(): toPlainText() replaces no-break spaces by spaces.
    QString raw = document()->toRawText().mid(from, to - from);
    raw.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    QString whole;
    qsizetype taken = 0;
    QTextCursor cursor(document());
    for (qsizetype at = raw.indexOf(QChar::ObjectReplacementCharacter); at >= 0;
         at = raw.indexOf(QChar::ObjectReplacementCharacter, at + 1)) {
        cursor.setPosition(from + static_cast<int>(at) + 1);
        const QTextCharFormat format = cursor.charFormat();
        if (!FoldedText::isFolded(format))
            continue;
        whole += QStringView(raw).sliced(taken, at - taken);
        whole += FoldedText::text(format);
        taken = at + 1;
    }
    return taken == 0 ? raw : whole + raw.sliced(taken);
}

void ScriptEditor::setWholeText(const QString& text) {
    const QString plain = withPlainLineBreaks(text);
    if (!hasLongLine(plain))
        return setPlainText(plain);
    clear();
    document()->setUndoRedoEnabled(false);
    QTextCursor cursor(document());
    insertFolded(cursor, plain);
    document()->setUndoRedoEnabled(true);
    moveCursor(QTextCursor::Start);
}

void ScriptEditor::insertFolded(QTextCursor& cursor, const QString& text) {
    cursor.beginEditBlock();
    bool isFirst = true;
    for (const QString& line : text.split(u'\n')) {
        if (!isFirst)
            cursor.insertBlock();
        isFirst = false;
        const qsizetype length = lengthLaidOut(line);
        cursor.insertText(line.first(length), QTextCharFormat());
        if (length < line.size())
            cursor.insertText(QString(QChar::ObjectReplacementCharacter),
                              FoldedText::format(line.sliced(length)));
    }
    cursor.endEditBlock();
}

QMimeData* ScriptEditor::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    copied->setText(wholeText(textCursor().selectionStart(), textCursor().selectionEnd()));
    return copied;
}

void ScriptEditor::insertFromMimeData(const QMimeData* source) {
    const QString text = withPlainLineBreaks(source->text());
    if (!source->hasText() || !hasLongLine(text))
        return QPlainTextEdit::insertFromMimeData(source);
    QTextCursor cursor = textCursor();
    insertFolded(cursor, text); // replaces the selection
    ensureCursorVisible();
}

void ScriptEditor::keyPressEvent(QKeyEvent* event) {
    const bool isBackwards = event->key() == Qt::Key_Backtab;
    // Qt swaps Control and Meta on macOS; both leave the field.
    const bool isControlled = event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier);
    if (isBackwards || (event->key() == Qt::Key_Tab && isControlled))
        // QPlainTextEdit would type a tab.
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QWidget::focusNextPrevChild(!isBackwards);
    else
        QPlainTextEdit::keyPressEvent(event);
}

void ScriptEditor::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    QList<QRectF> wrapped;
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > event->rect().bottom())
            break;
        for (int line = 0; line + 1 < block.layout()->lineCount(); ++line)
            wrapped.append(block.layout()->lineAt(line).rect().translated(place.topLeft()));
    }
    style::paintWrapMarks(*viewport(), wrapped, document()->documentMargin());
}

} // namespace frimbolate
