// Writes images and reports their file names.
#pragma once

#include <boost/json/array.hpp>
#include <set>
#include <string>

#include "Apps/Command/Render/RenderVenue.hpp"
#include "Apps/Command/Render/Stage.hpp"

namespace orivanta::command {

/// The options must outlive it.
class PictureWriter {
 public:
  explicit PictureWriter(const RenderVenueOptions& options) : options_(options) {}

  /// Draws and writes an image or an animation.
  void write(Stage& stage, const std::string& file);

  /// Returns a file name for the image of a floor. Each call returns a different name.
  std::string nameFor(const Map& floor, bool isOneOfMany);

  /// Ends the list of files. Returns false if it is empty.
  bool finish();

 private:
  void writePicture(const graphics::Image& image, const std::string& file);
  void tell(const std::string& file);

  const RenderVenueOptions& options_;
  boost::json::array files_;
  std::set<std::string> names_;
};

}  // namespace orivanta::command
