// The pictures do not depend on the fonts of the desktop nor on how it wants them drawn.
#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <string>

#include "paint/specimen_picture.h"

namespace tandem {
namespace {

constexpr const char* kNoFonts = "";
// Coloured and heavy letters, set on whole pixels; and a font of the caption font's name that is another one.
constexpr const char* kWilful = R"(<dir>/usr/share/fonts</dir>
<match target="pattern"><test name="family"><string>Roboto Condensed</string></test>
<edit name="family" mode="assign" binding="strong"><string>DejaVu Serif</string></edit></match>
<match target="font"><edit name="hintstyle" mode="assign"><const>hintfull</const></edit>
<edit name="rgba" mode="assign"><const>rgb</const></edit><edit name="embolden" mode="assign"><bool>true</bool></edit>
</match>)";

class DesktopFonts : public ::testing::TestWithParam<const char*> {
 protected:
  void write_settings(const char* settings) const {
    std::ofstream(file("fonts.conf").toStdString())
        << "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\"><fontconfig><cachedir>"
        << file("cache").toStdString() << "</cachedir>" << settings << "</fontconfig>";
  }

  /// Drawn by a program of its own, since fonts are read once.
  QImage drawn(std::string_view name, bool with_settings) const {
    const QString picture = file("picture.png");
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (with_settings) environment.insert("FONTCONFIG_FILE", file("fonts.conf"));
    program.setProcessEnvironment(environment);
    program.start(TANDEM_PANEL_PICTURE, {QString::fromStdString(std::string(name)), "100", picture});
    if (!program.waitForFinished(60'000) || program.exitCode() != 0) return {};
    return QImage(picture);
  }

 private:
  QString file(const char* name) const { return files_.filePath(QLatin1String(name)); }
  QTemporaryDir files_;
};

TEST_P(DesktopFonts, ChangeNothing) {
  write_settings(GetParam());
  for (const std::string_view name : picture_names()) {
    const QImage usual = drawn(name, false);
    ASSERT_FALSE(usual.isNull()) << name;
    EXPECT_EQ(drawn(name, true), usual) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Settings, DesktopFonts, ::testing::Values(kNoFonts, kWilful));

}  // namespace
}  // namespace tandem
