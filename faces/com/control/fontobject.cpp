#include "faces/com/control/fontobject.h"

#include "faces/com/base/boundary.h"
#include "faces/com/base/bstr.h"

#include <cmath>
#include <olectl.h>

namespace pixmo::com {

namespace {

constexpr const wchar_t* DialogFont = L"MS Shell Dlg";
constexpr double Currency = 10000; ///< units of a CY in one

} // namespace

Font fontOf(IFont& font) {
    Font result;
    Bstr name;
    check(font.get_Name(name.receive()));
    result.Name = toUtf8(name.view());
    CY size{};
    check(font.get_Size(&size));
    result.Size = static_cast<double>(size.int64) / Currency;
    BOOL flag = FALSE;
    check(font.get_Bold(&flag));
    result.Bold = flag;
    check(font.get_Italic(&flag));
    result.Italic = flag;
    check(font.get_Underline(&flag));
    result.Underline = flag;
    check(font.get_Strikethrough(&flag));
    result.Strikethrough = flag;
    return result;
}

ComPtr<IFontDisp> makeFontObject(const Font& font) {
    std::wstring name = font.Name.empty() ? DialogFont : toWide(font.Name);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = std::llround(font.Size * Currency);
    description.sWeight = font.Bold ? FW_BOLD : FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    description.fItalic = font.Italic;
    description.fUnderline = font.Underline;
    description.fStrikethrough = font.Strikethrough;
    ComPtr<IFontDisp> object;
    check(OleCreateFontIndirect(&description, IID_IFontDisp, object.receiveAny()));
    return object;
}

} // namespace pixmo::com
