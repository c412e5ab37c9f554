#include "faces/com/windows/dialogtemplate.h"

#include "faces/com/windows/dpi.h"
#include "faces/com/windows/fonts.h"

#include <cstring>

namespace pixmo::com {

namespace {

constexpr WORD Extended = 0xFFFF; ///< signature of the extended form
constexpr size_t CountAt = 16;    ///< where the number of controls stands
constexpr DWORD UsualStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN | DS_SETFONT | DS_MODALFRAME;

} // namespace

DialogTemplate::DialogTemplate(const std::wstring& title, short width, short height, DWORD style) {
    const LOGFONTW font = messageFont();
    const int points = MulDiv(-font.lfHeight, 72, dpiOf(nullptr));
    append(WORD{1});
    append(Extended);
    append(DWORD{0}); // help
    append(DWORD{0}); // extended style
    append(static_cast<DWORD>(UsualStyle | style));
    append(WORD{0}); // controls, counted as they are added
    append(short{0});
    append(short{0});
    append(width);
    append(height);
    append(WORD{0}); // no menu
    append(WORD{0}); // the usual class
    append(title);
    append(static_cast<WORD>(points));
    append(static_cast<WORD>(font.lfWeight));
    append(font.lfItalic);
    append(font.lfCharSet);
    append(std::wstring(font.lfFaceName));
}

template <typename Value>
void DialogTemplate::append(Value value) {
    words_.resize((bytes_ + sizeof value + 3) / 4);
    std::memcpy(reinterpret_cast<char*>(words_.data()) + bytes_, &value, sizeof value);
    bytes_ += sizeof value;
}

void DialogTemplate::append(const std::wstring& text) {
    for (const wchar_t character : text)
        append(character);
    append(L'\0');
}

void DialogTemplate::align() {
    bytes_ = (bytes_ + 3) / 4 * 4;
}

void DialogTemplate::add(const wchar_t* className, const std::wstring& text, WORD id, const Place& place,
                         DWORD style, DWORD exStyle) {
    align();
    append(DWORD{0}); // help
    append(exStyle);
    append(static_cast<DWORD>(WS_CHILD | WS_VISIBLE | style));
    append(place);
    append(DWORD{id});
    append(std::wstring(className));
    append(text);
    append(WORD{0}); // no further data
    WORD count = 0;
    char* const place16 = reinterpret_cast<char*>(words_.data()) + CountAt;
    std::memcpy(&count, place16, sizeof count);
    ++count;
    std::memcpy(place16, &count, sizeof count);
}

void DialogTemplate::addLabel(const std::wstring& text, WORD id, const Place& place, DWORD style) {
    add(L"STATIC", text, id, place, SS_LEFT | style);
}

void DialogTemplate::addButton(const std::wstring& text, WORD id, const Place& place, bool isDefault) {
    add(L"BUTTON", text, id, place,
        static_cast<DWORD>(WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON)));
}

const DLGTEMPLATE* DialogTemplate::data() const {
    return reinterpret_cast<const DLGTEMPLATE*>(words_.data());
}

} // namespace pixmo::com
