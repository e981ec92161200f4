#include "Source/Json/JsonDocument.hpp"

#include "Platform/Foundation/ExactJson.hpp"
#include "Source/Json/JsonArena.hpp"

namespace orivanta {

namespace json = boost::json;

namespace {

// The memory of the document and its root. The root's destructor does nothing: its contents are
// released with the memory, at any depth of nesting.
struct Document {
  JsonArena memory;
  json::value root;

  Document(std::size_t expectedBytes, const std::shared_ptr<foundation::MemoryBudget>& budget)
      : memory(expectedBytes, budget), root(&memory) {}
};

}  // namespace

std::shared_ptr<const json::value> parseJsonDocument(
    std::string_view text, const std::shared_ptr<foundation::MemoryBudget>& budget) {
  auto document = std::make_shared<Document>(text.size(), budget);
  JsonScratch scratch(budget);
  foundation::ExactJson parsed =
      foundation::parseExactJson(text, deepestJsonNesting, &scratch, &document->memory);
  if (parsed.error || parsed.read != text.size()) return nullptr;
  document->root = std::move(parsed.value);
  return {document, &document->root};
}

}  // namespace orivanta
