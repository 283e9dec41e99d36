#include "desktop/bus_texts.h"

#include <gtest/gtest.h>

#include <QString>
#include <QSysInfo>

namespace tandem {
namespace {

TEST(BusText, IsValidWhateverTheBytes) {
  EXPECT_EQ(bus_text("caf\xC3\xA9"), "caf\xC3\xA9");
  EXPECT_EQ(bus_text("caf\xE9"), "caf\xEF\xBF\xBD");
}

TEST(ShownName, IsThatOfTheDisplay) {
  EXPECT_EQ(shown_name("/music/Side A/01 - caf\xC3\xA9.mp3"), "01 - CAF\xC3\x89.MP3");
  EXPECT_EQ(shown_name(""), "");
}

TEST(FileUrl, CarriesEveryByteThereAndBack) {
  std::string path = "/";
  for (int byte = 1; byte < 256; ++byte) path += static_cast<char>(byte);
  EXPECT_EQ(path_of(file_url(path)), path);
  EXPECT_EQ(file_url("/music/a b%#?.mp3"), "file:///music/a%20b%25%23%3F.mp3");
}

TEST(FileUrl, OfNoFileHereIsNoPath) {
  EXPECT_EQ(path_of("file://localhost/a.mp3"), "/a.mp3");
  EXPECT_EQ(path_of("file://" + QSysInfo::machineHostName().toStdString() + "/a.mp3"), "/a.mp3");
  for (const char* url : {"http://example.org/a.mp3", "file://elsewhere/a.mp3", "a.mp3", "", "file:", "file:///a%00b"})
    EXPECT_EQ(path_of(url), std::nullopt) << url;
}

}  // namespace
}  // namespace tandem
