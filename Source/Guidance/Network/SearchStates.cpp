#include "Source/Guidance/Network/SearchStates.hpp"

#include <utility>

namespace orivanta::guidance {

namespace {

constexpr std::size_t mostStates = 32;
constexpr std::size_t mostSpareVertices = 1024;

}  // namespace

std::unique_ptr<SearchState> SearchStates::take(std::size_t vertexCount) {
  std::unique_ptr<SearchState> state;
  {
    const std::lock_guard lock(mutex_);
    if (!states_.empty()) {
      state = std::move(states_.back());
      states_.pop_back();
    }
  }
  if (!state) state = std::make_unique<SearchState>();
  if (++state->stamp == 0) {
    state->vertices.clear();
    state->stamp = 1;
  }
  if (state->vertices.size() < vertexCount) state->vertices.resize(vertexCount);
  state->frontier.clear();
  return state;
}

void SearchStates::giveBack(std::unique_ptr<SearchState> state) {
  if (state->vertices.size() > networkSize_ + mostSpareVertices) return;
  const std::lock_guard lock(mutex_);
  if (states_.size() < mostStates) states_.push_back(std::move(state));
}

}  // namespace orivanta::guidance
