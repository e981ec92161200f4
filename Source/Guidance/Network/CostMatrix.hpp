// The costs between many stops.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Platform/Foundation/Cancellation.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Source/Guidance/Network/GuideData.hpp"
#include "Source/Guidance/Request.hpp"

namespace orivanta::guidance {

/// The result of `Guide::costs`. Fails if the starts or the destinations have more nodes in total.
foundation::Result<std::vector<std::vector<std::int64_t>>> costMatrix(
    const GuideData& data, const std::vector<Stop>& from, const std::vector<Stop>& to,
    const Profile& profile, const Closures& closures, std::size_t mostNodes,
    const foundation::CancellationToken& token);

}  // namespace orivanta::guidance
