// The results of the functions that the page calls.
#pragma once

#include <boost/json/value.hpp>
#include <cstddef>
#include <string>
#include <vector>

namespace orivanta::web {

/// Keeps a text until the next result and returns its address.
const char* textResult(std::string text);

/// Keeps a JSON value as a text until the next result and returns its address.
const char* jsonResult(const boost::json::value& value);

/// Keeps numbers until the next result and returns their address.
const double* numbersResult(std::vector<double> numbers);

/// Returns the length of the last result: bytes or numbers.
std::size_t resultLength();

}  // namespace orivanta::web
