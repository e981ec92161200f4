// 3D models made into scene nodes.
#pragma once

#include <memory>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/ResourceBundle.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta {

/// Holds nothing but the library's resources; any thread.
class ORIVANTA_API AssetLoader {
 public:
  AssetLoader();
  virtual ~AssetLoader() = default;

  const foundation::ResourceBundle& bundle;  ///< the library's own

  /// As `loadObjFromURL`, for a model among the library's resources. A missing one is a fatal
  /// error.
  virtual std::shared_ptr<scene::Node> loadObj(std::string_view name);

  /// A Wavefront OBJ model, with the material libraries and pictures beside it, as a node with one
  /// child for each material in the order of first use, named after it. The children share their
  /// vertices. A file that cannot be read is a fatal error after "Load Scene failed"; one without
  /// faces is one as well.
  virtual std::shared_ptr<scene::Node> loadObjFromURL(const foundation::Url& url);

  /// A node of a scene among the library's resources, by its name at the top level; null when the
  /// scene has none of that name, and, after "Load 3DAsset failed", when it cannot be loaded. The
  /// scene is a JSON file NAME.scn:
  ///
  ///     {"nodes": [{"name": "pin", "model": "pin", "position": [0, 0, 0],
  ///                 "eulerAngles": [0, 0, 0], "children": []}]}
  ///
  /// where "model" names an OBJ model of the bundle; everything but "nodes" may be missing.
  virtual std::shared_ptr<scene::Node> load3DAsset(std::string_view name,
                                                   std::string_view nodeName);

  /// As `loadObjFromURL`, but fails instead of stopping the program. `MapView::loadFloors` calls it
  /// on background threads. Prints nothing.
  virtual foundation::Result<std::shared_ptr<scene::Node>> readModel(const foundation::Url& url);
};

}  // namespace orivanta
