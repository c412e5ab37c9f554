#include "bench/imaging/rows.h"
#include "core/cipher/clsrc4.h"

#if __has_include("core/protocol/cclienthandlers.h")
#include "core/protocol/cclienthandlers.h"
#define PIXMO_BENCH_RESTORE
#endif
#ifdef PIXMO_BENCH_OPENSSL
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <openssl/provider.h>
#endif
#ifdef PIXMO_BENCH_GCRYPT
#include <gcrypt.h>
#endif

#include <algorithm>
#include <memory>
#include <numeric>
#include <stdexcept>

namespace pixmo::bench {

namespace {

constexpr std::string_view Key = "a key of sixteen";

using Bytes = std::shared_ptr<std::vector<uint8_t>>;

Bytes someBytes(size_t count) {
    auto bytes = std::make_shared<std::vector<uint8_t>>(count);
    std::iota(bytes->begin(), bytes->end(), uint8_t{0});
    return bytes;
}

void check(bool good) {
    if (!good)
        throw std::runtime_error("a peer failed");
}

#ifdef PIXMO_BENCH_OPENSSL
/// RC4 has moved to the legacy provider, which has to be loaded beside the default one.
class LegacyProvider {
public:
    LegacyProvider() {
        check(OSSL_PROVIDER_load(nullptr, "legacy") && OSSL_PROVIDER_load(nullptr, "default"));
        cipher_.reset(EVP_CIPHER_fetch(nullptr, "RC4", nullptr), EVP_CIPHER_free);
        check(cipher_ != nullptr);
    }
    const EVP_CIPHER* cipher() const { return cipher_.get(); }

private:
    std::shared_ptr<EVP_CIPHER> cipher_;
};

Contender openSslCipher(const Bytes& bytes) {
    static const LegacyProvider provider;
    const std::shared_ptr<EVP_CIPHER_CTX> context(EVP_CIPHER_CTX_new(), EVP_CIPHER_CTX_free);
    return {"OpenSSL, legacy provider", [=] {
                int length = 0;
                check(EVP_EncryptInit_ex2(context.get(), provider.cipher(),
                                          reinterpret_cast<const uint8_t*>(Key.data()), nullptr, nullptr));
                check(EVP_EncryptUpdate(context.get(), bytes->data(), &length, bytes->data(),
                                        static_cast<int>(bytes->size())));
            }};
}
#endif

#ifdef PIXMO_BENCH_GCRYPT
Contender gcryptCipher(const Bytes& bytes) {
    static const bool ready = [] {
        check(gcry_check_version(nullptr) != nullptr);
        return gcry_control(GCRYCTL_INITIALIZATION_FINISHED, 0) == 0;
    }();
    check(ready);
    gcry_cipher_hd_t handle = nullptr;
    check(gcry_cipher_open(&handle, GCRY_CIPHER_ARCFOUR, GCRY_CIPHER_MODE_STREAM, 0) == 0);
    const std::shared_ptr<gcry_cipher_handle> owner(handle, gcry_cipher_close);
    return {"libgcrypt", [=] {
                check(gcry_cipher_setkey(owner.get(), Key.data(), Key.size()) == 0);
                check(gcry_cipher_encrypt(owner.get(), bytes->data(), bytes->size(), nullptr, 0) == 0);
            }};
}
#endif

/// Key set-up included: every answer is deciphered by an object of its own.
Row cipherRow(const std::string& name, size_t count) {
    const Bytes bytes = someBytes(count);
    Row row{"RC4 " + name, {{"ours", [=] { clsRC4().EncryptByte(*bytes, Key); }}}};
#ifdef PIXMO_BENCH_OPENSSL
    row.contenders.push_back(openSslCipher(bytes));
#endif
#ifdef PIXMO_BENCH_GCRYPT
    row.contenders.push_back(gcryptCipher(bytes));
#endif
    return row;
}

/// What deciphered answers are made of: ASCII, and here and there a character of the code page.
std::string someText(size_t count) {
    std::string text(count, ' ');
    for (size_t i = 0; i < count; ++i)
        text[i] = static_cast<char>('A' + i % 57);
    return text;
}

Row enHexRow() {
    const std::string text = someText(1024);
    Row row{"hexadecimal, 1 KB to text", {}};
    row.contenders.push_back({"ours", [=, codec = clsRC4()] { check(codec.EnHex(text).size() == 2048); }});
#ifdef PIXMO_BENCH_OPENSSL
    row.contenders.push_back({"OpenSSL", [=] {
                                  std::string hex(2049, '\0');
                                  check(OPENSSL_buf2hexstr_ex(hex.data(), hex.size(), nullptr,
                                                              reinterpret_cast<const uint8_t*>(text.data()),
                                                              text.size(), '\0'));
                              }});
#endif
    return row;
}

Row deHexRow() {
    const std::string hex = clsRC4().EnHex(someText(1024));
    Row row{"hexadecimal, 1 KB from text", {}};
    row.contenders.push_back({"ours", [=, codec = clsRC4()] { check(codec.DeHex(hex).size() == 1024); }});
#ifdef PIXMO_BENCH_OPENSSL
    row.contenders.push_back(
        {"OpenSSL", [=] {
             std::vector<uint8_t> bytes(1024);
             size_t length = 0;
             check(OPENSSL_hexstr2buf_ex(bytes.data(), bytes.size(), &length, hex.c_str(), '\0'));
         }});
#endif
    return row;
}

/// `leading` -1: all bytes.
Row restoreRow(const std::string& name, int32_t leading) {
    const Bytes bytes = someBytes(1 << 20);
    const size_t count = leading < 0 ? bytes->size() : static_cast<size_t>(leading);
    Row row{"page restore, " + name, {}};
#ifdef PIXMO_BENCH_RESTORE
    const auto errors = std::make_shared<cErrObject>();
    row.contenders.push_back({"ours", [=] { check(cClientHandlers(*errors).N5148F(*bytes, leading) == 0); }});
#endif
    row.contenders.push_back(
        {"std::reverse",
         [=] { std::reverse(bytes->begin(), bytes->begin() + static_cast<ptrdiff_t>(count)); }});
    return row;
}

} // namespace

std::vector<Row> cipherRows() {
    return {cipherRow("100 B", 100),
            cipherRow("1 KB", 1024),
            cipherRow("1 MB", 1 << 20),
            enHexRow(),
            deHexRow(),
            restoreRow("1640 leading bytes", 1640),
            restoreRow("1 MB", -1)};
}

} // namespace pixmo::bench
