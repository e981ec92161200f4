// How the surface of a geometry looks.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Graphics/Color.hpp"
#include "Platform/Graphics/Image.hpp"
#include "Platform/Graphics/Vector.hpp"
#include "Platform/Scene/Fwd.hpp"

namespace orivanta::scene {

enum class WrapMode { clamp, repeat };

/// One color or one image.
using Contents = std::variant<graphics::Color, std::shared_ptr<const graphics::Image>>;

/// What a material property holds. `contentsTransform` is applied to the texture coordinates (u, v,
/// 0, 1).
struct MaterialProperty {
  Contents contents = graphics::colors::white;
  graphics::Matrix4 contentsTransform{1.0F};
  WrapMode wrapS = WrapMode::clamp;
  WrapMode wrapT = WrapMode::clamp;
};

/// Shared by handle between geometries. Safe from any thread, one operation at a time; hold a
/// `graphics::Transaction` around changes that belong together.
class ORIVANTA_API Material {
 public:
  static std::shared_ptr<Material> make();
  static std::shared_ptr<Material> make(Contents diffuse);

  std::optional<std::string> name() const;
  void setName(std::optional<std::string> name);

  MaterialProperty diffuse() const;
  void setDiffuse(MaterialProperty diffuse);
  void setDiffuseContents(Contents contents);  ///< leaves transform and wrapping alone

  /// From 0, not seen, to 1; multiplies the alpha of the contents.
  float opacity() const;
  void setOpacity(float opacity);

  /// An animation of the key path "diffuse.contentsTransform". Another under the same key takes
  /// the place of the first, a null one only removes it; one of another key path changes nothing.
  void addAnimation(std::shared_ptr<const KeyframeAnimation> animation, std::string key);
  std::shared_ptr<const KeyframeAnimation> animation(std::string_view key) const;

  /// Whether an animation had not ended at the time for which `presentedDiffuse` was last called.
  bool isAnimating() const;

  /// The diffuse property as the animations leave it at `time`, in seconds of the frames' clock.
  /// An animation begins at the first time at which it is asked for.
  MaterialProperty presentedDiffuse(double time);

 private:
  struct RunningAnimation {
    std::string key;
    std::shared_ptr<const KeyframeAnimation> animation;
    std::optional<double> beginTime;
    double elapsed = 0;  // when it was last presented
  };

  Material() = default;

  std::optional<std::string> name_;
  MaterialProperty diffuse_;
  float opacity_ = 1.0F;
  std::vector<RunningAnimation> animations_;
};

}  // namespace orivanta::scene
