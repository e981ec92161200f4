// The resources that lie inside the library.
// Private header.
#pragma once

#include "Platform/Foundation/ResourceBundle.hpp"

namespace orivanta {

/// The logo, the arrow of the routes and whatever else the map view brings along, known as
/// "org.orivanta.sdk" from the first call on. The build defines it from Resources/Sdk. Lives as
/// long as the process. Any thread.
const foundation::ResourceBundle& sdkBundle();

}  // namespace orivanta
