// The appearance of the surface of a geometry.
// Public header.
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

/// Determines what an image shows outside of the texture coordinates from 0 to 1.
enum class WrapMode {
  clamp,  ///< the edge of the image
  repeat  ///< the image, repeated
};

/// One color or one image.
using Contents = std::variant<graphics::Color, std::shared_ptr<const graphics::Image>>;

/// A material property. `contentsTransform` is applied to the texture coordinates (u, v, 0, 1).
struct MaterialProperty {
  Contents contents = graphics::colors::white;  ///< a color or an image
  graphics::Matrix4 contentsTransform{1.0F};    ///< of the texture coordinates
  WrapMode wrapS = WrapMode::clamp;             ///< horizontally
  WrapMode wrapT = WrapMode::clamp;             ///< vertically
};

/// A material, which several geometries may share. Each function is safe to call from any thread.
/// Hold a `graphics::Transaction` around changes that should appear in the same frame.
class ORIVANTA_API Material {
 public:
  static std::shared_ptr<Material> make();                  ///< white
  static std::shared_ptr<Material> make(Contents diffuse);  ///< with a color or an image

  std::optional<std::string> name() const;        ///< none until set
  void setName(std::optional<std::string> name);  ///< names need not be unique

  MaterialProperty diffuse() const;            ///< the appearance in full light
  void setDiffuse(MaterialProperty diffuse);   ///< replaces contents, transform and wrapping
  void setDiffuseContents(Contents contents);  ///< keeps transform and wrapping

  /// Returns the opacity, from 0 (invisible) to 1. The alpha of the contents is multiplied by it.
  float opacity() const;
  void setOpacity(float opacity);  ///< see `opacity`

  /// Adds an animation of the key path "diffuse.contentsTransform". It replaces an existing
  /// animation with the same key; null only removes that animation. An animation with another key
  /// path has no effect on the material's appearance.
  void addAnimation(std::shared_ptr<const KeyframeAnimation> animation, std::string key);

  /// Returns the animation with a key, or null if there is none.
  std::shared_ptr<const KeyframeAnimation> animation(std::string_view key) const;

  /// Returns whether an animation was still running at the time of the last call of
  /// `presentedDiffuse`.
  bool isAnimating() const;

  /// Returns the diffuse property with the animations applied. `time`: the frame's time in seconds.
  /// An animation begins at the time of the first call after it was added.
  MaterialProperty presentedDiffuse(double time);

 private:
  struct RunningAnimation {
    std::string key;
    std::shared_ptr<const KeyframeAnimation> animation;
    std::optional<double> beginTime;
    double elapsed = 0;  // seconds, when last presented
  };

  Material() = default;

  std::optional<std::string> name_;
  MaterialProperty diffuse_;
  float opacity_ = 1.0F;
  std::vector<RunningAnimation> animations_;
};

}  // namespace orivanta::scene
