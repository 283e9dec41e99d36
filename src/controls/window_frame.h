// The outer box of the panel's window and the screen that it stands on, in whole twips. UI thread.
#pragma once

#include <string>

#include "base/twips.h"
#include "controls/kinds/control.h"

namespace tandem {

class WindowFrame : public Control {
 public:
  Property<Twips> Width{view_changed, 9105};
  Property<Twips> Height{view_changed, 3870};
  Property<Twips> Left{view_changed, 0};
  Property<Twips> Top{view_changed, 0};

  // A song dropped on the window, as a result of the song dialog: its full path, or directory, NUL, name, NUL, name.
  Notification<const std::string&> files_dropped;
  // A saved list dropped on the window: its full path.
  Notification<const std::string&> list_dropped;

  Twips ScreenWidth = 1920 * kTwipsPerPixel;  // set by the view, which knows the screen
  Twips ScreenHeight = 1080 * kTwipsPerPixel;
};

}  // namespace tandem
