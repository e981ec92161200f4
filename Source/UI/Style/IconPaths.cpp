#include "Source/UI/Style/IconPaths.hpp"

#include <array>
#include <cstddef>

namespace orivanta {

namespace {

constexpr double filled = 0.0;
constexpr bool cut = true;

constexpr IconPath lift[] = {
    {"B-5 -6.4 5 6.4 1"}, {"M0 -4.5 L3.1 -0.9 L-3.1 -0.9 Z M0 4.5 L3.1 0.9 L-3.1 0.9 Z", filled}};
constexpr IconPath escalator[] = {{"M-6.6 5.4 L-3.6 5.4 L3.4 -1 L6.8 -1", 2.4},
                                  {"O-1.4 -6 1.9", filled},
                                  {"M-1.4 -2.6 L-1.4 -0.4", 2.6}};
constexpr IconPath stairs[] = {{"M-6.6 5.2 L-2.2 5.2 L-2.2 0.2 L2.2 0.2 L2.2 -4.8 L6.6 -4.8", 2.3}};
constexpr IconPath ramp[] = {{"M-7.2 5.8 L6.6 5.8 L6.6 -0.6 Z", filled},
                             {"M-6 0.4 L2.6 -4.6 M-1.6 -5.8 L2.6 -4.6 L1.6 -0.4", 2}};
constexpr IconPath entrance[] = {{"M0.5 -5.8 L5.4 -5.8 L5.4 5.8 L0.5 5.8"},
                                 {"M-7.4 0 L1.6 0 M-2 -3.6 L1.6 0 L-2 3.6", 2.2}};
constexpr IconPath exitDoor[] = {{"M-0.5 -5.8 L-5.4 -5.8 L-5.4 5.8 L-0.5 5.8"},
                                 {"M-1.8 0 L7.2 0 M3.6 -3.6 L7.2 0 L3.6 3.6", 2.2}};
constexpr IconPath gate[] = {{"M-6 -4.6 L-6 4.6 M6 -4.6 L6 4.6", 2.8},
                             {"M0 5 L0 -4.6 M-2.7 -1.9 L0 -4.6 L2.7 -1.9", 2}};
constexpr IconPath ticket[] = {{"B-8 -4.6 8 4.6 1", filled},
                               {"O-8 0 2 O8 0 2", filled, cut},
                               {"M2.4 -3 L2.4 -2.4 M2.4 -0.3 L2.4 0.3 M2.4 2.4 L2.4 3", 1.4, cut}};
constexpr IconPath platform[] = {{"B-7 -6.4 0.8 3.6 2", filled},
                                 {"B-5.2 -4.2 -1 -1 0.5", filled, cut},
                                 {"O-4.9 1.3 0.9 O-1.3 1.3 0.9", filled, cut},
                                 {"O4.6 -4.2 1.7", filled},
                                 {"M4.6 -0.6 L4.6 2.2", 3},
                                 {"M-5.6 6.4 L5.6 6.4", 2.2}};
constexpr IconPath metro[] = {{"B-5 -7.5 5 3.5 2.2", filled},
                              {"B-3.2 -5.2 3.2 -1.2 0.6", filled, cut},
                              {"O-2.6 1.2 1 O2.6 1.2 1", filled, cut},
                              {"M-3 4.5 L-5 7.5 M3 4.5 L5 7.5", 1.8}};
constexpr IconPath bus[] = {{"B-6 -7 6 5 1.6", filled},
                            {"B-4.2 -4.2 4.2 0.2 0.4", filled, cut},
                            {"O-3.6 2.7 0.9 O3.6 2.7 0.9", filled, cut},
                            {"M-7.6 -3 L-7.6 0 M7.6 -3 L7.6 0", 1.4},
                            {"B-5 4 -2.4 7.5 0.6", filled},
                            {"B2.4 4 5 7.5 0.6", filled}};
constexpr IconPath taxi[] = {{"B-2.4 -7.5 2.4 -4.9 0.6", filled},
                             {"M-5 -0.5 L-3.4 -4 L3.4 -4 L5 -0.5 Z", 1.6},
                             {"B-7.5 -0.8 7.5 4.6 1.2", filled},
                             {"O-4.8 1.8 1.1 O4.8 1.8 1.1", filled, cut},
                             {"B-6.4 4 -3.4 7 0.6 B3.4 4 6.4 7 0.6", filled}};
constexpr IconPath parking[] = {
    {"M-3 6.5 L-3 -6.5 L0.8 -6.5 C6.4 -6.5 6.4 1.2 0.8 1.2 L-3 1.2", 2.8}};
constexpr IconPath bicycle[] = {{"O-4.9 2.6 3.1 O4.9 2.6 3.1", 1.7},
                                {"M-4.9 2.6 L-2.4 -2.6 L3 -2.6 L0 2.6 Z M4.9 2.6 L2.4 -5 L4.6 -5"
                                 " M-3.6 -4.6 L-1 -4.6 M-2.4 -2.6 L-2.9 -4.6 M0 2.6 L-2.4 -2.6",
                                 1.5}};
constexpr IconPath information[] = {{"O0 -5.6 1.8", filled},
                                    {"M-2 -1.2 L0.4 -1.2 L0.4 6 M-2.4 6.2 L3 6.2", 2.5}};
constexpr IconPath cash[] = {{"B-7.6 -4.6 7.6 4.6 0.8", filled},
                             {"O0 0 2.5", filled, cut},
                             {"O-5.1 0 1 O5.1 0 1", filled, cut}};
constexpr IconPath lockers[] = {{"M-2.6 -3.5 L-2.6 -6.4 L2.6 -6.4 L2.6 -3.5", 1.8},
                                {"B-7 -3.8 7 6.6 1.4", filled},
                                {"O0 0.2 1.7", filled, cut},
                                {"M0 0.2 L0 3.8", 1.6, cut}};
constexpr IconPath phone[] = {
    {"M-5 -6.8 L-2.2 -6.8 L-1.1 -3 L-2.9 -1.5 C-2.1 0.5 -0.5 2.1 1.5 2.9 L3 1.1 L6.8 2.2 L6.8 5 "
     "C6.8 6 6.2 6.8 5 6.8 C-1.5 6.4 -6.4 1.5 -6.8 -5 C-6.8 -6.2 -6 -6.8 -5 -6.8 Z",
     filled}};
constexpr IconPath waiting[] = {{"O-1.4 -5.6 2", filled},
                                {"M-1.6 -1.8 L-1 2 L3.4 2 L4.6 6.5", 2.6},
                                {"M-5 -2.6 L-4 5.4 L1 5.4 M-3 5.4 L-3 7", 1.6}};
constexpr IconPath smoking[] = {{"B-7.6 2 3.4 5.2 0.4", filled},
                                {"M5.2 2.9 L5.2 4.3 M7.7 2.9 L7.7 4.3", 1.5},
                                {"M5.2 0 C5.2 -2 1.5 -1.4 1.8 -4 C2 -5.6 4 -5.2 3.8 -7 M7.7 0 C7.7 "
                                 "-3 5.4 -3.4 6.4 -5.4",
                                 1.5}};
constexpr IconPath toilet[] = {{"O-4.2 -6 1.6 O4.2 -6 1.6", filled},
                               {"M0 -7 L0 7", 1.2},
                               {"B-6.4 -3.8 -2 1.2 0.9", filled},
                               {"B-5.8 0 -2.6 7.2 0.7", filled},
                               {"M3.3 -3.8 L5.1 -3.8 L7.4 3 L1 3 Z", filled},
                               {"B2.9 2.6 5.5 7.2 0.6", filled}};
constexpr IconPath toiletWomen[] = {{"O0 -6.2 2.1", filled},
                                    {"M-1.4 -2.6 L1.4 -2.6 L4.6 3.2 L-4.6 3.2 Z", 1.4},
                                    {"M-1.4 -2.6 L1.4 -2.6 L4.6 3.2 L-4.6 3.2 Z", filled},
                                    {"M-1.5 3 L-1.5 7.2 M1.5 3 L1.5 7.2", 2.2}};
constexpr IconPath toiletMen[] = {{"O0 -6.2 2.1", filled},
                                  {"M-3.9 -1.9 L-3.9 1.8 M3.9 -1.9 L3.9 1.8", 2},
                                  {"B-3.2 -3.3 3.2 2.4 0.8", filled},
                                  {"B-4.9 -3.3 4.9 -0.8 1.2", filled},
                                  {"M-1.7 0 L-1.7 7 M1.7 0 L1.7 7", 2.7}};
constexpr IconPath toiletWheelchair[] = {
    {"O-1.6 -6.2 1.9", filled},
    {"M-1.6 -3.2 L-1.2 1 L3 1 L4.8 5.6 L6.6 5", 2.2},
    {"M-1.4 -1.4 L2.6 -1.4", 1.8},
    {"M-3.6 -0.6 C-6.6 1.4 -6.2 7 -1.6 7.2 C0.6 7.2 2 6 2.6 4.4", 1.9}};
constexpr IconPath nursing[] = {{"O0 -6.2 1.7", filled},
                                {"B-3.4 -4.9 3.4 -2.6 0.6", filled},
                                {"B-3.8 -1.6 3.8 7.4 1.6", filled},
                                {"M0.8 1.6 L3.2 1.6 M0.8 4.6 L3.2 4.6", 1.3, cut}};
constexpr IconPath firstAid[] = {{"B-2.4 -7 2.4 7 0.6", filled}, {"B-7 -2.4 7 2.4 0.6", filled}};
constexpr IconPath health[] = {
    {"M-3.3 3.3 L3.3 -3.3", 7.6}, {"M0 0 L3.3 -3.3", 4, cut}, {"M-2.4 -2.4 L2.4 2.4", 1.6}};
constexpr IconPath security[] = {
    {"M0 -7.4 L6.2 -5 L6.2 -0.5 C6.2 3.4 3.6 6 0 7.6 C-3.6 6 -6.2 3.4 -6.2 -0.5 L-6.2 -5 Z",
     filled},
    {"M-2.8 0 L-0.6 2.2 L3 -2", 1.8, cut}};
constexpr IconPath food[] = {{"M-5.8 -7 L-5.8 -3 C-5.8 -0.6 -1.4 -0.6 -1.4 -3 L-1.4 -7", 1.5},
                             {"M-3.6 -7 L-3.6 7", 1.8},
                             {"M2.4 -7 C6 -6.4 6.4 -1 5.4 1.2 L2.4 1.2 Z", filled},
                             {"M3.4 -6 L3.4 7", 2}};
constexpr IconPath shop[] = {{"M-3 -2 L-3 -4 C-3 -8 3 -8 3 -4 L3 -2", 1.8},
                             {"M-6 -3.2 L6 -3.2 L7 6.6 L-7 6.6 Z", filled},
                             {"M-3 -0.6 C-3 3.6 3 3.6 3 -0.6", 1.4, cut}};
constexpr IconPath service[] = {{"M-6.6 3 C-6.6 -6.2 6.6 -6.2 6.6 3 Z", filled},
                                {"M-6.4 5.6 L6.4 5.6", 2.2},
                                {"O0 -5.6 1.5", filled}};
constexpr IconPath culture[] = {{"M0 -7.6 L7.4 -3.4 L7.4 -2.4 L-7.4 -2.4 L-7.4 -3.4 Z", filled},
                                {"M-4.8 -1 L-4.8 4 M0 -1 L0 4 M4.8 -1 L4.8 4", 2},
                                {"M-5.8 6.2 L5.8 6.2", 2}};
constexpr IconPath library[] = {{"M0 -4 C-2 -5.8 -5 -5.8 -7.4 -5.2 L-7.4 5 C-5 4.4 -2 4.6 0 6.2 C2 "
                                 "4.6 5 4.4 7.4 5 L7.4 -5.2 C5 "
                                 "-5.8 2 -5.8 0 -4 Z",
                                 filled},
                                {"M0 -3.6 L0 6", 1.4, cut}};
constexpr IconPath sport[] = {{"M-4 0 L4 0", 2.2},
                              {"M-4.4 -4.6 L-4.4 4.6 M4.4 -4.6 L4.4 4.6", 2.5},
                              {"M-7.4 -2.4 L-7.4 2.4 M7.4 -2.4 L7.4 2.4", 2}};
constexpr IconPath garden[] = {
    {"O0 -2.6 5", filled}, {"M0 4 L0 7", 2.4}, {"M0 2.2 L0 -2.6 M0 0.6 L2.1 -1.5", 1.3, cut}};
constexpr IconPath room[] = {{"B-4.6 -7 4.6 7.4 0.6", filled}, {"O2.2 0.6 1.2", filled, cut}};
constexpr IconPath office[] = {{"M-2.6 -4 L-2.6 -6.2 L2.6 -6.2 L2.6 -4", 1.8},
                               {"B-7.4 -4 7.4 6 1.2", filled},
                               {"M-7.4 1 L7.4 1", 1.3, cut},
                               {"B-1.6 -0.4 1.6 2.4 0.4", filled, cut}};
constexpr IconPath other[] = {{"O0 0 4.2", filled}};
constexpr IconPath here[] = {{"M0 -7.6 L5.6 6.4 L0 3.4 L-5.6 6.4 Z", 1},
                             {"M0 -7.6 L5.6 6.4 L0 3.4 L-5.6 6.4 Z", filled}};
constexpr IconPath walk[] = {{"O1 -6.4 1.8", filled},
                             {"M0.4 -3 L-0.4 1.2 L2.6 3.4 L3.2 7.2 M-0.4 1.2 L-1.4 4.2 L-4 7", 2.2},
                             {"M0.4 -3 L-2.8 -1.4 L-3.6 1.4 M0.4 -3 L2.6 -0.4 L5.2 0", 1.7}};

// In the order of `PlaceKind`.
constexpr std::array<std::span<const IconPath>, placeKindCount> icons{
    lift,     escalator, stairs,  ramp,     entrance, exitDoor,    gate,        ticket,
    platform, metro,     bus,     taxi,     parking,  bicycle,     information, cash,
    lockers,  phone,     waiting, smoking,  toilet,   toiletWomen, toiletMen,   toiletWheelchair,
    nursing,  firstAid,  health,  security, food,     shop,        service,     culture,
    library,  sport,     garden,  room,     office,   other};

}  // namespace

std::span<const IconPath> iconPathsOf(PlaceKind kind) {
  return icons[static_cast<std::size_t>(kind)];
}

std::span<const IconPath> herePaths() { return here; }

std::span<const IconPath> walkPaths() { return walk; }

}  // namespace orivanta
