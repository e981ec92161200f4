// Loads 3D models as scene nodes.
#pragma once

#include <memory>
#include <string_view>

#include "Platform/Foundation/Export.hpp"
#include "Platform/Foundation/ResourceBundle.hpp"
#include "Platform/Foundation/Result.hpp"
#include "Platform/Foundation/Url.hpp"
#include "Platform/Scene/Node.hpp"

namespace orivanta {

/// Loads models from files and from the library's resources. Stateless; any thread.
class ORIVANTA_API AssetLoader {
 public:
  AssetLoader();
  virtual ~AssetLoader() = default;

  const foundation::ResourceBundle& bundle;  ///< the resources of the library

  /// Same as `loadObjFromURL`, for a model in the library's resources. A missing model is a fatal
  /// error.
  virtual std::shared_ptr<scene::Node> loadObj(std::string_view name);

  /// Loads a Wavefront OBJ model, with material libraries and pictures from the same folder. The
  /// returned node has one child for each material, named after it, in the order of first use. The
  /// children share their vertices. If the file cannot be read, prints "Load Scene failed" and ends
  /// with a fatal error. A model without faces is a fatal error, too.
  virtual std::shared_ptr<scene::Node> loadObjFromURL(const foundation::Url& url);

  /// Returns the top-level node with a name from a scene in the library's resources, or null if the
  /// scene has no such node. If the scene cannot be loaded, prints "Load 3DAsset failed" and
  /// returns null. The scene is a JSON file NAME.scn:
  ///
  ///     {"nodes": [{"name": "pin", "model": "pin", "position": [0, 0, 0],
  ///                 "eulerAngles": [0, 0, 0], "children": []}]}
  ///
  /// where "model" is the name of an OBJ model of the bundle. Everything except "nodes" is
  /// optional.
  virtual std::shared_ptr<scene::Node> load3DAsset(std::string_view name,
                                                   std::string_view nodeName);

  /// Same as `loadObjFromURL`, but returns errors instead of ending the program. Prints nothing.
  /// The node is never null. `MapView::loadFloors` calls this function on background threads, and
  /// reports a null node of an override as an error.
  virtual foundation::Result<std::shared_ptr<scene::Node>> readModel(const foundation::Url& url);
};

}  // namespace orivanta
