// Forward declarations of the records and of the types that use them.
#pragma once

namespace orivanta {

class Category;
class Direction;
class Directions;
class Edge;
class ImageCollection;
class Location;
class Map;
class NavigationGraph;
class Node;  // NOLINT(bugprone-forward-declaration-namespace): a scene has another
class Polygon;
class RawData;
class RouteEnd;
class Venue;
class Vortex;

}  // namespace orivanta
