// The light and the background of styled maps.
#pragma once

#include <memory>
#include <optional>

#include "Platform/Graphics/Color.hpp"
#include "Platform/Scene/Fwd.hpp"
#include "Source/UI/Style/MapTheme.hpp"

namespace orivanta {

class MapView;

/// Replaces the light and the background of a map view. Values that others have changed in the
/// meantime are not restored. Main thread.
class SceneLook {
 public:
  /// `sun` is the node of the light that casts shadows. It is null if there is no scene; then only
  /// the background changes, as without `withLights`. Restores the lights of the previous call
  /// first.
  void apply(MapView& view, const std::shared_ptr<scene::Node>& sun, const MapTheme& theme,
             bool withLights = true);

  void restore(MapView& view);

  /// Sets how strong the shadows are: 1 as styled, which is the default, 0 without any.
  void setShadows(double share);

 private:
  void darken(scene::Light& sun);
  void lighten(scene::Light& sun);

  /// A value that is replaced.
  template <class Value>
  class Replaced {
   public:
    Value replace(const Value& former, const Value& own) {
      former_.emplace(former);
      own_ = own;
      return own;
    }
    /// Returns the former value if `now` is the own one.
    Value restored(const Value& now) {
      const bool isOwn = former_ && now == own_;
      const Value result = isOwn ? *former_ : now;
      former_.reset();
      return result;
    }

   private:
    std::optional<Value> former_;  // nothing if not replaced
    Value own_{};
  };

  std::weak_ptr<scene::Light> ambientLight_;
  std::weak_ptr<scene::Light> sunLight_;
  Replaced<graphics::Color> ambient_;
  Replaced<double> shadowStrength_;
  Replaced<bool> castsShadow_;
  double shadows_ = 1;
  Replaced<std::optional<graphics::Color>> background_;
};

}  // namespace orivanta
