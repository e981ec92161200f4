// The texts of `--help` besides the lists of options: descriptions and examples.
#pragma once

namespace orivanta::command::help {

inline constexpr const char* description =
    R"(Indoor venue maps: lists and shows venues, finds routes, and renders floors.

Venues are loaded from a web API. Its root URL, the user name and the password are taken from the
command line, then from the environment, then from the property lists (*.plist) in the folder
"Resources" beside this program and in ~/.config/orivanta.
)";

inline constexpr const char* footer = R"(
Examples:
  orivanta view                         explore the demo venue in a window
  orivanta serve &                      serve the demo venue at http://127.0.0.1:8080/1/
  export ORIVANTA_ENDPOINT=http://127.0.0.1:8080/1/
  orivanta venues
  orivanta venue astrolabe-court --locations coffee
  orivanta route astrolabe-court --from "paper kestrel" --to "popcorn nebula" --accessible

Exit codes: 0 success, 1 nothing found, 2 incorrect usage, 3 no response from the server,
4 the output cannot be written, 5 the source of an import cannot be read, 6 not enough memory, or an
unexpected error.

`orivanta help COMMAND` describes a command and its options.)";

inline constexpr const char* venuesFooter = R"(
Examples:
  orivanta venues                              slug and name of each venue, one per line
  orivanta venues --json | jq -r '.[].slug')";

inline constexpr const char* venueFooter = R"(
Examples:
  orivanta venue astrolabe-court                       floors, categories and connectors
  orivanta venue astrolabe-court --locations           all locations
  orivanta venue astrolabe-court --locations coffee    those whose name contains "coffee"
  orivanta venue astrolabe-court --accessible          only connectors without steps)";

inline constexpr const char* searchFooter = R"(
Prints the identifier, the name, the kind and the floors of each place and connector, the best match
first. Each word must match the name, a category, the kind, a floor or the description of a place.
Words for kinds, such as lift or toilets, may be in English, German, French, Japanese or Arabic.

Examples:
  orivanta search astrolabe-court coffee
  orivanta search astrolabe-court elevator --json
  orivanta search astrolabe-court wc women --most 1)";

inline constexpr const char* routeFooter = R"(
A place is the identifier of a location or a node, or the name of a location: the whole name, in
any capitalization, or a part that occurs in no other name. With --guide, it may also be a position
in the venue's units, such as @G,120,45.5. `orivanta venue SLUG --locations` lists
the locations. If --from or --to is repeated, the route may start or end at any of these places.

Examples:
  orivanta route astrolabe-court --from "paper kestrel" --to "popcorn nebula"
  orivanta route astrolabe-court --from paper-kestrel --to ecliptic-1 --to ecliptic-2 --json
  orivanta route astrolabe-court --from "paper kestrel" --to "popcorn nebula" --guide
  orivanta route astrolabe-court --from "paper kestrel" --nearest toilets --profile step-free
  orivanta route astrolabe-court --from paper-kestrel --via "night baker" --to ecliptic-1 \
      --at 2026-11-21T18:30 --language de
  orivanta route astrolabe-court --batch requests.jsonl > results.jsonl

A batch contains one JSON object per line, and each line produces one line of output, in order:
  {"id": 1, "from": ["node-17"], "to": ["node-4", "node-5"]}
  {"id": 2, "fromLocation": "paper-kestrel", "toLocation": "ecliptic-1"}
In the output, "path" is the list of nodes and "weight" the cost of the route; both are null if
there is no route. A line that is not a valid request produces an "error", and the batch continues.

Guided requests have the members "guide", "profile", "via", "bestOrder", "nearest", "at", "closed",
"avoidOutdoors", "speed", "alternatives" or "language". "path" describes a given list of nodes:
  {"id": 3, "fromLocation": "paper-kestrel", "nearest": "toilets", "profile": "step-free"}
  {"id": 4, "path": ["node-17", "node-18", "node-4"], "guide": true}
Their output has "legs" and "steps", as with --guide --json.)";

inline constexpr const char* walkFooter = R"(
Prints each instruction about 30 m before its place, and the arrival at the destination, with the
time and the rest of the way. With --json, prints one line for each second of the walk: "time" in
seconds, the position as "map", "x" and "y", the indices of the "leg", of the next "step" and of the
step that is "announced", "metersLeft", "offRoute" and "arrived". With --off-route, the visitor goes
25 m to the side after this time, and gets a new route from there.
Places are specified as for `orivanta route`.

Examples:
  orivanta walk astrolabe-court --from "paper kestrel" --to "popcorn nebula" --speed-up 10
  orivanta walk astrolabe-court --from "paper kestrel" --to ecliptic-1 --profile step-free --instant
  orivanta walk astrolabe-court --from "paper kestrel" --to ecliptic-1 --instant --json)";

