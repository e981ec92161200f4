// Lookup of records by identifier. A map of texts in a tree compares them often, and an import of
// several hundred thousand records spends much of its time on that.
#pragma once

#include <boost/unordered/unordered_flat_map.hpp>
#include <boost/unordered/unordered_flat_set.hpp>
#include <string_view>

namespace orivanta::importer {

/// Values by identifier, in no order. The texts belong to records that must outlive the map and
/// stay where they are.
template <class Value>
using IdMap = boost::unordered_flat_map<std::string_view, Value>;

/// The same without values.
using IdSet = boost::unordered_flat_set<std::string_view>;

}  // namespace orivanta::importer
