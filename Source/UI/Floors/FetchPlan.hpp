// What there is to fetch for the floors of a venue, each file once.
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
    std::vector<std::size_t> files;      ///< the model first; none when there is nothing to fetch
    std::string problem;                 ///< why its model cannot be fetched; empty when it can
    std::vector<std::string> omissions;  ///< the same for its other files
  };

  std::vector<Floor> floors;           ///< in the venue's order
  std::vector<std::size_t> order;      ///< of their fetching
  std::vector<FileFetch::File> files;  ///< in the order of fetching

  /// Beginning with the files of `first`, if that is a floor of the venue. The files are kept in
  /// the folder "maps" of the venue on its server, that of the model's URL; those of a floor that
  /// would take the place of another floor's, since their URLs end alike, in a folder of its own
  /// below.
  static FetchPlan of(const Venue& venue, const std::shared_ptr<Map>& first);
};

}  // namespace orivanta