inline constexpr const char* costsFooter = R"(
Prints a table with tabs: the places, and for each place a row with the costs of the routes to all
of them. A cost is the expected time in milliseconds with the penalties of the profile, or -1 if
there is no route. With --json, "costs" has a list for each of the "places". Places are specified as
for `orivanta route`; lines that are empty are ignored. The table has at most 4,000,000 costs, so
there can be at most 2,000 places; more are an error (exit code 2).

Examples:
  orivanta costs astrolabe-court --places shops.txt --profile step-free
  printf '%s\n' paper-kestrel ecliptic-1 | orivanta costs astrolabe-court --places - --json)";

inline constexpr const char* renderFooter = R"(
Does not need a display. Prints the names of the files that it writes. If there are several floors,
the name of each file contains the short name of the floor. Places are specified as for
`orivanta route`. With --route, the images show the floors of the route in the order of the route. A
floor that the route enters several times has an image for each part of the route; --map FLOOR shows
all parts on one floor. Without --map, --zoom and --route, the image shows the floor and the part of
it where most places are; with --style plain, the whole first floor.

With --stacked, one image shows the floors above each other and, with --route, the whole route through
them. The floors that the route does not visit are faded. Of more than seven floors, those nearest to
the route or, without a route, to the floor of --map are shown. --tilt and --turn have no effect.

Most licenses for map data require that its sources are shown with the map. If the venue names them,
the images show them. With --no-attribution, or if they do not fit, they are printed to standard
error: show them near the images.

Recorded touches are replayed on each floor. Each line is a JSON object; positions are in points
from the upper left corner:
  {"time": 0.00, "finger": 1, "phase": "began", "x": 640, "y": 400}
  {"time": 0.10, "finger": 1, "phase": "moved", "x": 600, "y": 380}
  {"time": 0.20, "finger": 1, "phase": "ended", "x": 600, "y": 380}

Examples:
  orivanta render astrolabe-court -o court.png                where most places are, from above
  orivanta render astrolabe-court --map all --tilt 40 --scale 2 -o court.png
  orivanta render astrolabe-court --map G --highlight "paper kestrel=orange" --style dark
  orivanta render astrolabe-court --route "paper kestrel" "popcorn nebula" --tilt 35 -o way.png
  orivanta render astrolabe-court --route "paper kestrel" "popcorn nebula" --frames 25 -o way.png
  orivanta render astrolabe-court --stacked -o building.png)";

inline constexpr const char* viewFooter = R"(
Without SLUG, shows a list of the venues. Without an endpoint, shows the demo venue. Drag to move
the map, use the wheel to zoom, and drag with the right button to tilt and rotate. On a touchscreen,
use one or two fingers. Every control can be reached with Tab. Press ? in the window for a list of
keys.

Examples:
  orivanta view                                 the demo venue
  orivanta view astrolabe-court --size 390x844  one venue, in the size of a phone
  orivanta view --language ar                   in Arabic, from right to left
  orivanta view --text-size 150 --contrast high larger texts, high contrast
  orivanta view --scale 2                       two pixels per point)";

inline constexpr const char* importFooter = R"(
Reads an IMDF 1.0 archive (a folder or a zip file), an OpenStreetMap extract with indoor tags (.osm,
.osm.pbf, Overpass JSON or GeoJSON), IndoorGML 1.0 or 1.1, or a station network (GeoJSON or
Shapefile). If the source has no walking network, one is made from the drawn rooms, corridors and
doors. The last line tells what was made and how many things to look at there are.

The package is written beside FOLDER and renamed when it is complete. Only a package of an earlier
import is replaced. Files that were added to it, such as closure.json, are kept; if a file of the
import was changed, nothing is written. The same source and options give the same files. Show the
package with `orivanta serve FOLDER`.

--attribution and --license are shown with the map, after those that the source states.

--fixes names a JSON file with corrections by identifiers of the source; the report contains one to
start from. "name" also names elevators, stairs and escalators:
  {"way/4711": {"name": "Workshop", "hours": "Mo-Fr 08:00-17:00"},
   "way/4712": {"kind": "room", "door": {"latitude": 51.02551, "longitude": 13.72271}},
   "node/99": {"ignore": true}}

With --strict, exit code 1 means that there is a warning or a violation. Exit code 5 means that the
source cannot be read.

