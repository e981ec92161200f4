// The profiles that the user can choose from.
#pragma once

#include <array>
#include <cstddef>

#include "Source/Guidance/Profile.hpp"

namespace orivanta::viewer {

/// A profile with the key of its title.
struct ProfileChoice {
  const char* titleKey;  ///< see `guidance::InterfaceTexts`
  guidance::Profile (*make)();
};

/// The choices, in the order in which they are shown.
inline constexpr std::array profileChoices{
    ProfileChoice{"interface.profile.fastest", &guidance::Profile::fastest},
    ProfileChoice{"interface.profile.stepFree", &guidance::Profile::stepFree},
    ProfileChoice{"interface.profile.preferElevator", &guidance::Profile::preferLift},
    ProfileChoice{"interface.profile.noEscalator", &guidance::Profile::noEscalator}};

inline constexpr std::size_t fastestChoice = 0;
inline constexpr std::size_t preferElevatorChoice = 2;  ///< forbids nothing

}  // namespace orivanta::viewer
