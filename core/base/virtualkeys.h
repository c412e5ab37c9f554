#pragma once

#include <cstdint>

/// Virtual-key codes as Windows numbers them, which is how every face tells the core of keys. Letters and
/// digits have the codes of their capital ASCII characters.
namespace pixmo::key {

inline constexpr int16_t Enter = 0x0D;
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
