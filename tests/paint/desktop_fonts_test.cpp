// The pictures do not depend on the fonts of the desktop nor on how it wants them drawn.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <string>

#include "tools/pictures/sample_picture.h"

namespace tandem {
namespace {

constexpr const char* kNoFonts = "";
// Coloured and heavy letters, set on whole pixels; and a font of the caption font's name that is another one.
constexpr const char* kUnusual = R"(<dir>/usr/share/fonts</dir>
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

  /// All pictures, each in a file of this folder. Drawn by a program of its own, since fonts are read once.
  QString all_drawn(bool with_settings) const {
    const QString folder = file(with_settings ? "unusual" : "usual");
    QDir().mkpath(folder);
    EXPECT_TRUE(run(TANDEM_PANEL_PICTURE, {"100", folder}, with_settings));
    return folder;
  }

  /// Letters as Qt draws them by itself.
  QImage qt_letters(const QString& family, bool with_settings) const {
    const QString picture = file("picture.png");
    QFile::remove(picture);
    return run(TANDEM_FONT_CHOICE, {family, picture}, with_settings) ? QImage(picture) : QImage();
  }

 private:
  bool run(const char* maker, const QStringList& arguments, bool with_settings) const {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (with_settings) environment.insert("FONTCONFIG_FILE", file("fonts.conf"));
    program.setProcessEnvironment(environment);
    program.start(maker, arguments);
    return program.waitForFinished(60'000) && program.exitCode() == 0;
  }
  QString file(const char* name) const { return files_.filePath(QLatin1String(name)); }
  QTemporaryDir files_;
};

TEST_P(DesktopFonts, ChangeNothing) {
  write_settings(GetParam());
  const QDir usual(all_drawn(false));
  const QDir unusual(all_drawn(true));
  for (const std::string_view name : picture_names()) {
    const QString file = QString::fromStdString(std::string(name)) + "-100.png";
    const QImage picture(usual.filePath(file));
    ASSERT_FALSE(picture.isNull()) << name;
    EXPECT_EQ(QImage(unusual.filePath(file)), picture) << name;
  }
}

// Else the test above would prove nothing.
TEST_P(DesktopFonts, ChangeWhatQtDrawsByItself) {
  write_settings(GetParam());
  const QImage usual = qt_letters("Roboto Condensed", false);
  const QImage unusual = qt_letters("Roboto Condensed", true);
  ASSERT_FALSE(usual.isNull());
  ASSERT_FALSE(unusual.isNull());
  EXPECT_EQ(qt_letters("Roboto Condensed", false), usual) << "the same again without them";
  EXPECT_NE(unusual, usual);
}

INSTANTIATE_TEST_SUITE_P(Settings, DesktopFonts, ::testing::Values(kNoFonts, kUnusual));

}  // namespace
}  // namespace tandem
