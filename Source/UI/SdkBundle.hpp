// The resources that are embedded in the library.
// Private header.
#pragma once

#include "Platform/Foundation/ResourceBundle.hpp"

namespace orivanta {

/// Returns the bundle with the logo, the route arrow and the other resources of the map view. The
/// first call registers it as "org.orivanta.sdk". The build generates it from Resources/Sdk. It is
/// valid until the process ends. Any thread.
const foundation::ResourceBundle& sdkBundle();

}  // namespace orivanta
