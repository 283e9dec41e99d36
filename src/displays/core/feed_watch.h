// Distinguishes a picture that merely came between two blocks of sound from sound that has stopped coming. UI thread.
#pragma once

namespace tandem {

class FeedWatch {
 public:
  enum class State { Fresh, Waiting, Gone };

  void fed() noexcept { fresh_ = true; }

  // Fresh: there was sound since the last call. Waiting: none yet, what was shown still stands.
  // Gone: none for 50 ms; silence.
  State advance(double seconds) noexcept {
    waited_ = fresh_ ? 0.0 : waited_ + seconds;
    const bool fresh = fresh_;
    fresh_ = false;
    if (fresh) return State::Fresh;
    return waited_ < kPatience ? State::Waiting : State::Gone;
  }

 private:
  static constexpr double kPatience = 0.05;  // seconds; longer than any block that an output reports at once

  bool fresh_ = false;
  double waited_ = 0.0;
};

}  // namespace tandem
