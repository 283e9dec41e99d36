// A file reader: one song, opened by putting its name. UI thread. The names of the classes in this folder and of their
// properties are the panel's own.
#pragma once

#include <cstdint>
#include <string>

namespace tandem {

class MMAudioFileX {
 public:
  virtual ~MMAudioFileX() = default;

  // The full path as put; empty if the file was refused or none was put. A deck's put reads back at once and may turn
  // empty later, when opening has failed; TempFile measures within the put and takes every name that ends as a song's.
  virtual std::string FileName() const = 0;
  // Always opens, also the name that it has: rewinds to 0 and cancels a finishing run. An empty name closes the file.
  virtual void put_FileName(const std::string& name) = 0;

  virtual std::int32_t Length() const = 0;    // of the opened song in milliseconds; 0 without one
  virtual std::int32_t Position() const = 0;  // milliseconds that the mixer has taken
  virtual void put_Position(std::int32_t milliseconds) = 0;
  // Fades the song out and ends it within this time.
  virtual void finish(std::int32_t milliseconds) = 0;
};

}  // namespace tandem
