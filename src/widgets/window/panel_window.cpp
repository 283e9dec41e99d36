#include "widgets/window/panel_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "widgets/accessibility/panel_accessible.h"
#include "widgets/items/label_item.h"
#include "widgets/items/song_list_item.h"
#include "widgets/items/time_text.h"
#include "widgets/keys/lamp_item.h"
#include "widgets/values/fader_item.h"
#include "widgets/window/window_scale.h"

namespace tandem {

PanelWindow::PanelWindow(PanelControls& controls, DisplayViews displays, Hooks hooks)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      controls_(controls),
      hooks_(std::move(hooks)) {
  setWindowTitle("Tandem");
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAcceptDrops(true);
  add_items(std::move(displays));
  add_shortcuts();
  controls_.Painel.view_changed.connect([this] { follow_frame(); });
  // Desktops whose style moves nothing want nothing moved.
  reduced_motion_ = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0;
  const QSize work_area = screen() != nullptr ? screen()->availableGeometry().size() : QSize();
  begin_with_scale(scale_that_suits(work_area));
  setFocus(Qt::OtherFocusReason);  // no control has the keyboard until the user gives it to one
}

PanelWindow::~PanelWindow() {
  controls_.Painel.view_changed.connect(nullptr);
  for (PanelItem* item : items_)
    if (item->model() != nullptr) item->model()->view_changed.connect(nullptr);
  hooks_.frame_wanted = [] {};
  hide();
  for (PanelItem* item : items_) delete item;  // they still ask their canvas when they go
}

bool PanelWindow::is_shown_in_layout(const PanelItem& item) const {
  const QRect panel(QPoint(), window_size(size_now()));
  if (item.place().group == ControlGroup::Chrome) return true;
  if (!item.in_use()) return false;
  if (!panel.contains(item.place().box())) return false;
  const bool list_group = item.place().group == ControlGroup::List;
  const bool equalizer_group = item.place().group == ControlGroup::Equalizer;
  if (equalizer_group && !controls_.MMPanelX1[0].Visible) return false;
  if (list_group && item.model() == nullptr) return controls_.PlayList.Visible;
  return item.model() == nullptr || item.model()->Visible;
}

// A focused item that disappears gives the focus to PLAY if it showed it, else to the window.
void PanelWindow::follow_visibilities() {
  PanelItem* focused = dynamic_cast<PanelItem*>(focusWidget());
  const bool shown = focused != nullptr && focused->shows_focus();
  for (PanelItem* item : items_) item->set_scene_visible(is_shown_in_layout(*item));
  if (focused == nullptr || is_shown_in_layout(*focused)) return;
  if (shown) {
    item("PLAY")->setFocus(Qt::OtherFocusReason);
  } else {
    setFocus(Qt::OtherFocusReason);
  }
}

void PanelWindow::visibilities_changed() {
  follow_visibilities();
  update();
}

void PanelWindow::value_changed(PanelItem& item) { post_value_changed(item); }

void PanelWindow::description_changed(PanelItem& item) { post_description_changed(item); }

void PanelWindow::show_mix(const MixView& view) {
  list_->show_mix(view);
  position_->show_mix(view);
  for (LeadLampItem* lamp : lead_lamps_) lamp->set_mixing(view.other.has_value(), view.paused);
  const QString left = minutes_and_seconds(view.left);
  total_->setToolTip(view.songs_left == 0 ? QString()
                                          : QStringLiteral("Left in the list: %1, %2 %3")
                                                .arg(left)
                                                .arg(view.songs_left)
                                                .arg(view.songs_left == 1 ? "song" : "songs"));
}

void PanelWindow::start_moving(PanelItem& item) {
  const auto known =
      std::find_if(moving_.begin(), moving_.end(), [&item](const Moving& moving) { return moving.item == &item; });
  if (known == moving_.end()) {
    moving_.push_back({&item, true, false});
  } else {
    known->at_rest = false;
  }
  hooks_.frame_wanted();
}

bool PanelWindow::exposed() const {
  const QWindow* window = windowHandle();
  return isVisible() && !isMinimized() && !covered_ && window != nullptr && window->isExposed();
}

void PanelWindow::set_covered(bool covered) {
  if (std::exchange(covered_, covered) == covered || covered) return;
  update();  // what has changed meanwhile
  hooks_.frame_wanted();
}

bool PanelWindow::attended() const { return isVisible() && !isMinimized() && (underMouse() || isActiveWindow()); }

bool PanelWindow::frame(double seconds) {
  // By index: an item may set another one in motion, which moves the list.
  // NOLINTNEXTLINE(modernize-loop-convert)
  for (std::size_t i = 0; i < moving_.size(); ++i) {
    moving_[i].at_rest = true;
    const bool moves = moving_[i].item->advance(std::exchange(moving_[i].fresh, false) ? 0 : seconds);
    if (moves) moving_[i].at_rest = false;
  }
  std::erase_if(moving_, [](const Moving& moving) { return moving.at_rest; });
  const bool displays_move = visual_->isVisible() && visual_->move_displays(seconds);
  return displays_move || !moving_.empty();
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  hooks_.close();
}

PanelItem* PanelWindow::item(std::string_view name) const {
  const auto found = by_name_.find(name);
  return found == by_name_.end() ? nullptr : found->second;
}

// From the window itself the chain begins at PLAY.
bool PanelWindow::focusNextPrevChild(bool next) {
  if (focusWidget() != nullptr && focusWidget() != this) return QWidget::focusNextPrevChild(next);
  item(next ? "PLAY" : "Close")->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  return true;
}

bool PanelWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ScreenChangeInternal:  // its move came before, when the screen was still the old one
      suit_screen();
      break;
    case QEvent::WindowStateChange:  // what has changed while it was minimised
      update();
      [[fallthrough]];
    case QEvent::Show:
    case QEvent::WindowActivate:
      hooks_.frame_wanted();
      break;
    default:
      break;
  }
  return QWidget::event(event);
}

}  // namespace tandem
