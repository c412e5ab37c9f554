#include "faces/com/ports/codepage.h"

#include "core/base/ansi.h"

namespace pixmo::com {

void useSystemCodePage() {
    CPINFO facts{};
    if (!GetCPInfo(CP_ACP, &facts) || facts.MaxCharSize != 1)
        return;
    CodePage page{};
    for (size_t code = 0; code < page.size(); ++code) {
        const char byte = static_cast<char>(code);
        wchar_t character = 0;
        MultiByteToWideChar(CP_ACP, 0, &byte, 1, &character, 1);
        page[code] = character;
    }
    setAnsiCodePage(page);
}

} // namespace pixmo::com
