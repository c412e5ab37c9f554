#include "faces/qt/windows/virtualkeys.h"

#include "core/base/virtualkeys.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pixmo::qt {

namespace {

using Pair = std::pair<int, int16_t>;

/// Keys that are neither letters, digits nor function keys.
constexpr std::array<Pair, 49> Keys = {{
    {Qt::Key_Backspace, 0x08}, {Qt::Key_Tab, 0x09},          {Qt::Key_Backtab, 0x09},
    {Qt::Key_Clear, 0x0C},     {Qt::Key_Return, 0x0D},       {Qt::Key_Enter, 0x0D},
    {Qt::Key_Shift, 0x10},     {Qt::Key_Control, 0x11},      {Qt::Key_Alt, 0x12},
    {Qt::Key_Pause, 0x13},     {Qt::Key_CapsLock, 0x14},     {Qt::Key_Escape, 0x1B},
    {Qt::Key_Space, 0x20},     {Qt::Key_PageUp, 0x21},       {Qt::Key_PageDown, 0x22},
    {Qt::Key_End, 0x23},       {Qt::Key_Home, 0x24},         {Qt::Key_Left, 0x25},
    {Qt::Key_Up, 0x26},        {Qt::Key_Right, 0x27},        {Qt::Key_Down, 0x28},
    {Qt::Key_Select, 0x29},    {Qt::Key_Print, 0x2C},        {Qt::Key_Insert, 0x2D},
    {Qt::Key_Delete, 0x2E},    {Qt::Key_Help, 0x2F},         {Qt::Key_Meta, 0x5B},
    {Qt::Key_Menu, 0x5D},      {Qt::Key_NumLock, 0x90},      {Qt::Key_ScrollLock, 0x91},
    {Qt::Key_Semicolon, 0xBA}, {Qt::Key_Colon, 0xBA},        {Qt::Key_Equal, 0xBB},
    {Qt::Key_Plus, 0xBB},      {Qt::Key_Comma, 0xBC},        {Qt::Key_Less, 0xBC},
    {Qt::Key_Minus, 0xBD},     {Qt::Key_Underscore, 0xBD},   {Qt::Key_Period, 0xBE},
    {Qt::Key_Greater, 0xBE},   {Qt::Key_Slash, 0xBF},        {Qt::Key_Question, 0xBF},
    {Qt::Key_QuoteLeft, 0xC0}, {Qt::Key_BracketLeft, 0xDB},  {Qt::Key_Backslash, 0xDC},
    {Qt::Key_Bar, 0xDC},       {Qt::Key_BracketRight, 0xDD}, {Qt::Key_Apostrophe, 0xDE},
    {Qt::Key_QuoteDbl, 0xDE},
}};

/// Keys of the number pad that have a code of their own.
constexpr std::array<Pair, 6> PadKeys = {{
    {Qt::Key_Asterisk, 0x6A},
    {Qt::Key_Plus, 0x6B},
    {Qt::Key_Minus, 0x6D},
    {Qt::Key_Period, 0x6E},
    {Qt::Key_Comma, 0x6E},
    {Qt::Key_Slash, 0x6F},
}};

template <typename Table>
int16_t find(const Table& table, int key) {
    const auto found =
        std::find_if(table.begin(), table.end(), [key](const Pair& pair) { return pair.first == key; });
    return found == table.end() ? int16_t{0} : found->second;
}

int16_t offset(int key, int first, int code) {
    return static_cast<int16_t>(code + key - first);
}

} // namespace

int16_t virtualKey(const QKeyEvent& event) {
    const int key = event.key();
    const bool onPad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return offset(key, Qt::Key_A, 'A');
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return offset(key, Qt::Key_0, onPad ? 0x60 : '0');
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24)
        return offset(key, Qt::Key_F1, 0x70);
    const int16_t padKey = onPad ? find(PadKeys, key) : int16_t{0};
    return padKey != 0 ? padKey : find(Keys, key);
}

int16_t shiftState(Qt::KeyboardModifiers modifiers) {
    return shift_key::state(modifiers.testFlag(Qt::ShiftModifier), modifiers.testFlag(Qt::ControlModifier),
                            modifiers.testFlag(Qt::AltModifier));
}

int32_t buttonCode(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return mouse_button::Left;
    case Qt::RightButton:
        return mouse_button::Right;
    case Qt::MiddleButton:
        return mouse_button::Middle;
    default:
        return 0;
    }
}

} // namespace pixmo::qt
