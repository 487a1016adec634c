#include "widgets/controls/folded_text.h"

#include "widgets/style/editor_marks.h"

#include <QAbstractTextDocumentLayout>
#include <QLocale>
#include <QTextDocument>
#include <QTextFormat>
#include <QWidget>

namespace frimbolate {

namespace {

enum { FoldedObject = QTextFormat::UserObject + 1, FoldedProperty = QTextFormat::UserProperty + 1 };

QString words(const QTextFormat& format) {
    const qsizetype count = FoldedText::text(format).size();
    return FoldedText::tr("%1 more characters").arg(QLocale().toString(count));
}

} // namespace

FoldedText::FoldedText(QWidget& editor) : QObject(&editor), editor_(editor) {}

void FoldedText::install(QTextDocument& document, QWidget& editor) {
    document.documentLayout()->registerHandler(FoldedObject, new FoldedText(editor));
}

QTextCharFormat FoldedText::format(const QString& text) {
    QTextCharFormat format;
    format.setObjectType(FoldedObject);
    format.setProperty(FoldedProperty, text);
    return format;
}

bool FoldedText::isFolded(const QTextCharFormat& format) {
    return format.objectType() == FoldedObject;
}

QString FoldedText::text(const QTextFormat& format) {
    return format.property(FoldedProperty).toString();
}

QSizeF FoldedText::intrinsicSize(QTextDocument*, int, const QTextFormat& format) {
    return style::foldedTextSize(editor_, words(format));
}

void FoldedText::drawObject(QPainter* painter, const QRectF& rect, QTextDocument*, int,
                            const QTextFormat& format) {
    style::paintFoldedText(*painter, rect, editor_, words(format));
}

} // namespace frimbolate
