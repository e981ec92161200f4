#include "Platform/Scene/Material.hpp"

#include <algorithm>
#include <utility>

#include "Platform/Graphics/Guarded.hpp"
#include "Platform/Scene/KeyframeAnimation.hpp"

namespace orivanta::scene {

using graphics::assign;
using graphics::read;
using graphics::Transaction;

std::shared_ptr<Material> Material::make() { return std::shared_ptr<Material>(new Material); }

std::shared_ptr<Material> Material::make(Contents diffuse) {
  auto material = make();
  material->diffuse_.contents = std::move(diffuse);
  return material;
}

std::optional<std::string> Material::name() const { return read(name_); }
void Material::setName(std::optional<std::string> name) { assign(name_, name); }

MaterialProperty Material::diffuse() const { return read(diffuse_); }
void Material::setDiffuse(MaterialProperty diffuse) { assign(diffuse_, diffuse); }
void Material::setDiffuseContents(Contents contents) { assign(diffuse_.contents, contents); }

float Material::opacity() const { return read(opacity_); }
void Material::setOpacity(float opacity) { assign(opacity_, opacity); }

void Material::addAnimation(std::shared_ptr<const KeyframeAnimation> animation, std::string key) {
  const Transaction transaction;
  const auto same = [&](const auto& each) { return each.key == key; };
  animations_.erase(std::remove_if(animations_.begin(), animations_.end(), same),
                    animations_.end());
  if (animation) animations_.push_back({std::move(key), std::move(animation), std::nullopt, 0});
  graphics::noteChange();
}

std::shared_ptr<const KeyframeAnimation> Material::animation(std::string_view key) const {
  const Transaction transaction;
  const auto found = std::find_if(animations_.begin(), animations_.end(),
                                  [&](const auto& each) { return each.key == key; });
  return found == animations_.end() ? nullptr : found->animation;
}

bool Material::isAnimating() const {
  const Transaction transaction;
  return std::any_of(animations_.begin(), animations_.end(),
                     [](const auto& each) { return each.animation->isRunning(each.elapsed); });
}

MaterialProperty Material::presentedDiffuse(double time) {
  const Transaction transaction;
  MaterialProperty presented = diffuse_;
  for (RunningAnimation& each : animations_) {
    if (each.animation->keyPath != "diffuse.contentsTransform") continue;
    if (!each.beginTime) each.beginTime = time;
    each.elapsed = time - *each.beginTime;
    presented.contentsTransform = each.animation->value(each.elapsed, presented.contentsTransform);
  }
  return presented;
}

}  // namespace orivanta::scene
