// The files to fetch for the floors of a venue, each file once.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "Source/Fwd.hpp"
#include "Source/UI/Floors/FileFetch.hpp"

namespace orivanta {

struct FetchPlan {
  struct Floor {
    std::shared_ptr<Map> map;
    std::vector<std::size_t> files;      ///< the model first; empty if there is nothing to fetch
    std::string problem;                 ///< why its model cannot be fetched; empty if it can
    std::vector<std::string> omissions;  ///< the same for its other files
  };

  std::vector<Floor> floors;           ///< in the venue's order
  std::vector<std::size_t> order;      ///< order of fetching the floors
  std::vector<FileFetch::File> files;  ///< in fetch order

  /// Creates a plan that starts with the files of `first`, if it is a floor of the venue. The files
  /// are stored in the folder "maps" of the venue and the server of the model's URL. Files of a
  /// floor that would replace those of another floor, because their URLs have the same last
  /// component, are stored in a separate subfolder.
  static FetchPlan of(const Venue& venue, const std::shared_ptr<Map>& first);
};

}  // namespace orivanta
