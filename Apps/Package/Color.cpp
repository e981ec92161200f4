#include "Apps/Package/Color.hpp"

namespace orivanta::package {

Color mixed(Color first, Color second, double share) {
  const auto between = [share](double a, double b) { return a + (b - a) * share; };
  return {between(first.red, second.red), between(first.green, second.green),
          between(first.blue, second.blue)};
}

}  // namespace orivanta::package
