// A source of particles that can only be reset. Particles are not drawn.
// Public header.
#pragma once

namespace orivanta::scene {

/// A source of particles. It counts its resets; particles are not drawn.
class ParticleSystem {
 public:
  /// Restarts the system without particles.
  void reset() { ++resetCount_; }

  /// Returns how often the system was reset.
  int resetCount() const { return resetCount_; }

 private:
  int resetCount_ = 0;
};

}  // namespace orivanta::scene
