// The transport for requests that do not specify one.
// Public header.
#pragma once

#include <memory>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Returns the default transport. Unless it was replaced, it uses libcurl or, in a browser, the
/// browser's requests. Any thread.
ORIVANTA_API std::shared_ptr<UrlTransport> defaultTransport();

/// Replaces the default transport for requests that start later. Null restores the
/// original one. Any thread.
ORIVANTA_API void setDefaultTransport(std::shared_ptr<UrlTransport> transport);

/// Returns `transport`, or the default transport if it is null. Any thread.
ORIVANTA_API std::shared_ptr<UrlTransport> orDefault(std::shared_ptr<UrlTransport> transport);

}  // namespace orivanta::network
