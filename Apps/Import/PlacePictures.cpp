#include "Apps/Import/PlacePictures.hpp"

namespace orivanta::importer {

boost::json::object pictureOf(const Category&) { return {}; }

}  // namespace orivanta::importer
