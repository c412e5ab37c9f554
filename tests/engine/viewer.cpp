#include "tests/engine/viewer.h"

#include "core/base/ansi.h"
#include "core/base/text.h"
#include "core/cipher/clsrc4.h"

#include <algorithm>
#include <cctype>

namespace pixmo {

std::string percentEncoded(const std::string& text) {
    std::string encoded;
    for (const char c : toAnsi(text))
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 && static_cast<unsigned char>(c) < 0x80)
            encoded += c;
        else
            encoded += '%' + clsRC4().EnHex(fromAnsi({&c, 1}));
    return encoded;
}

std::string Viewer::contact() const {
    const clsRC4 codec;
    return percentEncoded("IC" + delimiter + codec.EnHex(key) + delimiter +
                          enciphered(user + "|" + machine + "|Pixmo|2|1|37"));
}

std::string Viewer::pageCount(const std::string& document) const {
    return enciphered("PC|" + user + "|" + machine + "|" + document);
}

std::string Viewer::getPage(const std::string& document, const std::string& page) const {
    return enciphered("GP|" + user + "|" + machine + "|" + document + "|" + page);
}

std::string Viewer::enciphered(const std::string& plain) const {
    return clsRC4().EncryptString(delimited(plain), key, true);
}

std::string Viewer::deciphered(const std::string& hex) const {
    return clsRC4().DecryptString(hex, key, true);
}

std::string Viewer::readable(const std::string& hex) const {
    std::string text;
    for (const std::string& field : split(deciphered(hex), delimiter))
        text += (text.empty() ? "" : "|") + field;
    return text;
}

std::string Viewer::delimited(std::string text) const {
    for (size_t at = text.find('|'); at != std::string::npos; at = text.find('|', at + delimiter.size()))
        text.replace(at, 1, delimiter);
    return text;
}

std::vector<uint8_t> restored(const std::string& body, size_t protectedBytes) {
    std::vector<uint8_t> page(body.begin(), body.end());
    const size_t count = std::min(protectedBytes, page.size());
    std::reverse(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(count));
    return page;
}

} // namespace pixmo
