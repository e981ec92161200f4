// The transport included in the library. The linked adapter defines it.
#pragma once

#include <memory>

#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Always returns the same object. Thread-safe.
std::shared_ptr<UrlTransport> builtInTransport();

}  // namespace orivanta::network
