// The query of a request for a route.
#pragma once

#include "Apps/Planning/PlanQuery.hpp"
#include "Apps/Server/UrlText.hpp"

namespace orivanta::server {

/// Reads the parameters of /1/route, see Docs/RouteApi.md. Other parameters are ignored. Throws
/// `planning::QueryError` if a value is malformed or longer than 1,000 bytes, or if there are too
/// many: 1,000 of `closed`, and 32 each of `from` and `to`.
planning::PlanQuery routeQueryOf(const Target& target);

}  // namespace orivanta::server
