// An open file, closed at the end and not inherited by other programs. Any thread.
#pragma once

#include <string>
#include <utility>

namespace tandem {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) noexcept : number_(number) {}  // as the system gave it; below 0: none
  // Flags as for open(). A new file's permissions are those that the user gives new files; errno says why it is not
  // open.
  Descriptor(const std::string& path, int flags);
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  int number() const { return number_; }
  bool is_open() const { return number_ >= 0; }

 private:
  int number_ = -1;
};

}  // namespace tandem
