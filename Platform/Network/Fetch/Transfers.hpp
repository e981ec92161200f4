// The requests that the page is carrying out.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "Platform/Network/UrlTransport.hpp"

namespace orivanta::network {

/// The code on the page identifies a request by a number. It writes what it receives to the memory
/// that `room` returns, and then calls `end`. Used on the page's thread only.
class Transfers {
 public:
  /// The texts of a response.
  enum class Part {
    head,    ///< the response's URL, then the name and the value of each field, each ended by '\0'
    body,    ///< decoded by the browser
    problem  ///< why there is no complete response, or is one of no use; empty otherwise
  };

  /// The limit of a body.
  static constexpr std::size_t largestBodyBytes = std::size_t{512} << 20U;

  /// Never destroyed.
  static Transfers& shared();

  /// Asks the page to carry out a request. The completion is called in a later turn of the page. It
  /// is discarded when the request is canceled.
  void start(UrlRequest request, UrlTransport::Completion completed);

  /// Asks the page to carry out a request before the call returns. The page stands still meanwhile.
  UrlResult load(UrlRequest request);

  /// Appends `count` bytes to a part of a response, and returns where to write them. Returns null
  /// if the request was canceled or has used too much memory; the page then ends it.
  char* room(int number, Part part, std::size_t count);

  /// Ends a request. Does nothing if it was canceled. The status is 0 if there is no complete
  /// response.
  void end(int number, int status);

 private:
  struct Transfer;

  int add(UrlRequest request, UrlTransport::Completion completed);
  void cancel(int number);

  std::map<int, std::shared_ptr<Transfer>> transfers_;
  int nextNumber_ = 1;
};

}  // namespace orivanta::network
