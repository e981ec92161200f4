// Boost.JSON as a single unit of the web port: the parts that the project uses. Its own conversion
// of doubles to texts has tables of 10 KB that do not compress, so that of fmt, which is linked
// anyway, replaces it.
#define BOOST_JSON_SOURCE
#include <fmt/format.h>

#include <boost/json/array.hpp>
#include <boost/json/detail/format.hpp>
#include <boost/json/detail/stack.hpp>
#include <boost/json/error.hpp>
#include <boost/json/kind.hpp>
#include <boost/json/monotonic_resource.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/serializer.hpp>
#include <boost/json/static_resource.hpp>
#include <boost/json/stream_parser.hpp>
#include <boost/json/string.hpp>
#include <boost/json/value.hpp>
#include <boost/json/value_ref.hpp>
#include <boost/json/value_stack.hpp>
#include <cmath>

// First, as in boost/json/src.hpp.
#include <boost/json/detail/config.hpp>

#include <boost/json/detail/impl/default_resource.ipp>
#include <boost/json/detail/impl/except.ipp>
#include <boost/json/detail/impl/shared_resource.ipp>
#include <boost/json/detail/impl/stack.ipp>
#include <boost/json/detail/impl/string_impl.ipp>
#include <boost/json/impl/array.ipp>
#include <boost/json/impl/error.ipp>
#include <boost/json/impl/kind.ipp>
#include <boost/json/impl/monotonic_resource.ipp>
#include <boost/json/impl/null_resource.ipp>
#include <boost/json/impl/object.ipp>
#include <boost/json/impl/serialize.ipp>
#include <boost/json/impl/serializer.ipp>
#include <boost/json/impl/static_resource.ipp>
#include <boost/json/impl/string.ipp>
#include <boost/json/impl/value.ipp>
#include <boost/json/impl/value_ref.ipp>
#include <boost/json/impl/value_stack.ipp>

BOOST_JSON_NS_BEGIN
namespace detail {

// The longest texts have less than 32 characters, which is what the serializer reserves.

unsigned format_uint64(char* text, std::uint64_t number) noexcept {
  return static_cast<unsigned>(fmt::format_to(text, "{}", number) - text);
}

unsigned format_int64(char* text, std::int64_t number) noexcept {
  return static_cast<unsigned>(fmt::format_to(text, "{}", number) - text);
}

unsigned format_double(char* text, double number) noexcept {
  if (std::isnan(number)) return static_cast<unsigned>(fmt::format_to(text, "null") - text);
  if (!std::isinf(number)) return static_cast<unsigned>(fmt::format_to(text, "{}", number) - text);
  return static_cast<unsigned>(fmt::format_to(text, "{}1e999", number < 0 ? "-" : "") - text);
}

}  // namespace detail
BOOST_JSON_NS_END
