#include "Source/UI/SdkBundle.hpp"

#include "Platform/Foundation/Fatal.hpp"

namespace orivanta {

const foundation::ResourceBundle& sdkBundle() {
  static const foundation::ResourceBundle* const bundle =
      foundation::ResourceBundle::find("org.orivanta.sdk");
  return foundation::unwrap(bundle);
}

}  // namespace orivanta
