#include "Apps/Package/Palette.hpp"

namespace orivanta::package {

Color fillOf(PlaceKind kind) {
  switch (kind) {
    case PlaceKind::shop:
      return color(0xEFE5C3);
    case PlaceKind::food:
      return color(0xE1A375);
    case PlaceKind::room:
      return color(0xDCCFC8);
    case PlaceKind::office:
      return color(0xBFCBD8);
    case PlaceKind::service:
      return color(0xDDCFFD);
    case PlaceKind::information:
      return color(0x8AB3D4);
    case PlaceKind::toilet:
      return color(0xCAF2FB);
    case PlaceKind::care:
      return color(0xE8A2BC);
    case PlaceKind::transit:
      return color(0xCEDD94);
    case PlaceKind::vertical:
      return color(0x8395C6);
    case PlaceKind::parking:
      return color(0xB0B9FF);
    case PlaceKind::leisure:
      return color(0x62C1B8);
    case PlaceKind::green:
      return color(0x9DBA9A);
    case PlaceKind::other:
      break;
  }
  return color(0xD5D8DB);
}

}  // namespace orivanta::package
