// The texts of `--help` besides the lists of options: descriptions and examples.
#pragma once

namespace orivanta::command::help {

inline constexpr const char* description =
    R"(Indoor venue maps: list venues, look into one, find routes, draw floors.

Venues come from a web API. Its root, the user name and the password are taken from the
command line, else from the environment, else from the property lists (*.plist) of the main
bundle: the folder "Resources" beside this program, then ~/.config/orivanta.
)";

inline constexpr const char* footer = R"(
Examples:
  orivanta view                         walk around the demo venue in a window
  orivanta serve &                      the demo venue, on http://127.0.0.1:8080/1/
  export ORIVANTA_ENDPOINT=http://127.0.0.1:8080/1/
  orivanta venues
  orivanta venue astrolabe-court --locations coffee
  orivanta route astrolabe-court --from "paper kestrel" --to "popcorn nebula" --accessible

Exit codes: 0 done, 1 nothing found, 2 wrong use, 3 no answer from the server,
4 the output cannot be written.

`orivanta COMMAND --help` tells more about each command.)";

inline constexpr const char* venuesFooter = R"(
Examples:
  orivanta venues                              slug and name of each venue, one on a line
  orivanta venues --json | jq -r '.[].slug')";

inline constexpr const char* venueFooter = R"(
Examples:
  orivanta venue astrolabe-court                       floors, categories and connectors
  orivanta venue astrolabe-court --locations           all locations
  orivanta venue astrolabe-court --locations coffee    those with "coffee" in their name
  orivanta venue astrolabe-court --accessible          only connectors without steps)";

inline constexpr const char* routeFooter = R"(
A place is the identifier of a location or of a node, or a location's name: the whole name, the
name in other capitals, or a part of it that no other name has. `orivanta venue SLUG --locations`
lists them. With several places on a side the route may begin (end) at any of them.

Examples:
  orivanta route astrolabe-court --from "paper kestrel" --to "popcorn nebula"
  orivanta route astrolabe-court --from paper-kestrel --to ecliptic-1 --to ecliptic-2 --json
  orivanta route astrolabe-court --batch requests.jsonl > answers.jsonl

A batch has one JSON object a line and gives one line for each, in order:
  {"id": 1, "from": ["node-17"], "to": ["node-4", "node-5"]}
  {"id": 2, "fromLocation": "paper-kestrel", "toLocation": "ecliptic-1"}
"path" in an answer is the list of nodes, or null without a route; "weight" is what it costs. A
line that is no such request gives "error" instead, and the batch goes on.)";

inline constexpr const char* renderFooter = R"(
Needs no display. Prints the names of the files that it writes; with several floors the short name
of each goes into its file's name. Places are given as to `orivanta route`. With a route the
pictures are of the floors that it passes, in its order, and the camera looks at it. A floor to
which it comes back has a picture for each time, with that part of the route; --map FLOOR shows all
parts on one floor.

Most licenses for map data require that its sources are shown with the map. If the venue names them,
they are on the picture. With --no-attribution, and where they do not fit, they are printed on
standard error: show them near the picture.

Recorded touches, played on each floor, are lines of JSON, positions in points from the upper left corner:
  {"time": 0.00, "finger": 1, "phase": "began", "x": 640, "y": 400}
  {"time": 0.10, "finger": 1, "phase": "moved", "x": 600, "y": 380}
  {"time": 0.20, "finger": 1, "phase": "ended", "x": 600, "y": 380}

Examples:
  orivanta render astrolabe-court -o court.png                the first floor, from above
  orivanta render astrolabe-court --map all --tilt 40 --scale 2 -o court.png
  orivanta render astrolabe-court --map G --highlight "paper kestrel=orange" --labels
  orivanta render astrolabe-court --route "paper kestrel" "popcorn nebula" --tilt 35 -o way.png
  orivanta render astrolabe-court --route "paper kestrel" "popcorn nebula" --frames 25 -o way.png)";

inline constexpr const char* viewFooter = R"(
Without SLUG there is a list of venues to choose from, and without an endpoint the demo venue.
Drag to move, turn the wheel to come closer, drag with the right button to tilt and turn; fingers
do all of it on a touchscreen. Press ? in the window for the list of keys.

Examples:
  orivanta view                                 the demo venue
  orivanta view astrolabe-court --size 390x844  one venue of the server, as on a phone
  orivanta view --scale 2                       twice as many pixels for each point)";

inline constexpr const char* serveFooter = R"(
Prints the API root when it is ready, and serves until it is interrupted. A folder is a venue
package or holds several of them; without one the demo venue is served. With a user name and a
password, clients have to give them too. A package that is replaced on the disk is read again.

URLs in answers begin with http:// and the host that the client asked. Behind a proxy that speaks
TLS, give the origin that clients see, or the proxy's address if it tells the server in
X-Forwarded-Proto and X-Forwarded-Host. No other client's word counts, not even on this machine.

Examples:
  orivanta serve                        the demo venue on http://127.0.0.1:8080/1/
  orivanta serve my-venues --port 0     on a free port
  orivanta serve my-venues --address 0.0.0.0 --username me --password-file secret
  orivanta serve my-venues --origin https://maps.example
  orivanta serve my-venues --trusted-proxy 127.0.0.1)";

inline constexpr const char* completionsFooter = R"(
An installed program has its completions in place. Without installation:
  source <(orivanta completions bash)
  orivanta completions zsh > ~/.zfunc/_orivanta     a folder of $fpath
  orivanta completions fish | source)";

}  // namespace orivanta::command::help
