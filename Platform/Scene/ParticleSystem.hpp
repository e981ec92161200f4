// A source of particles, as far as code that only resets one needs it: none is ever drawn.
// Public header.
#pragma once

namespace orivanta::scene {

/// A source of particles. It counts how often it was reset; particles are not drawn.
class ParticleSystem {
 public:
  /// Starts again without particles.
  void reset() { ++resetCount_; }

  /// How often the system was reset.
  int resetCount() const { return resetCount_; }

 private:
  int resetCount_ = 0;
};

}  // namespace orivanta::scene
