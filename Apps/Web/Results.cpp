#include "Apps/Web/Results.hpp"

#include <boost/json/serialize.hpp>
#include <utility>

namespace orivanta::web {

namespace {

std::size_t length = 0;

}  // namespace

const char* textResult(std::string text) {
  static std::string kept;
  kept = std::move(text);
  length = kept.size();
  return kept.data();
}

const char* jsonResult(const boost::json::value& value) {
  return textResult(boost::json::serialize(value));
}

const double* numbersResult(std::vector<double> numbers) {
  static std::vector<double> kept;
  kept = std::move(numbers);
  length = kept.size();
  return kept.data();
}

std::size_t resultLength() { return length; }

}  // namespace orivanta::web
