#include "Apps/Package/Palette.hpp"

namespace orivanta::package {

Color fillOf(PlaceKind kind) { return detail::exact(orivanta::fillOf(lightPalette, kind)); }

}  // namespace orivanta::package
