// What the program is: version, licence, the libraries that it stands on, how it was built. UI thread.
#pragma once

#include <QString>

class QWidget;

namespace tandem {

QString about_text();
void show_about_box(QWidget* window);  // does not wait: the timers go on

}  // namespace tandem
