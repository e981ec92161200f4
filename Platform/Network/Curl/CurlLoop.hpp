// A background thread that runs all transfers of the process through a libcurl multi handle, so
// that connections are reused and HTTP/2 requests share them.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_set>
#include <vector>

#include "Platform/Network/UrlTransport.hpp"

using CURL = void;
using CURLM = void;

namespace orivanta::network {

/// Exists until the process ends. Thread-safe.
class CurlLoop {
 public:
  static CurlLoop& shared();

  void start(UrlRequest request, UrlTransport::Completion completed);

 private:
  class Transfer;

  CurlLoop();
  void run();
  void startPending();
  void stopCanceled();
  void finishCompleted();
  CURL* takeHandle();
  void begin(const std::shared_ptr<Transfer>& transfer);
  void finish(Transfer& transfer, int outcome);
  void release(Transfer& transfer);
  void cancel(std::shared_ptr<Transfer> transfer);

  CURLM* multi_ = nullptr;

  std::mutex mutex_;                                 // guards the two lists below
  std::vector<std::shared_ptr<Transfer>> pending_;   // to be started
  std::vector<std::shared_ptr<Transfer>> canceled_;  // to be stopped

  // Used only by the loop's thread.
  std::unordered_set<std::shared_ptr<Transfer>> running_;
  std::vector<CURL*> idleHandles_;
  std::thread thread_;
};

}  // namespace orivanta::network
