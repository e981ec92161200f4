// Decompresses received bodies in gzip format (RFC 1952).
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta::network {

/// Decompresses one or more gzip members. Returns nothing if they are damaged, incomplete or larger
/// than `largestBytes` when decompressed. If `share` is given, the bytes are charged to it; throws
/// `BudgetExceeded` before the budget is exceeded.
std::optional<std::string> gunzipped(std::string_view compressed, std::size_t largestBytes,
                                     foundation::BudgetShare* share = nullptr);

}  // namespace orivanta::network
