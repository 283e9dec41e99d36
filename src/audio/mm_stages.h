// The stages of the sound chain after the file readers, as far as the panel drives them. UI thread.
#pragma once

#include <cstdint>
#include <string>

#include "base/notification.h"

namespace tandem {

class MMPitchX {
 public:
  virtual ~MMPitchX() = default;
  // -20 .. 20: value / 5 semitones at unchanged tempo; 0 = unchanged. Survives a new song.
  virtual float Value() const = 0;
  virtual void put_Value(float value) = 0;
};

class MMWaveMixerX {
 public:
  virtual ~MMWaveMixerX() = default;
  // A muted input is silent and is not read: its song does not advance. Both are muted at first.
  virtual bool Mute(int input) const = 0;
  virtual void put_Mute(int input, bool mute) = 0;
  virtual std::int32_t Volume() const = 0;  // 0 .. 32768
  virtual void put_Volume(std::int32_t volume) = 0;
  // The song on this input has ended; the input counts as muted by then.
  Notification<int> input_finished;
};

class MMEqualizerX {
 public:
  struct Filter {
    double LowEdge = 0.0;   // Hz
    double HighEdge = 0.0;  // Hz
    double Gain = 0.0;      // dB
  };
  virtual ~MMEqualizerX() = default;
  virtual int FilterCount() const = 0;
  virtual void add_filter(double low_hz, double high_hz, double gain_db) = 0;
  virtual Filter filter(int index) const = 0;  // an index that does not exist throws Range
  virtual void put_Gain(int index, double gain_db) = 0;
  virtual bool Bypassed() const = 0;
  virtual void put_Bypassed(bool bypassed) = 0;
};

class MMWaveOutX {
 public:
  virtual ~MMWaveOutX() = default;
  virtual std::int32_t BufferSize() const = 0;  // bytes
  virtual void put_BufferSize(std::int32_t bytes) = 0;
  virtual void open() = 0;
  virtual void close() = 0;  // stop and close do nothing on a closed device
  virtual void start() = 0;  // opens a closed device; does nothing on a running one
  virtual void stop() = 0;
  virtual void pause() = 0;
  virtual void restart() = 0;
  // An error of the device that can't be recovered.
  Notification<> device_lost;
};

class MMConnectorX {
 public:
  enum class Slot { Spectrum, LeftMeter, RightMeter, Level, Oscilloscope };
  virtual ~MMConnectorX() = default;
  virtual std::string target(Slot slot) const = 0;  // the name of the display that is fed, empty for none
  virtual void put_target(Slot slot, const std::string& display) = 0;
};

class MMHelperX {
 public:
  virtual ~MMHelperX() = default;
  // "m:ss": minutes without leading zero (from one hour on still minutes), two digits of seconds.
  virtual std::string time_text(std::int32_t milliseconds) const = 0;
};

class MMRingBufferX {  // decouples the mixer from the equalizer; the panel asks nothing of it
 public:
  virtual ~MMRingBufferX() = default;
};

}  // namespace tandem
