#include "tests/com/control/hosting/smallengine.h"

#include "core/base/text.h"
#include "core/cipher/clsrc4.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <windows.h>

namespace pixmo::com::test {

namespace {

constexpr const char* Key = "OrrelKeyset qFlow";
constexpr const char* Delimiter = "\u00B7";
constexpr size_t ProtectedBytes = 1640;
constexpr int Width = 80;
constexpr int Height = 100;

/// A bitmap file of one colour, its leading bytes in reverse order.
std::string pageFile(uint32_t colour) {
    constexpr size_t pixels = size_t{Width} * Height;
    BITMAPFILEHEADER head{};
    BITMAPINFOHEADER info{sizeof info, Width, Height, 1, 32, BI_RGB, 0, 3780, 3780, 0, 0};
    head.bfType = 0x4D42;
    head.bfOffBits = sizeof head + sizeof info;
    head.bfSize = head.bfOffBits + static_cast<DWORD>(4 * pixels);
    std::string file(head.bfSize, '\0');
    std::memcpy(file.data(), &head, sizeof head);
    std::memcpy(file.data() + sizeof head, &info, sizeof info);
    for (size_t at = 0; at < pixels; ++at)
        std::memcpy(file.data() + head.bfOffBits + 4 * at, &colour, sizeof colour);
    std::reverse(file.begin(), file.begin() + ProtectedBytes);
    return file;
}

std::string encipher(const std::string& plain) {
    return clsRC4().EncryptString(plain, Key, true);
}

} // namespace

SmallEngine::SmallEngine() {
    server_.answerBy([this](const std::string& request) {
        const std::string body = answer(request);
        return transfers::RawServer::Reply{
            "HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body};
    });
}

uint32_t SmallEngine::colourOf(int page) {
    static constexpr std::array<uint32_t, Pages> colours{0xC02020, 0x20C020, 0x2020C0};
    return colours.at(static_cast<size_t>(page) - 1);
}

std::string SmallEngine::answer(const std::string& request) const {
    const size_t start = request.find('?') + 1;
    const std::string text = request.substr(start, request.find(' ', start) - start);
    if (text.starts_with("IC"))
        return encipher(std::string("IC") + Delimiter + "OK");
    const auto fields = split(clsRC4().DecryptString(text, Key, true), Delimiter);
    const std::string joined = std::string("OK") + Delimiter + std::to_string(Pages);
    if (fields[0] == "PC")
        return encipher(std::string("PC") + Delimiter + joined);
    return pageFile(colourOf(std::clamp(std::stoi(fields.back()), 1, int{Pages})));
}

} // namespace pixmo::com::test
