#pragma once

#include "core/base/collection.h"
#include "core/base/error.h"
#include "core/base/toolbar.h"
#include "core/diag/cerrobject.h"
#include "core/platform/identity.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace pixmo {

/// Helpers that several parts share: identity, membership, sizes, readable codes, toolbar buttons, padding.
class cUtilities {
public:
    /// Without an identity nobody is known. It outlives the object.
    explicit cUtilities(const Identity* identity = nullptr) : identity_(identity) {}

    /// Made on the first call when none was set.
    cErrObject& ERRR();
    /// The object stays with its owner; nullptr forgets it.
    void setERRR(cErrObject* errorObject);

    /// "" when the system cannot tell.
    std::string GetNTLogin();
    std::string GetWorkstationID();

    static bool ElementExists(const std::vector<std::string>& container, std::string_view item);
    static bool ElementExists(const Collection& container, std::string_view key);
    /// What is neither an array nor a collection raises the type mismatch (13).
    template <typename Other>
    static bool ElementExists(const Other&, std::string_view) {
        throw typeMismatchError();
    }

    /// True for an array that has elements; anything else has none.
    template <typename Element>
    static bool HasElements(const std::vector<Element>& array) {
        return !array.empty();
    }
    template <typename Other>
    static bool HasElements(const Other&) {
        return false;
    }

    /// Kilobytes of 1024 bytes; 0 when there is no such file.
    static float GetFileSize(const std::filesystem::path& path);
    static std::string StatusCodeToText(int32_t code);
    static std::string AsyncTypeToText(int32_t type);
    /// Whether the control runs inside its development environment: it never does.
    static bool InIDE() { return false; }

    /// Adds a disabled button at the end and hands it back; the reference holds until the next one is added.
    ToolButton& AddToolButton(Toolbar& toolbar, const std::string& key, const std::string& toolTip,
                              const std::string& description, ButtonStyle style);
    static void SetToolBarStyle(Toolbar& toolbar, const ImageList* first, const ImageList* second,
                                bool largeButtons, bool captions);
    static bool ButtonExists(const Toolbar& toolbar, std::string_view key);

    /// Without the blanks around it, then padded on the right to `width` characters; never cut.
    static std::string PadString(std::string_view text, int16_t width, std::string_view padCharacter);

private:
    std::string ask(std::string (Identity::*question)() const, const char* procedure);

    const Identity* identity_;
    cErrObject* errorObject_ = nullptr;
    std::unique_ptr<cErrObject> ownErrorObject_;
};

} // namespace pixmo
