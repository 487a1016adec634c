#include "plist/xml_reader.h"

#include "plist/limits.h"
#include "plist/scalar_text.h"
#include "plist/text_cursor.h"
#include "plist/text_encoding.h"
#include "plist/value_builder.h"
#include "plist/xml_text.h"

#include <algorithm>
#include <vector>

namespace frimbolate {

namespace {

enum class Element {
    array,
    data,
    date,
    dictionary,
    falseValue,
    integer,
    key,
    plist,
    real,
    string,
    trueValue
};

struct ElementName {
    std::string_view name;
    Element element;
};

constexpr ElementName elementNames[] = {
    {"key", Element::key},          {"string", Element::string}, {"integer", Element::integer},
    {"dict", Element::dictionary},  {"array", Element::array},   {"true", Element::trueValue},
    {"false", Element::falseValue}, {"real", Element::real},     {"data", Element::data},
    {"date", Element::date},        {"plist", Element::plist},
};

/// An open element, and what is allowed next in it.
enum class Level : unsigned char { emptyPlist, filledPlist, array, dictionaryKey, dictionaryValue };

constexpr std::string_view nameOf(Level level) {
    if (level == Level::array)
        return "array";
    return level == Level::emptyPlist || level == Level::filledPlist ? "plist" : "dict";
}

struct Tag {
    std::string_view name;
    bool isEmpty;
};

class XmlReader {
  public:
    explicit XmlReader(TextCursor& in)
        : in_(in), builder_(DuplicateKeys::last, maximumPlistMemory(in.rest().size())) {}

    Value document();

  private:
    void skipProlog();
    void skipToMarkup();
    void skipPast(std::string_view terminator, const char* what);
    void skipDocumentType();
    Tag openTag();
    void openElement();
    void openContainer(Element element, bool isEmpty);
    void closeElement();
    void expectCloseTag(std::string_view name);
    void expectCloseTagBehind(std::string_view name);
    Value scalar(Element element, const Tag& tag);
    std::string_view plainContent();
    std::string text(const Tag& tag);
    void beforeValue(Element element, std::string_view name);
    void afterValue();

