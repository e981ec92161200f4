// Reads the input as a collection of a venue package, as the server does, and cuts it into pages.
// Every page must be JSON with the expected records.
#include <algorithm>
#include <boost/json/array.hpp>
#include <boost/json/value.hpp>
#include <numeric>
#include <string_view>
#include <vector>

#include "Apps/Server/JsonText.hpp"
#include "Apps/Server/RecordCollection.hpp"
#include "Fuzz/Fuzzer.hpp"
#include "Source/Json/JsonDocument.hpp"

namespace orivanta::server {
namespace {

using Languages = std::vector<RecordCollection::Language>;

// Whether pages contain the record unchanged, regardless of the request.
bool isServedUnchanged(const boost::json::value& record) {
  const auto* const object = record.if_object();
  return object == nullptr || std::none_of(object->begin(), object->end(), [](const auto& member) {
           const auto key = member.key();
           return key == "names" || key == "logo" || key == "picture" || key == "cover-image" ||
                  key == "scene";
         });
}

void checkPage(const RecordCollection& records, const boost::json::array& source, std::size_t first,
               std::size_t count, const Languages& preferred) {
  const auto page = parseJsonDocument(records.page(first, count, "http://host:80", preferred));
  ORIVANTA_REQUIRE(page && page->is_array());
  const std::size_t left = source.size() - std::min(first, source.size());
  ORIVANTA_REQUIRE(page->get_array().size() == std::min(count, left));
  for (const boost::json::value& served : page->get_array()) {
    const boost::json::value& record = source[first++];
    ORIVANTA_REQUIRE(served.kind() == record.kind());
    ORIVANTA_REQUIRE(!isServedUnchanged(record) || served == record);
  }
}

void checkPages(std::string_view text) {
  const auto source = parseJsonDocument(text);
  if (!source || !source->is_array()) return;
  RecordCollection records;
  for (const std::string_view record : jsonElements(text)) records.append(record, "/1/files/mall/");
  const std::size_t size = source->get_array().size();
  ORIVANTA_REQUIRE(records.size() == size);
  Languages all(records.languages().size());
  std::iota(all.begin(), all.end(), 0U);
  const Languages reversed(all.rbegin(), all.rend());
  for (const std::size_t first : {std::size_t{0}, size / 2, size})
    for (const std::size_t count : {std::size_t{1}, size + 1})
      for (const Languages& preferred : {Languages(), all, reversed})
        checkPage(records, source->get_array(), first, count, preferred);
}

}  // namespace
}  // namespace orivanta::server

ORIVANTA_FUZZER(RecordCollection, orivanta::server::checkPages)
