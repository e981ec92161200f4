#include "Source/UI/Display/Styled/LogoLook.hpp"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace orivanta {

namespace {

using graphics::Color;

// The colors of the logo; the rest is white.
constexpr Color ink{17 / 255.0F, 28 / 255.0F, 46 / 255.0F};
constexpr Color accent{243 / 255.0F, 148 / 255.0F, 10 / 255.0F};

struct Shares {
  float ink = 0;
  float accent = 0;
};

// Splits a color into shares of white, ink and accent, by its red and blue components.
Shares sharesOf(float red, float blue) {
  constexpr float a = 1 - ink.red;
  constexpr float b = 1 - accent.red;
  constexpr float c = 1 - ink.blue;
  constexpr float d = 1 - accent.blue;
  constexpr float determinant = a * d - b * c;
  const float inkShare = std::clamp(((1 - red) * d - (1 - blue) * b) / determinant, 0.0F, 1.0F);
  const float accentShare = std::clamp(((1 - blue) * a - (1 - red) * c) / determinant, 0.0F, 1.0F);
  return {inkShare, std::min(accentShare, 1 - inkShare)};
}

std::shared_ptr<const graphics::Image> colored(const graphics::Image& logo, const MapTheme& theme) {
  std::vector<std::uint8_t> pixels(logo.pixels().begin(), logo.pixels().end());
  const Color& text = theme.colors.text;
  const Color& ground = theme.colors.halo;
  for (std::size_t i = 0; i < pixels.size(); i += 4) {
    const Shares shares =
        sharesOf(static_cast<float>(pixels[i]) / 255, static_cast<float>(pixels[i + 2]) / 255);
    const auto mix = [&](float ofText, float ofAccent, float ofGround) {
      const float mixed = ofText * shares.ink + ofAccent * shares.accent +
                          ofGround * (1 - shares.ink - shares.accent);
      return static_cast<std::uint8_t>(std::lround(std::clamp(mixed, 0.0F, 1.0F) * 255));
    };
    pixels[i] = mix(text.red, accent.red, ground.red);
    pixels[i + 1] = mix(text.green, accent.green, ground.green);
    pixels[i + 2] = mix(text.blue, accent.blue, ground.blue);
  }
  return graphics::Image::make(logo.width(), logo.height(), std::move(pixels), logo.scale());
}

}  // namespace

void LogoLook::apply(const std::shared_ptr<view::ImageView>& logo, const MapTheme& theme) {
  restore();
  if (!logo || !logo->image()) return;
  logo_ = logo;
  former_ = logo->image();
  own_ = colored(*former_, theme);
  logo->setImage(own_);
}

void LogoLook::restore() {
  if (const auto logo = logo_.lock(); logo && logo->image() == own_) logo->setImage(former_);
  logo_.reset();
  former_ = own_ = nullptr;
}

}  // namespace orivanta
