#include "core/cipher/clsrc4.h"
#include "core/protocol/cclienthandlers.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

// The first byte chooses the delimiter, the rest is an answer: once as the hexadecimal text that arrives,
// once as the plain text that it may hold.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace pixmo;
    if (size == 0)
        return 0;
    const std::string delimiter = data[0] % 2 == 0 ? "|" : "\u00B7";
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    cErrObject errors;
    cClientHandlers handlers(errors);
    int raised = 0;
    handlers.InitialContact.connect([&](bool) { ++raised; });
    handlers.PageCount.connect([&](int16_t) { ++raised; });
    handlers.GetPage.connect([&](const std::string&) { ++raised; });
    handlers.ServerErrorReport.connect([&](int32_t, const std::string&, const std::string&) { ++raised; });
    for (const std::string& answer : {text, clsRC4().EncryptString(text, "key", true)}) {
        raised = 0;
        std::vector<std::string> fields;
        const int32_t status = handlers.ProcessResponse(delimiter, "key", answer, {}, fields);
        const bool handled = status == 0 && !fields.empty();
        if (raised != (handled ? 1 : 0) || (handled && fields.size() < 2))
            std::abort();
    }
    return 0;
}
