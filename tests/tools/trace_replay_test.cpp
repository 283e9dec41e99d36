#include "script/trace_replay.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

#include "script/unknown_word.h"

namespace tandem {
namespace {

std::string replayed(const std::string& text) {
  std::istringstream traces(text);
  std::ostringstream out;
  replay_traces(traces, out);
  return out.str();
}

const std::string kStart = "trace one\nlead 2500\nsong A 200000\nsong B 180000\n";

TEST(Traces, AllThatAreKeptPass) {
  std::ifstream traces(TANDEM_TEST_DATA "/panel_traces.txt");
  ASSERT_TRUE(traces);
  std::ostringstream out;
  const TraceCount count = replay_traces(traces, out);
  EXPECT_EQ(count.failed, 0) << out.str();
  EXPECT_EQ(count.passed, 14);
  EXPECT_EQ(out.str(), "14 passed, 0 failed\n");
}

TEST(Traces, AMismatchNamesTraceLineAndBothStates) {
  EXPECT_EQ(replayed(kStart + "PLAY | CS=2\n"),
            "trace one, line 5: PLAY \n  expected CS=2\n  came     CS=1 AD=0 LI=0 MS=F NL=F m=FT f=A,\"\" MT=10 NB=T "
            "show=A max=200000\n0 passed, 1 failed\n");
}

TEST(Traces, TheFirstMismatchEndsATraceAndTheNextGoesOn) {
  const std::string text = replayed(kStart + "PLAY | CS=2\nTICK | CS=9\n" + kStart + "PLAY | CS=1\n");
  EXPECT_EQ(text.find("CS=9"), std::string::npos);
  EXPECT_TRUE(text.ends_with("1 passed, 1 failed\n"));
}

TEST(Traces, EachBeginsAfresh) {
  EXPECT_EQ(replayed(kStart + "PLAY\n" + kStart +
                     "PAUSE | CS=0 AD=0 LI=-1 MS=F NL=F m=TT f=\"\",\"\" MT=0 NB=T show=\"\" max=100\n"),
            "2 passed, 0 failed\n");
}

TEST(Traces, AnErrorMustBeExpected) {
  EXPECT_EQ(replayed(kStart + "SEL 0\nPLAY\nTICK\nSTOP\nUP\nRESYNC | LI=0 NB=F ERR\n"), "1 passed, 0 failed\n");
  EXPECT_TRUE(replayed(kStart + "SEL 0\nUP\nRESYNC | LI=0\n").ends_with("0 passed, 1 failed\n"));
  EXPECT_TRUE(replayed(kStart + "PLAY | ERR\n").ends_with("0 passed, 1 failed\n"));
}

TEST(Traces, ListEditsAreEvents) {
  EXPECT_EQ(replayed(kStart + "ADD C 1000\nSEL 2\nPLAY | CS=3 f=C,\"\" max=1000\nSTOP\nDBL 0 | CS=2\n"
                              "OPEN D 4000 E 5000 | LI=-1\nPLAY | CS=1 f=D,\"\" show=D max=4000\n"),
            "1 passed, 0 failed\n");
}

TEST(Traces, ReplayDownAndTheSynchronisation) {
  EXPECT_EQ(replayed(kStart + "PLAY\nDOWN | LI=1 NB=F\nSEL 0\nRESYNC | LI=1 CS=2 NB=T\n"), "1 passed, 0 failed\n");
}

TEST(Traces, UnknownWordsAreNotPassedOver) {
  EXPECT_THROW(replayed(kStart + "JUMP\n"), UnknownWord);
  EXPECT_THROW(replayed(kStart + "POS 0\n"), UnknownWord);
  EXPECT_THROW(replayed(kStart + "POS 0 x\n"), UnknownWord);
  EXPECT_THROW(replayed(kStart + "POS 7 0\n"), UnknownWord);
  EXPECT_THROW(replayed("PLAY\n"), UnknownWord);
}

}  // namespace
}  // namespace tandem
