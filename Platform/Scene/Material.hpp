// How the surface of a geometry looks.
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

/// What an image shows outside of the texture coordinates from 0 to 1.
enum class WrapMode {
  clamp,  ///< its edge
  repeat  ///< itself again
};

/// One color or one image.
using Contents = std::variant<graphics::Color, std::shared_ptr<const graphics::Image>>;

/// What a material property holds. `contentsTransform` is applied to the texture coordinates (u, v,
/// 0, 1).
struct MaterialProperty {
  Contents contents = graphics::colors::white;  ///< a color or an image
  graphics::Matrix4 contentsTransform{1.0F};    ///< of the texture coordinates
  WrapMode wrapS = WrapMode::clamp;             ///< to the left and to the right
  WrapMode wrapT = WrapMode::clamp;             ///< below and above
};

/// Shared by handle between geometries. Safe from any thread, one operation at a time; hold a
/// `graphics::Transaction` around changes that belong together.
class ORIVANTA_API Material {
 public:
  static std::shared_ptr<Material> make();                  ///< white
  static std::shared_ptr<Material> make(Contents diffuse);  ///< of a color or an image

  std::optional<std::string> name() const;        ///< none until set
  void setName(std::optional<std::string> name);  ///< names need not be unique

  MaterialProperty diffuse() const;            ///< what the surface shows in full light
  void setDiffuse(MaterialProperty diffuse);   ///< replaces contents, transform and wrapping
  void setDiffuseContents(Contents contents);  ///< leaves transform and wrapping alone

  /// From 0, not seen, to 1; multiplies the alpha of the contents.
  float opacity() const;
  void setOpacity(float opacity);  ///< see `opacity`

  /// An animation of the key path "diffuse.contentsTransform". Another under the same key takes
  /// the place of the first, a null one only removes it; one of another key path changes nothing.
  void addAnimation(std::shared_ptr<const KeyframeAnimation> animation, std::string key);

  /// The animation under a key; null if there is none.
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
