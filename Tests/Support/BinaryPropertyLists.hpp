// Binary property lists for tests to read.
#pragma once

#include <string>

namespace orivanta::test {

/// The property list written in XML in the binary format.
std::string binaryPropertyList(const std::string& xml);

}  // namespace orivanta::test
