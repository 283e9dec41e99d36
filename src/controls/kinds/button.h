// The plain controls of the window: buttons, panels, text labels. UI thread.
#pragma once

#include <string>
#include <utility>

#include "base/colours.h"
#include "controls/kinds/control.h"

namespace tandem {

class Button : public Control {
 public:
  explicit Button(Colour back_colour, std::string caption = {}, int picture = kNoPicture)
      : BackColor(view_changed, back_colour), Picture(view_changed, picture), Caption(std::move(caption)) {}

  static constexpr int kNoPicture = -1;
  Property<Colour> BackColor;
  Property<int> Picture;  // index of the face in Icone, or kNoPicture
  const std::string Caption;

  Notification<> click;
  Notification<> press;
  Notification<> release;
};

class Panel : public Control {
 public:
  explicit Panel(std::string caption = {}) : Caption(std::move(caption)) {}
  const std::string Caption;
  Notification<> click;
};

class Label : public Control {
 public:
  explicit Label(std::string caption) : Caption(view_changed, std::move(caption)) {}
  Property<std::string> Caption;
};

struct Picture {  // size of a picture, in twips
  std::int32_t Height = 0;
  std::int32_t Width = 0;
};

}  // namespace tandem
