// The search against the direction of the ways: from where a stop can be reached.
#pragma once

#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

/// The result of `Guide::leadToAny`.
std::vector<bool> leadToAny(const GuideData& data, const std::vector<Stop>& from,
                            const std::vector<Stop>& to, const Profile& profile,
                            const Closures& closures, const foundation::CancellationToken& token);

}  // namespace orivanta::guidance
