// The resources of the library, which the package has in a file beside the module.
// web/pack-resources.mjs writes it.
#include "Platform/Foundation/ResourceBundle.hpp"

#include <emscripten/emscripten.h>

#include <boost/json/object.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Platform/Foundation/ExactJson.hpp"
#include "Platform/Foundation/Fatal.hpp"

namespace orivanta {

const foundation::ResourceBundle& languageBundle();
const foundation::ResourceBundle& sdkBundle();
const foundation::ResourceBundle& wordBundle();

namespace {

using foundation::ResourceBundle;

const ResourceBundle& added(const char* identifier) {
  const ResourceBundle* const bundle = ResourceBundle::find(identifier);
  if (bundle == nullptr) foundation::fatalError(std::string(identifier) + " is missing");
  return *bundle;
}

// A line with the bundles, as objects with the sizes of their files by name, and all files.
struct Packed {
  boost::json::object index;
  std::string files;
};

const Packed* unpack(std::string_view text) {
  const std::size_t end = text.find('\n');
  auto index = foundation::parseExactJson(text.substr(0, end), /*deepest=*/2, {}, {});
  if (index.error || end == std::string_view::npos || !index.value.is_object()) return nullptr;
  return new Packed{std::move(index.value.get_object()), std::string(text.substr(end + 1))};
}

}  // namespace

const ResourceBundle& languageBundle() { return added("org.orivanta.languages"); }

const ResourceBundle& sdkBundle() { return added("org.orivanta.sdk"); }

const ResourceBundle& wordBundle() { return added("org.orivanta.words"); }

}  // namespace orivanta

extern "C" {

// Called once, before anything that needs a resource. Returns 0 if the file is damaged.
EMSCRIPTEN_KEEPALIVE int orivantaAddResources(const char* file, std::size_t length) {
  using orivanta::foundation::Resource;
  const auto* const packed = orivanta::unpack({file, length});
  if (packed == nullptr) return 0;
  std::size_t start = 0;
  for (const auto& [identifier, files] : packed->index) {
    auto& resources = *new std::vector<Resource>;
    if (!files.is_object()) return 0;
    for (const auto& [name, size] : files.get_object()) {
      const auto* const bytes = reinterpret_cast<const std::uint8_t*>(packed->files.data()) + start;
      const std::size_t left = packed->files.size() - start;
      if (!size.is_int64() || size.get_int64() < 0 || std::size_t(size.get_int64()) > left)
        return 0;
      resources.push_back({name, {bytes, std::size_t(size.get_int64())}});
      start += resources.back().bytes.size();
    }
    // They are written to the caches directory in memory, which begins empty: one version will do.
    orivanta::foundation::ResourceBundle::add(identifier, "1", resources);
  }
  return start == packed->files.size() ? 1 : 0;
}
}
