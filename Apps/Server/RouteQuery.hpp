// The query of a request for a route.
#pragma once

#include <cstddef>

#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Server/UrlText.hpp"

namespace orivanta::server {

/// The most stops of a route that the server computes, in the given or in the best order: the
/// start, the stops in between and the destination.
constexpr std::size_t mostRouteStops = 12;

/// Reads the parameters of /1/route, see Docs/RouteApi.md. Other parameters are ignored. Throws
/// `planning::QueryError` if a value is malformed or longer than 1,000 bytes, or if there are more
/// than 1,000 of `closed`, more than 32 of `from` or `to`, or more than `mostRouteStops` stops.
planning::PlanQuery routeQueryOf(const Target& target);

}  // namespace orivanta::server
