#include "core/diag/errorforms.h"

#include "core/base/text.h"

#include <string_view>

namespace pixmo {

namespace {

bool isXmlCharacter(char32_t c) {
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
}

void appendEscaped(std::string& xml, char32_t character) {
    switch (character) {
    case '&':
        xml += "&amp;";
        break;
    case '<':
        xml += "&lt;";
        break;
    case '>':
        xml += "&gt;";
        break;
    case '"':
        xml += "&quot;";
        break;
    case '\t':
    case '\n':
    case '\r':
        xml += "&#" + std::to_string(static_cast<uint32_t>(character)) + ";";
        break;
    default:
        appendCharacter(xml, isXmlCharacter(character) ? character : ReplacementCharacter);
    }
}

std::string escaped(std::string_view text) {
    std::string xml;
    for (size_t at = 0; at < text.size();)
        appendEscaped(xml, nextCharacter(text, at));
    return xml;
}

} // namespace

std::string XmlElement::serialise() const {
    std::string xml = "<" + Name;
    for (const auto& [name, value] : Attributes)
        xml += " " + name + "=\"" + escaped(value) + "\"";
    if (Text.empty() && Children.empty())
        return xml + "/>";
    xml += ">" + escaped(Text);
    for (const XmlElement& child : Children)
        xml += child.serialise();
    return xml + "</" + Name + ">";
}

} // namespace pixmo