Examples:
  orivanta import mall.imdf.zip -o mall
  orivanta import campus.osm -o library --building "Main library" --language de,en
  orivanta import station/*.geojson -o station --report station.html
  orivanta import plan.gml -o house --storey-height 3 --fixes house.json)";

inline constexpr const char* serveFooter = R"(
Prints the root URL of the API when it is ready, and serves until it is interrupted. Each FOLDER is
a venue package or contains several of them; the default is the demo venue. If a user name and a
password are set, clients must send them. A package that is replaced on the disk is reloaded.

URLs in responses begin with http:// and the host of the request. Behind a TLS proxy, specify the
origin that clients see with --origin, or the proxy's address with --trusted-proxy if the proxy
sends X-Forwarded-Proto and X-Forwarded-Host. These headers are ignored if they come from any other
client, including clients on this machine.

Web pages of other origins may read responses only if --allow-origin names their origin, such as
https://www.example or http://localhost:5173. --allow-origin '*' allows all pages.

At /, serves the web page in the folder of --web to everybody, also if credentials are set: the page
asks for them. The default is the page that was installed with this program or built in build/web/page
of the source tree. If there is none, / says how to build it. A file is sent as NAME.gz, if there is
such a file, to browsers that accept that.

Examples:
  orivanta serve                        the demo venue at http://127.0.0.1:8080/1/
  orivanta serve my-venues --port 0     on a free port
  orivanta serve my-venues --address 0.0.0.0 --username me --password-file secret
  orivanta serve my-venues --origin https://maps.example
  orivanta serve my-venues --trusted-proxy 127.0.0.1
  orivanta serve my-venues --allow-origin https://www.example
  orivanta serve my-venues --web my-page)";

inline constexpr const char* auditFooter = R"(
Prints one line of JSON for each package, in order:
  "withoutNodes"    places to which no route can lead, because they have no nodes
  "unreachable"     places that no entrance reaches
  "withoutWayBack"  places that an entrance reaches, but from which no way leads to an entrance,
                    because edges exist in one direction only
  "entrances"       for each entrance the places that it does not reach without steps
  "connectors"      the connectors whose failure cuts off places: "cutOff" for everybody,
                    "cutOffStepFree" for visitors who need a route without steps
Entrances are the locations of the type "entrance" or "exit", or of a category with such an
identifier. If there is none, a well-connected place is used, and "entranceAssumed" is true.
With --picture, draws each floor to a file whose name contains the short name of the floor. A place
has the first of these colors that applies, and a legend shows those that occur:
  red        it cannot be reached
  purple     it cannot be left
  blue       the failure of a single connector cuts it off for everybody
  orange     no entrance reaches it without steps
  pale blue  the failure of a single connector cuts it off for visitors who need a way without steps

Exit code 1 means that a place cannot be reached, or cannot be left.

Examples:
  orivanta audit my-venues > audit.jsonl
  orivanta audit my-venues/mall --picture mall.png
  parallel --keep-order -n 20 orivanta audit ::: venues/* > audit.jsonl)";

inline constexpr const char* checkFooter = R"(
For a package, finds records, references and files that are not used, paths without a way back,
rooms that no route reaches, and the like. For an IMDF archive, an OpenStreetMap extract and the
other sources of `orivanta import`, prints what an import with the same options would report, and
writes nothing.

Each finding has a severity. A violation means that a part of the data is lost; a warning, that
something is probably not meant so. With --json, each line is an object with the members "source",
"number", "severity", "rule", "id", "file", "line", "field", "level", "map", "x", "y", "message",
"effect" and "advice"; those that do not apply are null.

Exit code 1 means that there are violations.

Examples:
  orivanta check my-venues/mall
  orivanta check my-venues --json | jq -r 'select(.severity == "violation") | .message'
  orivanta check mall.imdf.zip --html mall.html)";

inline constexpr const char* publishFooter = R"(
Writes the whole API as files, with a compressed copy of each text. FOLDER/SLUG/LANGUAGE/1/ is the
root of an API with one venue in one language, which any web server or object store can serve:
clients read all records at once, and the query of their requests is ignored. The language "default"
has the names of the building itself. FOLDER/nginx contains two files to include in the
configuration of nginx. They add the API root URL/1/ with all venues in the language that the client
prefers. Routes are not published, since clients compute them.

FOLDER is replaced as a whole when everything is written. Files that were added to it are kept; if a
published file was changed, nothing is written. Packages with violations are not
published; see `orivanta check`.

Examples:
  orivanta publish my-venues -o /srv/maps --base-url https://maps.example
  orivanta publish my-venues/mall -o site --base-url https://cdn.example/maps
  orivanta publish my-venues -o /srv/maps --base-url https://maps.example --allow-origin '*'
  orivanta venues --endpoint https://cdn.example/maps/mall/default/1/)";

inline constexpr const char* completionsFooter = R"(
The completions are installed with the program. To use them without installation:
  source <(orivanta completions bash)
  orivanta completions zsh > ~/.zfunc/_orivanta     a folder in $fpath
  orivanta completions fish | source)";

}  // namespace orivanta::command::help
