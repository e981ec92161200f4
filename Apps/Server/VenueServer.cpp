#include "Apps/Server/VenueServer.hpp"

#include <utility>

namespace orivanta::server {

class VenueServer::Implementation {};

VenueServer::VenueServer(ServerOptions) : implementation_(std::make_unique<Implementation>()) {}
VenueServer::~VenueServer() = default;

std::string VenueServer::root() const { return {}; }

}  // namespace orivanta::server
