#include "Apps/Viewer/Theme.hpp"

namespace orivanta::viewer::theme {

namespace {

constexpr Color hex(unsigned value) {
  return {static_cast<float>(value >> 16U & 0xFFU) / 255.0F,
          static_cast<float>(value >> 8U & 0xFFU) / 255.0F,
          static_cast<float>(value & 0xFFU) / 255.0F};
}

constexpr Colors light{
    .accent = hex(0x1F4DA7),
    .accentTint = hex(0xE9EFFA),
    .ink = hex(0x202837),
    .faint = hex(0x56606F),
    .hairline = hex(0xDCE1E8),
    .border = hex(0x7A8697),
    .pressed = hex(0xF1F4F9),
    .paper = hex(0xFFFFFF),
    .backdrop = hex(0xF1F3F5),
    .warning = hex(0xB3261E),
    .positive = hex(0x14694A),
    .start = hex(0x14694A),
    .end = hex(0xB3261E),
    .stop = hex(0x8A5300),
};

constexpr Colors dark{
    .accent = hex(0x8AB4FF),
    .accentTint = hex(0x24344F),
    .ink = hex(0xF3F5F8),
    .faint = hex(0xB4BECB),
    .hairline = hex(0x303A48),
    .border = hex(0x7F8C9D),
    .pressed = hex(0x263140),
    .paper = hex(0x1A212B),
    .backdrop = hex(0x0B0E12),
    .warning = hex(0xFF9A91),
    .positive = hex(0x5ED6A0),
    .start = hex(0x5ED6A0),
    .end = hex(0xFF9A91),
    .stop = hex(0xF0B04A),
};

constexpr Colors lightContrast{
    .accent = hex(0x002C8A),
    .accentTint = hex(0xDCE6FF),
    .ink = hex(0x000000),
    .faint = hex(0x1C1C1C),
    .hairline = hex(0x000000),
    .border = hex(0x000000),
    .pressed = hex(0xE4E4E4),
    .paper = hex(0xFFFFFF),
    .backdrop = hex(0xFFFFFF),
    .warning = hex(0x8A0000),
    .positive = hex(0x00452A),
    .start = hex(0x00452A),
    .end = hex(0x8A0000),
    .stop = hex(0x553300),
};

constexpr Colors darkContrast{
    .accent = hex(0xFFE34D),
    .accentTint = hex(0x3A3300),
    .ink = hex(0xFFFFFF),
    .faint = hex(0xF0F0F0),
    .hairline = hex(0xFFFFFF),
    .border = hex(0xFFFFFF),
    .pressed = hex(0x333333),
    .paper = hex(0x000000),
    .backdrop = hex(0x000000),
    .warning = hex(0xFFB3AC),
    .positive = hex(0x7CF2BC),
    .start = hex(0x7CF2BC),
    .end = hex(0xFFB3AC),
    .stop = hex(0xFFC96B),
};

struct State {
  Look look;
  unsigned generation = 1;
};

State& state() {
  static State value;
  return value;
}

}  // namespace

const Colors& colorsOf(const Look& look) {
  if (look.hasHighContrast) return look.isDark ? darkContrast : lightContrast;
  return look.isDark ? dark : light;
}

void use(const Look& look) {
  if (look == state().look) return;
  state().look = look;
  ++state().generation;
}

const Look& look() { return state().look; }

unsigned generation() { return state().generation; }

Tone::operator Color() const { return colorsOf(look()).*member_; }

double withText(double points) { return points * look().textScale; }

double withIcons(double points) { return points * (1 + look().textScale) / 2; }

double control() { return withIcons(controlSize); }

}  // namespace orivanta::viewer::theme
