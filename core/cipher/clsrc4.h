#pragma once

#include "core/base/event.h"
#include "core/cipher/rc4keystream.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace pixmo {

/// The RC4 stream cipher over bytes, texts and files, and the hexadecimal form in which its output travels.
/// Texts are UTF-8 outside; they become bytes of the ANSI code page, one a character, before they are
/// enciphered, and come back the same way.
class clsRC4 {
public:
    /// Percentage done, 0 to 100; at most about 101 times an operation.
    Event<int32_t> Progress;

    const std::string& Key() const { return key_; }

    /// Runs the key schedule unless the text is the stored one. An empty key after another one fails with
    /// the division error (11); the stored text is replaced all the same.
    void setKey(std::string_view key);

    /// In place, from the freshly keyed state at every call. An empty key means the one set before.
    void EncryptByte(std::span<uint8_t> bytes, std::string_view key);
    void DecryptByte(std::span<uint8_t> bytes, std::string_view key) { EncryptByte(bytes, key); }

    std::string EncryptString(std::string_view text, std::string_view key, bool outputInHex);
    std::string DecryptString(std::string_view text, std::string_view key, bool inputIsHex);

    /// True when the destination was written; false when it exists and may not be overwritten. Throws file
    /// not found (53), path/file access (75) or disk full (61).
    bool EncryptFile(const std::filesystem::path& source, const std::filesystem::path& destination,
                     bool overwrite, std::string_view key);
    bool DecryptFile(const std::filesystem::path& source, const std::filesystem::path& destination,
                     bool overwrite, std::string_view key) {
        return EncryptFile(source, destination, overwrite, key);
    }

    /// Two upper-case digits a character.
    std::string EnHex(std::string_view text) const;
    /// One character a pair of digits of either case; a pair is read as far as it is hexadecimal.
    std::string DeHex(std::string_view hex) const;

private:
    std::string key_;
    RC4Keystream keyed_; ///< in the state that every call starts from
};

} // namespace pixmo
