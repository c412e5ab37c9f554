#include "core/cipher/clsrc4.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/base/text.h"

#include <algorithm>
#include <array>
#include <vector>

namespace pixmo {

namespace {

namespace fs = std::filesystem;

std::span<uint8_t> bytesOf(std::string& text) {
    return {reinterpret_cast<uint8_t*>(text.data()), text.size()};
}

/// The value of every hexadecimal digit, -1 for other characters.
constexpr std::array<int8_t, 256> hexDigits() {
    std::array<int8_t, 256> values{};
    values.fill(-1);
    for (uint8_t i = 0; i < 10; ++i)
        values['0' + i] = static_cast<int8_t>(i);
    for (uint8_t i = 0; i < 6; ++i)
        values['A' + i] = values['a' + i] = static_cast<int8_t>(10 + i);
    return values;
}
constexpr std::array<int8_t, 256> HexDigits = hexDigits();

constexpr std::array<std::array<char, 2>, 256> hexPairs() {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::array<std::array<char, 2>, 256> pairs{};
    for (size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = {digits[byte >> 4U], digits[byte & 0xFU]};
    return pairs;
}
constexpr std::array<std::array<char, 2>, 256> HexPairs = hexPairs();

int hexDigit(char c) {
    return HexDigits[static_cast<unsigned char>(c)];
}

/// Tells when the next `Progress` is due: about once a percent, whatever the length.
class ProgressThreshold {
public:
    explicit ProgressThreshold(uint64_t length) : length_(length) {}

    uint64_t next() const { return next_; }

    int32_t reach(uint64_t position) {
        const uint64_t percent = position * 100 / length_;
        next_ = (percent + 1) * length_ / 100 + 1;
        last_ = static_cast<int32_t>(percent);
        return last_;
    }

    int32_t lastPercent() const { return last_; }

private:
    uint64_t length_;
    uint64_t next_ = 0;
    int32_t last_ = -1;
};

} // namespace

void clsRC4::setKey(std::string_view key) {
    if (key == key_)
        return;
    key_ = key;
    if (key_.empty())
        throw divisionByZeroError();
    keyed_ = RC4Keystream(toAnsi(key_));
}

void clsRC4::EncryptByte(std::span<uint8_t> bytes, std::string_view key) {
    if (!key.empty())
        setKey(key);
    RC4Keystream keystream = keyed_;
    if (!Progress.hasHandlers()) {
        keystream.apply(bytes);
        return;
    }
    ProgressThreshold threshold(bytes.size());
    for (size_t done = 0; done < bytes.size();) {
        if (done == threshold.next())
            Progress.raise(threshold.reach(done));
        const size_t end = static_cast<size_t>(std::min<uint64_t>(bytes.size(), threshold.next()));
        keystream.apply(bytes.subspan(done, end - done));
        done = end;
    }
    if (threshold.lastPercent() != 100)
        Progress.raise(100);
}

std::string clsRC4::EncryptString(std::string_view text, std::string_view key, bool outputInHex) {
    std::string bytes = toAnsi(text);
    EncryptByte(bytesOf(bytes), key);
    const std::string result = fromAnsi(bytes);
    return outputInHex ? EnHex(result) : result;
}

std::string clsRC4::DecryptString(std::string_view text, std::string_view key, bool inputIsHex) {
    std::string bytes = toAnsi(inputIsHex ? DeHex(text) : std::string(text));
    DecryptByte(bytesOf(bytes), key);
    return fromAnsi(bytes);
}

bool clsRC4::EncryptFile(const fs::path& source, const fs::path& destination, bool overwrite,
                         std::string_view key) {
    if (!fileExists(source))
        throw fileNotFoundError();
    if (fileExists(destination) && !overwrite)
        return false;
    std::vector<uint8_t> bytes = readFile(source);
    EncryptByte(bytes, key);
    writeFile(destination, bytes);
    return true;
}

std::string clsRC4::EnHex(std::string_view text) const {
    const std::string bytes = toAnsi(text);
    std::string hex(bytes.size() * 2, '0');
    char* out = hex.data();
    for (const char byte : bytes) {
        const auto& pair = HexPairs[static_cast<unsigned char>(byte)];
        *out++ = pair[0];
        *out++ = pair[1];
    }
    return hex;
}

std::string clsRC4::DeHex(std::string_view hex) const {
    std::string bytes((hex.size() + 1) / 2, '\0');
    for (size_t i = 0; i < bytes.size(); ++i) {
        const int high = hexDigit(hex[2 * i]);
        const int low = 2 * i + 1 < hex.size() ? hexDigit(hex[2 * i + 1]) : -1;
        const int value = high < 0 ? 0 : low < 0 ? high : high * 16 + low;
        bytes[i] = static_cast<char>(value);
    }
    return fromAnsi(bytes);
}

} // namespace pixmo
