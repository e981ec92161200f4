// The user name and password that a server asks for.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orivanta::server {

/// HTTP Basic credentials (RFC 7617).
class Credentials {
 public:
  Credentials(std::string_view username, std::string_view password);

  /// Whether an Authorization header carries them, in a time that does not tell how much of it
  /// fits.
  bool admit(std::string_view authorization) const;

 private:
  std::string encoded_;
};

}  // namespace orivanta::server
