// A source of particles, as far as code that only resets one needs it: none is ever drawn.
#pragma once

namespace orivanta::scene {

class ParticleSystem {
 public:
  /// Begins again without any particle.
  void reset() { ++resetCount_; }
  int resetCount() const { return resetCount_; }

 private:
  int resetCount_ = 0;
};

}  // namespace orivanta::scene
