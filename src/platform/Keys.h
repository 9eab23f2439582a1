// Keys as the forms' handlers get them: virtual-key codes and shift states.
#pragma once

#include <cstdint>

namespace tellwick::key {

inline constexpr std::int32_t Back = 8;
inline constexpr std::int32_t Enter = 13;
inline constexpr std::int32_t Escape = 27;
inline constexpr std::int32_t PageUp = 33;
inline constexpr std::int32_t PageDown = 34;
inline constexpr std::int32_t Left = 37;
inline constexpr std::int32_t Up = 38;
inline constexpr std::int32_t Right = 39;
inline constexpr std::int32_t Down = 40;
inline constexpr std::int32_t F1 = 0x70;

inline constexpr std::int32_t Shift = 1;
inline constexpr std::int32_t Control = 2;
inline constexpr std::int32_t Alt = 4;

}  // namespace tellwick::key
