// What is added of a drop or a choice, in which order, and what is not.
#include <filesystem>
#include <utility>

#include "app/parts/intake_fixture.h"
#include "base/whole_file.h"

namespace tandem::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(Intake, ADroppedListIsOpenedAndSongsFollowIt) {
  const AddedSong one = make_song(rig, "one.wav", constant(0.1, 700));
  const AddedSong two = make_song(rig, "two.wav", constant(0.1, 700));
  replace_whole_file(rig.file("night.m3l"), " " + one.path + "\r\n");
  rig.add(two.path);
  intake.drop({two.path, rig.file("night.m3l")});
  wait_for([this] { return lines() == 2 && rig.controls().PlayList.List(0).ends_with("one.wav"); });
  EXPECT_EQ(rig.controls().PlayList.List(1), "02 - " + two.path);
}

TEST_F(Intake, TitleAndTimeOfADropAgree) {
  const AddedSong one = make_song(rig, "1.wav", constant(0.1, 3000));
  const AddedSong two = make_song(rig, "2.wav", constant(0.1, 65'000));
  intake.drop({two.path, one.path});
  wait_for([this] { return lines() == 2; });
  EXPECT_EQ(rig.controls().SongLabel.Caption.get(), "1.WAV");
  EXPECT_EQ(rig.controls().LblTempTot.Caption.get(), "00:03");
}

TEST_F(Intake, NeverMoreThanFit) {
  std::vector<std::string> paths;
  for (int i = 0; i < 250; ++i) paths.push_back(rig.make_file(std::to_string(i) + ".wav", {}));
  intake.drop(paths);
  wait_for([this] { return lines() > 0; });
  EXPECT_EQ(lines(), 200);
  EXPECT_THAT(messages, SizeIs(1));
  EXPECT_THAT(intake.that_fit(paths), IsEmpty());
  EXPECT_THAT(messages.back(), HasSubstr("250 of 250"));
}

// A list that is opened makes room for what was dropped with it.
TEST_F(Intake, SongsAndAListDroppedOnAFullListAreTaken) {
  std::vector<std::string> paths;
  for (int i = 0; i < 200; ++i) paths.push_back(rig.make_file(std::to_string(i) + ".wav", {}));
  intake.drop(paths);
  wait_for([this] { return lines() == 200; });
  replace_whole_file(rig.file("night.m3l"), " " + paths[7] + "\r\n");
  intake.drop({rig.file("night.m3l"), paths[0], paths[1]});
  wait_for([this] { return lines() == 3; });
  EXPECT_EQ(rig.controls().PlayList.List(2), "03 - " + paths[1]);
  EXPECT_THAT(messages, IsEmpty());
}

// The dialog's result has place for one folder.
TEST_F(Intake, SongsChosenInOtherFoldersFollow) {
  const std::string first = rig.make_file("z.wav", {});
  std::filesystem::create_directory(rig.file("cd"));
  const std::vector<std::string> others = {rig.make_file("cd/2.wav", {}), rig.make_file("cd/1.wav", {})};
  rig.player().dialog.prepare = [&](const std::string& result) {
    return intake.prepare(result, IntakeJob::Kind::Songs, others);
  };
  rig.add(first);
  wait_for([this] { return lines() == 3; });
  for (const auto& [line, path] : {std::pair{0, first}, {1, others[1]}, {2, others[0]}})
    EXPECT_TRUE(rig.controls().PlayList.List(line).ends_with(path)) << rig.controls().PlayList.List(line);
}

TEST_F(Intake, OfAPickThatIsTooLargeTheFirstAreTaken) {
  rig.add(make_song(rig, "0.wav", constant(0.1, 700)).path);
  std::vector<std::string> paths;
  for (int i = 250; i > 0; --i) paths.push_back("/m/" + std::to_string(i) + ".wav");
  const std::vector<std::string> fit = intake.that_fit(paths);
  ASSERT_THAT(fit, SizeIs(199));
  EXPECT_EQ(fit.front(), "/m/1.wav");
  EXPECT_EQ(fit.back(), "/m/199.wav");
}

}  // namespace
}  // namespace tandem::test
