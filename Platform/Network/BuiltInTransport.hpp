// The transport that comes with the library. The adapter that is linked in defines it.
#pragma once

#include <memory>

#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// Always the same object. Any thread.
std::shared_ptr<UrlTransport> builtInTransport();

}  // namespace orivanta::network
