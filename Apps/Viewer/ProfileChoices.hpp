// The profiles that the user can choose from.
#pragma once

#include <array>
#include <cstddef>

#include "Source/Guidance/Profile.hpp"

namespace orivanta::viewer {

/// A profile with its title.
struct ProfileChoice {
  const char* title;
  guidance::Profile (*make)();
};

/// The choices, in the order in which they are shown.
inline constexpr std::array profileChoices{
    ProfileChoice{"Fastest", &guidance::Profile::fastest},
    ProfileChoice{"Step-free", &guidance::Profile::stepFree},
    ProfileChoice{"Prefer lift", &guidance::Profile::preferLift},
    ProfileChoice{"No escalator", &guidance::Profile::noEscalator}};

inline constexpr std::size_t fastestChoice = 0;
inline constexpr std::size_t preferLiftChoice = 2;  ///< forbids nothing

}  // namespace orivanta::viewer
