// icon_files SIZE...: draws the program's icon for each size in pixels into icon-SIZE.png of this folder.

#include <QImage>
#include <cstdio>

#include "paint/panel/program_icon.h"

int main(int count, char** words) {
  for (int i = 1; i < count; ++i) {
    const QString size = words[i];
    const QString name = "icon-" + size + ".png";
    if (size.toInt() > 0 && tandem::program_icon(size.toInt()).save(name)) continue;
    std::fprintf(stderr, "icon_files: cannot write %s\n", qPrintable(name));
    return 1;
  }
  return 0;
}
