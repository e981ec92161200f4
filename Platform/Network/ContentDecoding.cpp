#include "Platform/Network/ContentDecoding.hpp"

#include <new>
#include <utility>

#include "Platform/Network/BuiltInTransport.hpp"

namespace orivanta::network {

UrlResult decoded(UrlResult result) try {
  if (!result) return result;
  if (auto done = decodeBody(*result); !done) return foundation::failure(std::move(done).error());
  return result;
} catch (const std::bad_alloc& failure) {
  return foundation::failure(foundation::memoryError(failure));
}

}  // namespace orivanta::network
