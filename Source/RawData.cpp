#include "Source/RawData.hpp"

#include <boost/json/value.hpp>
#include <utility>

#include "Source/ImageCollection.hpp"
#include "Source/Json/JsonDocument.hpp"
#include "Source/Json/JsonMember.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

template <class Optional>
auto forced(Optional&& value) {
  if (!value) throw RawDataError(RawDataError::CantForceCast);
  return *static_cast<Optional&&>(value);
}

}  // namespace

const char* RawDataError::what() const noexcept { return "CantForceCast"; }

std::optional<RawData> RawData::parse(std::string_view bytes) { return parse(bytes, nullptr); }

std::optional<RawData> RawData::parse(std::string_view bytes,
                                      const std::shared_ptr<foundation::MemoryBudget>& budget) {
  auto document = parseJsonDocument(bytes, budget);
  if (!document || (!document->is_object() && !document->is_array())) return std::nullopt;
  return RawData(std::move(document));
}

std::vector<RawData> RawData::arrayValue() const {
  std::vector<RawData> elements;
  if (!data_ || !data_->is_array()) return elements;
  const json::array& array = data_->get_array();
  elements.reserve(array.size());
  for (const json::value& element : array)
    elements.emplace_back(std::shared_ptr<const json::value>(data_, &element));
  return elements;
}

RawData RawData::operator[](std::string_view key) const {
  const json::value* found = jsonMember(data_.get(), key);
  if (found == nullptr) return {};
  return RawData(std::shared_ptr<const json::value>(data_, found));
}

std::optional<bool> RawData::bool_() const {
  if (data_ && data_->is_bool()) return data_->get_bool();
  const auto number = double_();
  return number ? std::optional<bool>(*number != 0.0) : std::nullopt;
}

std::optional<std::string_view> RawData::text() const {
  if (!data_ || !data_->is_string()) return std::nullopt;
  const json::string& value = data_->get_string();
  return std::string_view(value.data(), value.size());
}

std::optional<std::string> RawData::string() const {
  const auto view = text();
  return view ? std::optional<std::string>(*view) : std::nullopt;
}

std::string RawData::stringValue() const { return string().value_or(""); }

std::string RawData::stringForce() const { return forced(string()); }

std::optional<double> RawData::double_() const {
  if (!data_) return std::nullopt;
  switch (data_->kind()) {
    case json::kind::double_:
      return data_->get_double();
    case json::kind::int64:
      return static_cast<double>(data_->get_int64());
    case json::kind::uint64:
      return static_cast<double>(data_->get_uint64());
    case json::kind::bool_:
      return data_->get_bool() ? 1.0 : 0.0;
    default:
      return std::nullopt;
  }
}

double RawData::doubleValue() const { return double_().value_or(0.0); }

double RawData::doubleForce() const { return forced(double_()); }

std::shared_ptr<const ImageCollection> RawData::imageCollection() const {
  return ImageCollection::make(*this);
}

std::shared_ptr<const ImageCollection> RawData::imageCollectionForce() const {
  auto images = imageCollection();
  if (!images) throw RawDataError(RawDataError::CantForceCast);
  return images;
}

std::optional<foundation::Url> RawData::url() const {
  const auto view = text();
  return view ? foundation::Url::parse(*view) : std::nullopt;
}

}  // namespace orivanta
