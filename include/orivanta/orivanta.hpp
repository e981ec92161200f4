// The whole data half of the library: records, venue loading, routes and directions.
#pragma once

#include "Platform/Foundation/Bundle.hpp"
#include "Platform/Foundation/Diagnostics.hpp"
#include "Platform/Foundation/Screen.hpp"
#include "Source/Category.hpp"
#include "Source/Directions.hpp"
#include "Source/ImageCollection.hpp"
#include "Source/Location.hpp"
#include "Source/Map.hpp"
#include "Source/NavigationGraph.hpp"
#include "Source/Node.hpp"
#include "Source/Orivanta.hpp"
#include "Source/Polygon.hpp"
#include "Source/RawData.hpp"
#include "Source/Venue.hpp"
#include "Source/Vortex.hpp"
#include "Source/WebApi.hpp"
