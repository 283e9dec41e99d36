// The palette's colours of texts and lamps stand out from their ground.
#include "contrast.h"

#include <gtest/gtest.h>

#include "paint/strokes/palette.h"

namespace tandem {
namespace {

TEST(Contrast, OfBlackAndWhiteIsTheGreatest) {
  EXPECT_NEAR(contrast(palette::kBlack, palette::kWhite), 21, 1e-9);
  EXPECT_NEAR(contrast(palette::kWhite, palette::kBlack), 21, 1e-9);
  EXPECT_NEAR(contrast(palette::kRed, palette::kRed), 1, 1e-9);
}

struct Pair {
  const char* what;
  QRgb colour;
  QRgb ground;  // where it goes over from one colour into another, the one with the least contrast
  double least;
};

constexpr Pair kTexts[] = {
    {"legend on a recessed panel", palette::kLegend, palette::kRecessBottom, 10.5},
    {"unchosen legend on a recessed panel", palette::kLegendUnchosen, palette::kRecessBottom, 7.1},
    {"chosen legend on a recessed panel", palette::kWhite, palette::kRecessBottom, 13.6},
    {"legend in a well", palette::kLegend, palette::kWellBottom, 12.8},
    {"unchosen legend and flat gain in a well", palette::kLegendUnchosen, palette::kWellBottom, 8.7},
    {"gain in a well", palette::kWhite, palette::kWellBottom, 16.7},
    {"caption of a key", palette::kLegend, palette::kTileTop, 9.5},
    {"caption of a lit key", palette::kWhite, palette::kTileTop, 12.3},
    {"caption of a key under the pointer", palette::kLegend, palette::kTileHoverTop, 7.6},
    {"caption of a disabled key", palette::kDisabledCaption, palette::kTileFlatTop, 4.0},
    {"face of a disabled key", palette::kDisabledFace, palette::kTileFlatTop, 3.3},
    {"name strip", palette::kNameStrip, palette::kFaceplate[0], 5.6},
    {"signs of the head", palette::kLegend, palette::kFaceplate[0], 6.7},
    {"number in the list", palette::kLegendUnchosen, palette::kGlassTop, 9.9},
    {"directory in the list", palette::kListDirectory, palette::kGlassTop, 6.4},
    {"file in the list", palette::kListFile, palette::kGlassTop, 15.9},
    {"selected file", palette::kWhite, palette::kListSelected, 9.2},
    {"directory of the selected file", palette::kListSelectedDirectory, palette::kListSelected, 7.1},
};

constexpr Pair kLights[] = {
    {"small captions on the glass", palette::kCaptionLed, palette::kGlassTop, 9.6},
    {"title on the glass", palette::kWhite, palette::kGlassTop, 19.2},
    {"title on its dark dots", palette::kWhite, palette::kWhiteDots, 14.2},
    {"position on the glass", palette::kLime, palette::kGlassTop, 14.0},
    {"position on its dark dots", palette::kLime, palette::kLimeDots, 10.0},
    {"time of day on the glass", palette::kOrange, palette::kGlassTop, 7.6},
    {"time of day on its dark dots", palette::kOrange, palette::kOrangeDots, 5.9},
    {"yellow read-out", palette::kYellow, palette::kReadOutDots, 11.3},
    {"aqua read-out", palette::kAqua, palette::kReadOutDots, 9.7},
    {"lime digits", palette::kLime, palette::kLimeSpinnerBottom, 12.3},
    {"white digits", palette::kWhite, palette::kWhiteSpinnerBottom, 10.8},
    {"lime segments, lit and dark", palette::kLime, palette::kLimeSegmentDark, 7.6},
    {"white segments, lit and dark", palette::kWhite, palette::kWhiteSegmentDark, 7.1},
    {"green lamp, lit and dark", palette::kLime, palette::kGreen, 3.7},
    {"yellow lamp, lit and dark", palette::kYellow, palette::kOlive, 3.9},
    {"orange lamp, lit and dark", palette::kOrange, palette::kBrown, 3.1},
    {"zero lamp, lit and dark", palette::kAqua, palette::kTeal, 3.8},
    {"gauge, lit and dark", palette::kGauge, palette::kOlive, 2.2},
    {"sign lamp, lit and dark", palette::kRed, palette::kMaroon, 2.7},
};

TEST(Contrast, OfTextsIsKept) {
  for (const Pair& pair : kTexts)
    EXPECT_GE(contrast(pair.colour, pair.ground), pair.least - kContrastRounding) << pair.what;
}

TEST(Contrast, OfLightsIsKept) {
  for (const Pair& pair : kLights)
    EXPECT_GE(contrast(pair.colour, pair.ground), pair.least - kContrastRounding) << pair.what;
}

}  // namespace
}  // namespace tandem
