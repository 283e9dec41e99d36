// A file reader without files: a table says which names exist and how long they are.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>

#include "audio/mm_audio_file.h"

namespace tandem::test {

struct FakeFiles {
  std::map<std::string, std::int32_t> lengths;  // what TempFile accepts, in milliseconds
  std::set<std::string> refused_by_decks;       // a deck opens any other name
};

class FakeAudioFile final : public MMAudioFileX {
 public:
  enum class Role { Deck, Probe };
  FakeAudioFile(const FakeFiles& files, Role role) : files_(files), role_(role) {}

  std::int32_t position = 0;  // set by the test; putting a name sets it to 0

  std::string FileName() const override { return name_; }
  void put_FileName(const std::string& name) override {
    name_ = accepts(name) ? name : std::string();
    position = 0;
  }
  std::int32_t Length() const override {
    const auto known = files_.lengths.find(name_);
    return known == files_.lengths.end() ? 0 : known->second;
  }
  std::int32_t Position() const override { return position; }
  void put_Position(std::int32_t milliseconds) override { position = milliseconds; }
  void finish(std::int32_t /*milliseconds*/) override {}

 private:
  bool accepts(const std::string& name) const {
    return role_ == Role::Probe ? files_.lengths.contains(name) : !files_.refused_by_decks.contains(name);
  }

  const FakeFiles& files_;
  Role role_;
  std::string name_;
};

}  // namespace tandem::test
