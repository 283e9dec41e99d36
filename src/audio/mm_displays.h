// The displays that the connector can feed, as far as the panel drives them. UI thread.
#pragma once

#include <cstdint>
#include <memory>

namespace tandem {

class MMDisplayX {
 public:
  virtual ~MMDisplayX() = default;
  virtual bool Enabled() const = 0;
  virtual void put_Enabled(bool enabled) = 0;
  virtual bool Visible() const = 0;
  virtual void put_Visible(bool visible) = 0;
};

// The settings of the spectrum analyser: whole numbers; flags are 0 or 1. Enumerated ones are the ordinals of the
// board's captions.
enum class SpectrumSetting {
  Kind,                // 0 Points, 1 Lines, 2 V.Lines, 3 Bar, 4 Picks, 5 Roll
  Window,              // 0 Rectang, 1 Hamming, 2 Hanning, 3 Blackman, 4 Gaussiano, 5 Welch, 6 Parzen
  Gain,                // 0 none, 1: 3 dB, 2: 6 dB, 3: 9 dB
  DecayMode,           // 0 None, 1 Step, 2 Exponenc., 3 Uniform
  Decay,               // fall speed of the bars
  FFTLength,           // a power of two, 4 .. 4096
  VerticalScale,       // 1 .. 200
  HorizontalScale,     // 1 .. 16: the n-th part of the octaves from 40 Hz to 20 kHz is shown
  ReferenceFrequency,  // Hz
  PeakCount,           // peak marks of a column, 0 .. 5
  PeakDelay,           // hold, in 20 ms
  PeakSpeed,           // fall speed of the peak marks
  LogAmp,              // logarithmic amplitude
  DrawGrid,
  DrawInactive,  // unlit spots are drawn
  DrawPeaks,
  SolidBars,   // the first LED-style flag: solid instead of LED spots
  SolidMarks,  // the second LED-style flag
  DrawMode,    // the mode value that goes with the two flags: 1 or 2
  Count
};

class MMSpectrumX : public MMDisplayX {
 public:
  // The analyser limits what it is given to its own bounds; get() says what it took.
  virtual std::int32_t get(SpectrumSetting setting) const = 0;
  virtual void put(SpectrumSetting setting, std::int32_t value) = 0;
};

class MMMeterX : public MMDisplayX {};
class MMLevelX : public MMDisplayX {};
class MMOscopeX : public MMDisplayX {};

// The panel's displays, as part of its sound graph.
struct DisplayComponents {
  std::unique_ptr<MMSpectrumX> MMSpectrum1;
  std::unique_ptr<MMMeterX> MMMeterX1;
  std::unique_ptr<MMMeterX> MMMeterX2;
  std::unique_ptr<MMLevelX> MMLevelX1;
  std::unique_ptr<MMOscopeX> MMOscopeX1;
};

}  // namespace tandem
