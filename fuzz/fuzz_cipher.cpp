#include "core/base/ansi.h"
#include "core/base/text.h"
#include "core/cipher/clsrc4.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

// The first byte is the length of the key that follows it; the rest is enciphered, deciphered, written in
// hexadecimal and read as if it were hexadecimal.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace pixmo;
    if (size == 0)
        return 0;
    const size_t keyLength = std::min<size_t>(data[0], size - 1);
    const std::string key(reinterpret_cast<const char*>(data) + 1, keyLength);
    const std::string bytes(reinterpret_cast<const char*>(data) + 1 + keyLength, size - 1 - keyLength);
    clsRC4 cipher;
    const std::string text = fromAnsi(bytes);
    const std::string hex = cipher.EnHex(text);
    if (hex.size() != bytes.size() * 2 || cipher.DeHex(hex) != text)
        std::abort();
    if (characterCount(cipher.DeHex(bytes)) != (bytes.size() + 1) / 2)
        std::abort();
    const std::string secret = cipher.EncryptString(text, key, true);
    if (cipher.DecryptString(secret, key, true) != text)
        std::abort();
    return 0;
}