    TextCursor& in_;
    std::vector<Level> levels_;
    ValueBuilder builder_;
};

Value XmlReader::document() {
    skipProlog();
    openElement();
    while (!levels_.empty()) {
        skipToMarkup();
        if (in_.take('/'))
            closeElement();
        else
            openElement();
        if (builder_.isTooLarge())
            in_.fail(tooMuchMemory);
    }
    return builder_.take();
}

void XmlReader::skipPast(std::string_view terminator, const char* what) {
    const auto found = in_.find(terminator);
    if (found == std::string_view::npos)
        in_.fail(std::string(what) + " does not end");
    in_.moveTo(found + terminator.size());
}

/// Advances past the "<" of the first element.
void XmlReader::skipProlog() {
    for (;;) {
        in_.skipBlanks();
        if (!in_.take('<'))
            in_.failUnexpected("an element");
        if (in_.take('?'))
            skipPast("?>", "a processing instruction");
        else if (in_.take("!--"))
            skipPast("-->", "a comment");
        else if (in_.take('!'))
            skipDocumentType();
        else
            return;
    }
}

void XmlReader::skipDocumentType() {
    if (!in_.take("DOCTYPE"))
        in_.fail("it holds an unknown declaration");
    const std::size_t start = in_.position();
    skipPast(">", "a document type");
    if (in_.between(start, in_.position()).find('[') != std::string_view::npos)
        in_.failAt(start, "it declares a document type of its own");
}

/// Advances past the "<" of the next tag inside an element.
void XmlReader::skipToMarkup() {
    for (;;) {
        in_.skipBlanks();
        if (in_.atEnd())
            in_.fail("<" + std::string(nameOf(levels_.back())) + "> is not closed");
        if (!in_.take('<'))
            in_.fail("text stands between the elements: \"" +
                     excerpt(in_.rest().substr(0, in_.rest().find('<'))) + "\"");
        if (in_.take('?')) {
            skipPast("?>", "a processing instruction");
        } else if (in_.take('!')) {
            if (!in_.take("--"))
                in_.fail("a declaration or section stands between the elements");
            // The second dash can be part of the end, as in "<!--->".
            in_.moveTo(in_.position() - 1);
            skipPast("-->", "a comment");
        } else {
            return;
        }
    }
}

/// Reads a tag from after its "<". The name ends at the first blank.
Tag XmlReader::openTag() {
    const std::size_t start = in_.position();
    const std::size_t end = in_.find('>');
    if (end == std::string_view::npos)
        in_.fail("a tag does not end");
    const std::string_view content = in_.between(start, end);
    const bool isEmpty = content.ends_with('/');
    std::string_view name = content.substr(0, content.find_first_of(" \t\r\n"));
    if (isEmpty && name.size() == content.size())
        name.remove_suffix(1);
    if (name.empty())
        in_.fail("a tag has no name");
    in_.moveTo(end + 1);
    return {name, isEmpty};
}

void XmlReader::beforeValue(Element element, std::string_view name) {
    if (levels_.empty())
        return;
    if (levels_.back() == Level::filledPlist)
        in_.fail("<plist> holds more than one value");
    if (levels_.back() == Level::dictionaryKey && element != Element::key)
        in_.fail("<" + std::string(name) + "> has no key");
}

void XmlReader::afterValue() {
    if (levels_.empty())
        return;
    Level& level = levels_.back();
    if (level == Level::emptyPlist)
        level = Level::filledPlist;
    else if (level == Level::dictionaryValue)
        level = Level::dictionaryKey;
}

void XmlReader::openElement() {
    const Tag tag = openTag();
    const auto* const known =
        std::find_if(std::begin(elementNames), std::end(elementNames),
                     [&](const ElementName& row) { return row.name == tag.name; });
    if (known == std::end(elementNames))
        in_.fail("<" + excerpt(tag.name) + "> is no known element");
    const Element element = known->element;
    beforeValue(element, tag.name);
    if (element == Element::plist) {
        if (tag.isEmpty)
            in_.fail("<plist> is empty");
        levels_.push_back(Level::emptyPlist);
    } else if (element == Element::array || element == Element::dictionary) {
        openContainer(element, tag.isEmpty);
    } else if (!levels_.empty() && levels_.back() == Level::dictionaryKey) {
        builder_.key(text(tag));
        levels_.back() = Level::dictionaryValue;
    } else {
        builder_.value(scalar(element, tag));
        afterValue();
    }
}

void XmlReader::openContainer(Element element, bool isEmpty) {
    if (builder_.depth() >= maximumPlistDepth)
        in_.fail("it is nested too deeply");
    const bool isArray = element == Element::array;
    if (isArray)
        builder_.beginArray();
    else
        builder_.beginDictionary();
    if (!isEmpty) {
        levels_.push_back(isArray ? Level::array : Level::dictionaryKey);
        return;
    }
    builder_.end();
    afterValue();
}

/// Closes the innermost element. Called after the "</" of its end tag.
void XmlReader::closeElement() {
    const Level level = levels_.back();
    expectCloseTagBehind(nameOf(level));
    if (level == Level::emptyPlist)
        in_.fail("<plist> is empty");
    if (level == Level::dictionaryValue)
        in_.fail("the last key of <dict> has no value");
    if (level != Level::filledPlist)
        builder_.end();
    levels_.pop_back();
    afterValue();
}

void XmlReader::expectCloseTag(std::string_view name) {
    if (!in_.take("</"))
        in_.failUnexpected("</" + std::string(name) + ">");
    expectCloseTagBehind(name);
}

void XmlReader::expectCloseTagBehind(std::string_view name) {
    const std::size_t start = in_.position();
    if (in_.take(name)) {
        in_.skipBlanks();
        if (in_.take('>'))
            return;
    }
    in_.failAt(start, "a closing tag does not match <" + std::string(name) + ">");
}

/// The content of an element without references and sections, up to the next tag.
std::string_view XmlReader::plainContent() {
    const std::size_t start = in_.position();
    in_.moveTo(in_.find('<', start + in_.rest().size()));
    return in_.between(start, in_.position());
}

std::string XmlReader::text(const Tag& tag) {
    if (tag.isEmpty)
        return {};
    std::string content = readXmlText(in_);
    expectCloseTag(tag.name);
    return content;
}

Value XmlReader::scalar(Element element, const Tag& tag) {
    if (element == Element::string || element == Element::key)
        return text(tag);
    if (element == Element::trueValue || element == Element::falseValue) {
        if (!tag.isEmpty)
            expectCloseTag(tag.name);
        return element == Element::trueValue;
    }
    if (tag.isEmpty)
        in_.fail("<" + std::string(tag.name) + "> is empty");
    const std::size_t start = in_.position();
    if (element == Element::real) {
        const std::string content = text(tag);
        if (const auto number = parsePlistReal(content))
            return *number;
        in_.failAt(start, "this <real> cannot be read: \"" + excerpt(content) + "\"");
    }
    const std::string_view content = plainContent();
    expectCloseTag(tag.name);
    if (element == Element::data)
        return decodePlistData(content);
    std::optional<Value> value;
    if (element == Element::integer)
        value = parsePlistInteger(content);
    else if (const auto date = parsePlistDate(content))
        value = *date;
    if (!value)
        in_.failAt(start, "this <" + std::string(tag.name) + "> cannot be read: \"" +
                              excerpt(content) + "\"");
    return *std::move(value);
}

} // namespace

Value readXmlPlist(TextCursor& in) { return XmlReader(in).document(); }

} // namespace frimbolate
