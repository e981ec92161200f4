#include "Apps/Import/WritePackage.hpp"

namespace orivanta::importer {

void writePackage(const Building&, const std::filesystem::path&) {}

}  // namespace orivanta::importer
