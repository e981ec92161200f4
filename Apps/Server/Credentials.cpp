#include "Apps/Server/Credentials.hpp"

#include <algorithm>
#include <boost/algorithm/string/predicate.hpp>
#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "Platform/Foundation/Base64.hpp"

namespace orivanta::server {

namespace {

// Compares every byte of `given`, regardless of where the first difference is.
bool equalInConstantTime(std::string_view given, std::string_view expected) {
  unsigned difference = given.size() == expected.size() ? 0U : 1U;
  for (std::size_t position = 0; position < given.size(); ++position) {
    const char wanted = expected[position % expected.size()];
    difference |= static_cast<unsigned char>(given[position] ^ wanted);
  }
  return difference == 0;
}

}  // namespace

// The expected header always contains the colon, so it is never empty.
Credentials::Credentials(std::string_view username, std::string_view password)
    : encoded_(foundation::base64Encoded(std::string(username) + ':' + std::string(password))),
      fileKey_(to_string(boost::uuids::name_generator_sha1(boost::uuids::ns::url())(encoded_))) {}

bool Credentials::admit(std::string_view authorization) const {
  constexpr std::string_view scheme = "Basic ";
  if (!boost::algorithm::istarts_with(authorization, scheme)) return false;
  authorization.remove_prefix(scheme.size());
  authorization.remove_prefix(std::min(authorization.find_first_not_of(' '), authorization.size()));
  return equalInConstantTime(authorization, encoded_);
}

bool Credentials::admitFile(std::string_view key) const {
  return equalInConstantTime(key, fileKey_);
}

}  // namespace orivanta::server
