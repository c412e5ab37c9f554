#include "core/imaging/clsrc4.h"

#include "core/base/ansi.h"
#include "core/base/error.h"
#include "core/base/files.h"
#include "core/base/text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace pixmo {

namespace {

namespace fs = std::filesystem;

std::span<uint8_t> bytesOf(std::string& text) {
    return {reinterpret_cast<uint8_t*>(text.data()), text.size()};
}

/// -1 for a character that is no hexadecimal digit.
int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
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

/// The position in the keystream. 32-bit cells spare the inner loop every narrowing.
class Keystream {
public:
    explicit Keystream(const std::array<int16_t, 256>& schedule) {
        for (size_t i = 0; i < schedule.size(); ++i)
            state_[i] = static_cast<uint32_t>(schedule[i]);
    }

    void apply(std::span<uint8_t> bytes) {
        uint32_t i = i_;
        uint32_t j = j_;
        for (uint8_t& byte : bytes) {
            i = (i + 1) & 0xFFU;
            const uint32_t a = state_[i];
            j = (j + a) & 0xFFU;
            const uint32_t b = state_[j];
            state_[i] = b;
            state_[j] = a;
            byte = static_cast<uint8_t>(byte ^ state_[(a + b) & 0xFFU]);
        }
        i_ = i;
        j_ = j;
    }

private:
    std::array<uint32_t, 256> state_{};
    uint32_t i_ = 0;
    uint32_t j_ = 0;
};

} // namespace

void clsRC4::setKey(std::string_view key) {
    if (key == key_)
        return;
    key_ = key;
    if (key_.empty())
        throw divisionByZeroError();
    const std::string keyBytes = toAnsi(key_);
    for (size_t i = 0; i < schedule_.size(); ++i)
        schedule_[i] = static_cast<int16_t>(i);
    size_t j = 0;
    for (size_t i = 0; i < schedule_.size(); ++i) {
        const auto keyByte = static_cast<unsigned char>(keyBytes[i % keyBytes.size()]);
        j = (j + static_cast<size_t>(schedule_[i]) + keyByte) & 0xFFU;
        std::swap(schedule_[i], schedule_[j]);
    }
}

void clsRC4::EncryptByte(std::span<uint8_t> bytes, std::string_view key) {
    if (!key.empty())
        setKey(key);
    Keystream keystream(schedule_);
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
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::string bytes = toAnsi(text);
    std::string hex(bytes.size() * 2, '0');
    for (size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        hex[2 * i] = digits[byte >> 4U];
        hex[2 * i + 1] = digits[byte & 0xFU];
    }
    return hex;
}

std::string clsRC4::DeHex(std::string_view hex) const {
    std::string bytes;
    bytes.reserve((hex.size() + 1) / 2);
    for (size_t i = 0; i < hex.size(); i += 2) {
        const int high = hexDigit(hex[i]);
        const int low = i + 1 < hex.size() ? hexDigit(hex[i + 1]) : -1;
        const int value = high < 0 ? 0 : low < 0 ? high : high * 16 + low;
        bytes.push_back(static_cast<char>(value));
    }
    return fromAnsi(bytes);
}

} // namespace pixmo
