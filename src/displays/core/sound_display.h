// What every display has in common: it is fed with what was heard and moved by the time that passed. UI thread only.
#pragma once

#include <span>

#include "displays/core/sound_frame.h"

namespace tandem {

class SoundDisplay {
 public:
  virtual ~SoundDisplay() = default;

  // All frames heard since the last call, oldest first; none while nothing is heard. After 50 ms without a frame the
  // display takes it for silence. Any amount is cheap: only what is still shown is looked at.
  virtual void feed(std::span<const SoundFrame> frames) = 0;

  // Moves the display by the time since the last call; whether anything visible has changed.
  // Call it once for each picture, also while nothing is heard. Doesn't allocate.
  virtual bool advance(double seconds) = 0;

  // Nothing will change until there is sound again or a setting is put.
  virtual bool at_rest() const = 0;
};

// The switches of a display. A disabled one ignores sound and time and lies at rest.
template <class Component>
class SwitchedDisplay : public Component, public SoundDisplay {
 public:
  bool Enabled() const final { return enabled_; }
  void put_Enabled(bool enabled) final {
    if (enabled != enabled_) reset();
    enabled_ = enabled;
  }
  bool Visible() const final { return visible_; }
  void put_Visible(bool visible) final { visible_ = visible; }
  void forget() { reset(); }  // as if nothing had ever been heard; allocates

  void feed(std::span<const SoundFrame> frames) final {
    if (enabled_) hear(frames);
  }
  bool advance(double seconds) final { return enabled_ && pass(seconds); }
  bool at_rest() const final { return !enabled_ || resting(); }

 private:
  virtual void reset() = 0;  // as if it had never heard anything
  virtual void hear(std::span<const SoundFrame> frames) = 0;
  virtual bool pass(double seconds) = 0;
  virtual bool resting() const = 0;

  bool enabled_ = false;
  bool visible_ = false;
};

}  // namespace tandem
