#pragma once

#include <cstdint>

/// States of the keyboard, summed.
namespace pixmo::shift_key {

inline constexpr int16_t Shift = 1;
inline constexpr int16_t Ctrl = 2;
inline constexpr int16_t Alt = 4;

constexpr int16_t state(bool shift, bool ctrl, bool alt) {
    return static_cast<int16_t>((shift ? Shift : 0) | (ctrl ? Ctrl : 0) | (alt ? Alt : 0));
}

} // namespace pixmo::shift_key

/// Buttons of the mouse, by their code.
namespace pixmo::mouse_button {

inline constexpr int32_t Left = 1;
inline constexpr int32_t Right = 2;
inline constexpr int32_t Middle = 4;

} // namespace pixmo::mouse_button

/// Virtual-key codes as Windows numbers them, which is how every face tells the core of keys. Letters and
/// digits have the codes of their capital ASCII characters.
namespace pixmo::key {

inline constexpr int16_t Enter = 0x0D;
inline constexpr int16_t Escape = 0x1B;
inline constexpr int16_t Space = 0x20;
inline constexpr int16_t PageUp = 0x21;
inline constexpr int16_t PageDown = 0x22;
inline constexpr int16_t End = 0x23;
inline constexpr int16_t Home = 0x24;
inline constexpr int16_t Left = 0x25;
inline constexpr int16_t Up = 0x26;
inline constexpr int16_t Right = 0x27;
inline constexpr int16_t Down = 0x28;
inline constexpr int16_t PadPlus = 0x6B;
inline constexpr int16_t PadMinus = 0x6D;
inline constexpr int16_t Plus = 0xBB;
inline constexpr int16_t Minus = 0xBD;

} // namespace pixmo::key
