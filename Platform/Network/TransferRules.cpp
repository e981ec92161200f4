#include "Platform/Network/TransferRules.hpp"

#include <strings.h>

#include <utility>

namespace orivanta::network {

namespace {

constexpr int insecureStepCode = 3;
constexpr int incompleteAnswerCode = 4;

bool hasScheme(const foundation::Url& url, const char* scheme) {
  return strcasecmp(url.scheme().c_str(), scheme) == 0;
}

}  // namespace

bool leavesHttps(const foundation::Url& from, const foundation::Url& to) {
  return hasScheme(from, "https") && hasScheme(to, "http");
}

foundation::Error insecureStep(const foundation::Url& from, const foundation::Url& to) {
  return {"http", insecureStepCode,
          from.withoutCredentials().absoluteString() + " leads to " +
              to.withoutCredentials().absoluteString() + ", which is not encrypted"};
}

bool isInsecureStep(const foundation::Error& error) {
  return error.domain == "http" && error.code == insecureStepCode;
}

foundation::Error incompleteAnswer(std::string description) {
  return {"http", incompleteAnswerCode, std::move(description)};
}

bool isIncompleteAnswer(const foundation::Error& error) {
  return error.domain == "http" && error.code == incompleteAnswerCode;
}

}  // namespace orivanta::network
