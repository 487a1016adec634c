#include "widgets/style/property_list_colours.h"

#include "widgets/style/tokens.h"

namespace frimbolate::style {

namespace {

/// What the characters outside of tags are; the state that a line leaves to the next.
enum Content { Nothing = -1, Key, Text, Number };

/// What follows a tag, given without its angle brackets.
Content contentAfter(QStringView tag) {
    if (tag == u"key")
        return Key;
    if (tag == u"string" || tag == u"data" || tag == u"date")
        return Text;
    return tag == u"integer" || tag == u"real" ? Number : Nothing;
}

bool isBoolean(QStringView tag) { return tag == u"true/" || tag == u"false/"; }

} // namespace

PropertyListHighlighter::PropertyListHighlighter(QTextDocument* document, const QPalette& palette)
    : QSyntaxHighlighter(document) {
    setPalette(palette);
}

void PropertyListHighlighter::setPalette(const QPalette& palette) {
    const Tokens& t = tokens(palette);
    if (markup_ == t.secondaryText)
        return;
    markup_ = t.secondaryText;
    key_ = t.accent;
    text_ = t.text;
    number_ = t.warnText;
    rehighlight();
}

void PropertyListHighlighter::highlightBlock(const QString& line) {
    int content = previousBlockState();
    for (qsizetype at = 0; at < line.size();) {
        const bool isTag = line[at] == '<';
        const qsizetype found = line.indexOf(isTag ? '>' : '<', at);
        const qsizetype end = found < 0 ? line.size() : isTag ? found + 1 : found;
        QColor colour = content == Key      ? key_
                        : content == Number ? number_
                        : content == Text   ? text_
                                            : markup_;
        if (isTag) {
            const QStringView tag = QStringView(line).mid(at + 1, end - at - 2);
            colour = isBoolean(tag) ? number_ : markup_;
            content = contentAfter(tag);
        }
        setFormat(static_cast<int>(at), static_cast<int>(end - at), colour);
        at = end;
    }
    setCurrentBlockState(content);
}

} // namespace frimbolate::style
