#include "platform/qt/property_list_xml_reader.h"

#include "core/failure.h"
#include "platform/qt/property_list_limits.h"
#include "platform/qt/property_list_text.h"
#include "platform/qt/utc_date.h"

#include <QString>
#include <QXmlStreamReader>

#include <algorithm>

namespace frimbolate {

namespace {

using Token = QXmlStreamReader::TokenType;

class Reader {
  public:
    explicit Reader(const QByteArray& bytes) : xml_(bytes) { xml_.setNamespaceProcessing(false); }

    Value document();

  private:
    [[noreturn]] void refuse(const std::string& reason) const;
    Token nextToken();
    bool nextElement();
    void enterRoot();
    Value value(int depth);
    Value container(const std::string& element, int depth);
    Value scalar(const std::string& element);
    Array array(int depth);
    Dictionary dictionary(int depth);
    bool elementIs(QLatin1String name) const { return xml_.qualifiedName() == name; }
    std::string element() const { return utf8(xml_.qualifiedName().toString()); }
    void refuseAttributes() const;
    std::string text();
    std::string utf8(const QString& text) const;

    QXmlStreamReader xml_;
};

void Reader::refuse(const std::string& reason) const {
    throw Failure(unreadablePropertyList,
                  reason + " (line " + std::to_string(xml_.lineNumber()) + ")");
}

/// The next token that is no comment. Anything that XML itself forbids ends here.
Token Reader::nextToken() {
    Token token = xml_.readNext();
    while (token == Token::Comment)
        token = xml_.readNext();
    if (token == Token::Invalid)
        refuse("it is no well-formed XML: " + xml_.errorString().toStdString());
    if (token == Token::ProcessingInstruction)
        refuse("it holds a processing instruction");
    if (token == Token::EntityReference)
        refuse("it holds an unknown entity");
    return token;
}

/// Goes on to the next child and says whether there is one; only blanks may stand before it.
bool Reader::nextElement() {
    Token token = nextToken();
    while (token == Token::Characters) {
        if (!xml_.isWhitespace())
            refuse("text stands between the elements");
        token = nextToken();
    }
    return token == Token::StartElement;
}

void Reader::enterRoot() {
    Token token = nextToken();
    while (token == Token::StartDocument || token == Token::DTD) {
        // A DTD of its own could declare entities, or attributes that every element then has.
        if (token == Token::DTD && xml_.text().contains(u'['))
            refuse("it declares its own document type");
        token = nextToken();
    }
    if (!elementIs(QLatin1String("plist")))
        refuse("its root is <" + element() + "> instead of <plist>");
    const auto attributes = xml_.attributes();
    if (std::any_of(attributes.begin(), attributes.end(), [](const auto& attribute) {
            return attribute.qualifiedName() != QLatin1String("version");
        }))
        refuse("<plist> has an unknown attribute");
}

Value Reader::document() {
    enterRoot();
    if (!nextElement())
        refuse("<plist> is empty");
    Value root = value(1);
    if (nextElement())
        refuse("<plist> holds more than one value");
    while (nextToken() != Token::EndDocument) {
    }
    return root;
}

Value Reader::value(int depth) {
    const std::string name = element();
    refuseAttributes();
    if (name == "dict" || name == "array")
        return container(name, depth);
    return scalar(name);
}

Value Reader::container(const std::string& element, int depth) {
    if (depth > maximumPropertyListDepth)
        refuse("it is nested too deeply");
    if (element == "array")
        return array(depth);
    return dictionary(depth);
}

Value Reader::scalar(const std::string& element) {
    static constexpr std::string_view known[] = {"string", "integer", "real", "data",
                                                 "date",   "true",    "false"};
    if (std::find(std::begin(known), std::end(known), element) == std::end(known))
        refuse("<" + element + "> is no known element");
    const std::string whole = text();
    if (element == "string")
        return whole;
    const auto content = trimmed(whole);
    if (element == "true" || element == "false") {
        if (!content.empty())
            refuse("<" + element + "> is not empty");
        return element == "true";
    }
    if (element == "integer") {
        if (auto number = integerOfText(content))
            return *std::move(number);
    } else if (element == "real") {
        if (const auto number = realOfText(content))
            return *number;
    } else if (element == "data") {
        if (auto data = dataOfText(content))
            return *std::move(data);
    } else if (const auto date = dateOfText(content)) {
        return *date;
    }
    refuse("this <" + element + "> cannot be read: \"" + std::string(content.substr(0, 40)) + "\"");
}

Array Reader::array(int depth) {
    Array elements;
    while (nextElement())
        elements.push_back(value(depth + 1));
    return elements;
}

Dictionary Reader::dictionary(int depth) {
    Dictionary entries;
    while (nextElement()) {
        if (!elementIs(QLatin1String("key")))
            refuse(std::string("<").append(element()).append("> has no key"));
        refuseAttributes();
        std::string key = text();
        if (entries.contains(key))
            refuse("the key \"" + key + "\" stands there twice");
        if (!nextElement() || elementIs(QLatin1String("key")))
            refuse("the key \"" + key + "\" has no value");
        entries.emplace(std::move(key), value(depth + 1));
    }
    return entries;
}

void Reader::refuseAttributes() const {
    if (!xml_.attributes().isEmpty())
        refuse("<" + element() + "> has an attribute");
}

/// The whole text of an element without children.
std::string Reader::text() {
    const std::string name = element();
    QString collected;
    Token token = nextToken();
    while (token == Token::Characters) {
        collected += xml_.text();
        token = nextToken();
    }
    if (token != Token::EndElement)
        refuse("<" + name + "> holds another element");
    return utf8(collected);
}

std::string Reader::utf8(const QString& text) const {
    if (!text.isValidUtf16())
        refuse("it holds half a character");
    std::string bytes = text.toStdString();
    if (const auto reason = reasonNotXml(bytes))
        refuse("a text cannot be read: " + *reason);
    return bytes;
}

} // namespace

Value readXmlPropertyList(const QByteArray& bytes) {
    if (static_cast<std::size_t>(bytes.size()) > maximumPropertyListBytes)
        throw Failure(unreadablePropertyList, "it is over 16 MiB");
    return Reader(bytes).document();
}

} // namespace frimbolate
