// What a traveler can and wants to use: the settings of a route search.
#pragma once

#include <string_view>

#include "Platform/Foundation/Export.hpp"

namespace orivanta::guidance {

/// Whether a route may use something.
enum class Use {
  forbidden,  ///< never
  avoided,    ///< only if the detour would be long: 60 s per ride, twice the time outdoors
  allowed     ///< without restriction
};

/// The kind of a connector, by the `type` of its record.
enum class ConnectorKind {
  lift,       ///< "elevator" or "lift"
  escalator,  ///< "escalator"
  stairs,     ///< "stairs"
  ramp,       ///< "ramp"
  other       ///< any other type
};

/// Returns the kind of a connector whose record has this `type`.
ORIVANTA_API ConnectorKind connectorKindOf(std::string_view type);

/// The abilities and preferences of a traveler. A value: copy it and change its fields.
struct ORIVANTA_API Profile {
  double walkingMetersPerSecond = 1.2;  ///< must be finite and positive; otherwise 1.2 is used
  Use stairs = Use::allowed;            ///< connectors of kind `stairs`
  Use escalators = Use::allowed;        ///< connectors of kind `escalator`
  Use lifts = Use::allowed;             ///< connectors of kind `lift`
  Use ramps = Use::allowed;             ///< connectors of kind `ramp`
  Use others = Use::allowed;            ///< connectors of kind `other`
  Use outdoors = Use::allowed;          ///< maps whose record has `"outdoor": true`
  bool onlyAccessible = false;          ///< excludes connectors with `accessible` false

  /// Returns the profile without restrictions.
  static Profile fastest() { return {}; }

  /// Returns a profile without stairs, escalators and inaccessible connectors, at 1.0 m/s.
  static Profile stepFree();

  /// Returns a profile that avoids stairs and escalators but uses them if necessary.
  static Profile preferLift();

  /// Returns a profile that excludes escalators only.
  static Profile noEscalator();

  /// Returns whether connectors of a kind may be used.
  Use use(ConnectorKind kind) const;

  friend bool operator==(const Profile&, const Profile&) = default;
};

}  // namespace orivanta::guidance
