#include "widgets/controls/long_text.h"

#include <algorithm>
#include <iterator>

namespace frimbolate {

namespace {

/// The length of the longest prefix of at most `most` units that ends on a character boundary.
qsizetype wholeCharacters(QStringView text, qsizetype most) {
    if (text.size() <= most)
        return text.size();
    return text[most - 1].isHighSurrogate() ? most - 1 : most;
}

/// A sign that does not occur in the text itself.
QChar signFor(QStringView text) {
    constexpr char16_t signs[] = {u'\u2026', u'\u22EF', u'\u25B8', u'\u00BB'};
    const auto* free =
        std::ranges::find_if(signs, [text](char16_t sign) { return !text.contains(sign); });
    constexpr char16_t privateUse = u'\uE000';
    return free == std::end(signs) ? privateUse : *free;
}

} // namespace

QString labelText(const QString& text, Qt::TextElideMode mode) {
    if (text.size() <= longestLabel)
        return text;
    const qsizetype kept = longestLabel - 1;
    const qsizetype atEnd = mode == Qt::ElideMiddle ? kept / 2 : 0;
    QStringView end = QStringView(text).last(atEnd);
    if (!end.isEmpty() && end.front().isLowSurrogate())
        end = end.sliced(1);
    return text.first(wholeCharacters(text, kept - atEnd)) + u'\u2026' + end.toString();
}

qsizetype lengthLaidOut(QStringView line) { return wholeCharacters(line, longestLine); }

QString AbbreviatedText::abbreviate(const QString& whole) {
    const qsizetype length = lengthLaidOut(whole);
    rest_ = whole.sliced(length);
    if (rest_.isEmpty())
        return whole;
    sign_ = signFor(QStringView(whole).first(length));
    return whole.first(length) + sign_;
}

QString AbbreviatedText::expand(const QString& shown) const {
    return rest_.isEmpty() ? shown : QString(shown).replace(sign_, rest_);
}

} // namespace frimbolate
