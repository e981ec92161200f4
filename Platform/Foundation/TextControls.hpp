// Invisible characters that control how text is displayed.
#pragma once

namespace orivanta::foundation {

/// Whether a character changes the direction of the surrounding text, or is a byte order mark. Text
/// from untrusted sources is safe to display without such characters.
constexpr bool isInvisibleControl(char32_t point) {
  return point == 0x061C || point == 0x200E || point == 0x200F || point == 0xFEFF ||
         (point >= 0x202A && point <= 0x202E) || (point >= 0x2066 && point <= 0x2069);
}

/// Whether a character ends a line or a paragraph, or controls a terminal (C0, DEL and C1).
constexpr bool isTerminalControl(char32_t point) {
  return point < 0x20 || (point >= 0x7F && point < 0xA0) || point == 0x2028 || point == 0x2029;
}

}  // namespace orivanta::foundation
