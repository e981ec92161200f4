// Answers the requests of a load with texts in memory.
#pragma once

#include <map>
#include <string>

#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::web {

/// The records of a venue as JSON texts. A request gets the text whose name is the last part of its
/// path, or status 404. A load asks for each text once, so it is released then. One thread.
class PackageTransport : public network::UrlTransport {
 public:
  /// The texts by name, such as "node".
  using Texts = std::map<std::string, std::string, std::less<>>;

  /// Creates the transport of a package.
  explicit PackageTransport(Texts texts) : texts_(std::move(texts)) {}

  void start(network::UrlRequest request, Completion completed) override;

 private:
  Texts texts_;
};

}  // namespace orivanta::web
