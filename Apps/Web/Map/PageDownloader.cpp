#include "Apps/Web/Map/PageDownloader.hpp"

namespace orivanta::web {

void PageDownloader::fileWasUsed(const std::string& path) { forgetFile(path); }

}  // namespace orivanta::web
