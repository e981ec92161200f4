// Undoing gzip compression (RFC 1952) of a received body.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "Platform/Foundation/MemoryBudget.hpp"

namespace orivanta::network {

/// The uncompressed bytes of one or more gzip members; nothing when they are damaged, end early or
/// would take more than `largestBytes`. They are counted in `share`, if there is one: throws
/// `BudgetExceeded` before they exceed its budget.
std::optional<std::string> gunzipped(std::string_view compressed, std::size_t largestBytes,
                                     foundation::BudgetShare* share = nullptr);

}  // namespace orivanta::network
