// The words for kinds and sides, in JSON and in the keys of messages.
#pragma once

#include <string>

#include "Platform/Foundation/Export.hpp"
#include "Source/Guidance/Plan.hpp"
#include "Source/Guidance/Profile.hpp"
#include "Source/Guidance/Step.hpp"

namespace orivanta::guidance {

/// Returns the name of the enumerator, such as "lift".
ORIVANTA_API std::string wordOf(ConnectorKind kind);

/// Returns the name of the enumerator, such as "onlyWithSteps".
ORIVANTA_API std::string wordOf(Problem::Kind kind);

/// Returns the name of the enumerator, such as "depart".
ORIVANTA_API std::string wordOf(Step::Kind kind);

/// Returns the name of the enumerator, such as "left", or an empty text for `Side::none`.
ORIVANTA_API std::string wordOf(Side side);

}  // namespace orivanta::guidance
