#include "engine/read/section_reader.h"

#include <gtest/gtest.h>

#include "engine/decode/section.h"
#include "support/signal.h"

namespace tandem::test {
namespace {

// Sections of tones, of any rates.
class ToneSections : public Decoder {
 public:
  explicit ToneSections(const std::vector<int>& rates) {
    for (const int rate : rates) sections_.push_back({rate, to_stereo(tones(1.0, 441.0, 0.5, rate))});
  }
  int rate() const override { return sections_[section_].rate; }
  std::size_t read(std::span<StereoFrame> out) override {
    const auto rest = std::span<const StereoFrame>(sections_[section_].sound).subspan(position_);
    const std::size_t count = std::min(out.size(), rest.size());
    std::copy_n(rest.begin(), count, out.begin());
    position_ += count;
    return count;
  }
  bool next_section() override {
    if (section_ + 1 == sections_.size()) return false;
    ++section_;
    position_ = 0;
    return true;
  }
  int rate_of(std::size_t section) const override { return section < sections_.size() ? sections_[section].rate : 0; }
  Frames reach(std::size_t section, Frames frame) override { return std::min(frame, length(section)); }
  Frames length(std::size_t section) override { return static_cast<Frames>(sections_[section].sound.size()); }
  void seek(std::size_t section, Frames frame) override {
    section_ = section;
    position_ = static_cast<std::size_t>(frame);
  }

 private:
  struct Part {
    int rate = 0;
    Sound sound;
  };
  std::vector<Part> sections_;
  std::size_t section_ = 0;
  std::size_t position_ = 0;
};

Sound read(SectionReader& reader, std::size_t most) {
  Sound sound(most);
  sound.resize(reader.read(sound));
  return sound;
}

TEST(SectionReader, GivesAsManyFramesAsTheSectionLasts) {
  for (const int rate : {8000, 44100, 44099, 48000, 192000}) {
    ToneSections decoder({rate});
    SectionReader reader(decoder);
    EXPECT_EQ(read(reader, 100'000).size(), static_cast<std::size_t>(length_at_sample_rate(decoder.length(0), rate)))
        << rate;
    EXPECT_TRUE(read(reader, 100).empty());
  }
}

TEST(SectionReader, PassesThroughWhatIsAt44100Hz) {
  ToneSections decoder({44100});
  SectionReader reader(decoder);
  EXPECT_EQ(read(reader, 44100), to_stereo(tones(1.0, 441.0, 0.5)));
}

TEST(SectionReader, ASeekGivesWhatReadingUpToThereGives) {
  for (const int rate : {8000, 44100, 48000, 96000}) {
    ToneSections decoder({44100, rate});
    SectionReader reader(decoder);
    decoder.seek(1, 0);
    reader.begin();
    const Sound whole = read(reader, 100'000);
    for (const Frames frame : {0, 1, 5000, 20'000, 44'000, 44'100}) {
      reader.seek(1, frame);
      const Sound rest = read(reader, 100'000);
      ASSERT_EQ(rest.size(), whole.size() - static_cast<std::size_t>(frame)) << rate << " " << frame;
      EXPECT_LE(greatest_difference(rest, std::span(whole).subspan(static_cast<std::size_t>(frame))), 1e-5F);
    }
  }
}

TEST(SectionReader, RewindsToTheBeginningOfTheSong) {
  ToneSections decoder({48000, 44100});
  SectionReader reader(decoder);
  const Sound first = read(reader, 5000);
  reader.seek(1, 300);
  reader.rewind();
  EXPECT_EQ(read(reader, 5000), first);
}

}  // namespace
}  // namespace tandem::test
