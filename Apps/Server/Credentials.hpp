// The user name and password that clients must send.
#pragma once

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

  /// Stands for the credentials in the URLs of files, because clients request those without an
  /// account. The same for the same credentials. Whoever has it can try passwords against it.
  const std::string& fileKey() const { return fileKey_; }

  /// Whether this is the key.
  bool admitFile(std::string_view key) const;

 private:
  std::string encoded_;
  std::string fileKey_;
};

}  // namespace orivanta::server
