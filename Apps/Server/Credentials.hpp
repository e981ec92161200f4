// The user name and password that clients must send.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orivanta::server {

/// HTTP Basic credentials (RFC 7617).
class Credentials {
 public:
  Credentials(std::string_view username, std::string_view password);

  /// Whether an Authorization header contains these credentials. The time taken does not reveal how
  /// many characters match.
  bool admit(std::string_view authorization) const;

 private:
  std::string encoded_;
};

}  // namespace orivanta::server
