// The window's size, scale and place on its screen. The panel counts in twips of its own px: at 150 % there are ten of
// them to a px of the screen.

#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/panel_sizes.h"
#include "widgets/window/panel_type.h"
#include "widgets/window/panel_window.h"
#include "widgets/window/window_scale.h"

namespace tandem {

namespace {

constexpr int kShadow = 24;  // px of the panel that the shadow reaches at most

int pixels(Twips twips) { return twips / kTwipsPerPixel; }

Twips twips(int screen_px, double scale) { return static_cast<Twips>(std::lround(screen_px * kTwipsPerPixel / scale)); }

int screen_px(Twips twips, double scale) { return static_cast<int>(std::lround(twips * scale / kTwipsPerPixel)); }

bool is_window_size(const QSize& size) {
  return size == window_size(WindowSize::Full) || size == window_size(WindowSize::Compact) ||
         size == window_size(WindowSize::Board);
}

// Whole device pixels at every step of 25 %.
int margin_for(double scale) { return 4 * static_cast<int>(std::ceil(kShadow * scale / 4)); }

}  // namespace

double greatest_scale(const QSize& work_area, double share) {
  const QSize panel = window_size(WindowSize::Board);
  const double most = share * std::min(double(work_area.width()) / panel.width(),  //
                                       double(work_area.height()) / panel.height());
  return std::max(1.0, std::floor(most / kScaleStep) * kScaleStep);
}

QPoint PanelWindow::screen_origin() const { return screen() != nullptr ? screen()->geometry().topLeft() : QPoint(); }

WindowSize PanelWindow::size_now() const {
  if (controls_.Painel.Width != kFullWidth) return WindowSize::Compact;
  return controls_.Painel.Height >= kBoardHeight ? WindowSize::Board : WindowSize::Full;
}

void PanelWindow::read_screen() {
  if (screen() == nullptr) return;
  const QSize size = screen()->geometry().size();
  controls_.Painel.ScreenWidth = twips(size.width(), scale());
  controls_.Painel.ScreenHeight = twips(size.height(), scale());
}

// Where the window is, for the panel.
void PanelWindow::take_place() {
  if (placing_ || !isVisible()) return;
  placing_ = true;
  read_screen();
  const QPoint corner = pos() + QPoint(transform_.margin(), transform_.margin()) - screen_origin();
  controls_.Painel.Left = twips(corner.x(), scale());
  controls_.Painel.Top = twips(corner.y(), scale());
  placing_ = false;
}

void PanelWindow::moveEvent(QMoveEvent*) { take_place(); }

// The panel's own size and place. Where the panel says nothing new about its place, the window manager's stands. The
// panel puts height and width one after the other: what it is between the two is no size of the window.
void PanelWindow::follow_frame() {
  const QSize panel(pixels(controls_.Painel.Width), pixels(controls_.Painel.Height));
  if (placing_ || !is_window_size(panel)) return;
  placing_ = true;
  const QSize size = transform_.scaled(panel) + 2 * QSize(transform_.margin(), transform_.margin());
  if (size != this->size()) {
    setBaseSize(size);  // at 150 % of the screen Qt asks the window manager for steps of 2 from here
    setFixedSize(size);
    report_outline();
  }
  const QPoint corner(screen_px(controls_.Painel.Left, scale()), screen_px(controls_.Painel.Top, scale()));
  const QPoint place = screen_origin() + corner - QPoint(transform_.margin(), transform_.margin());
  const bool moved = isVisible() && place != pos();
  if (moved) move(place);
  placing_ = false;
  minimise_->hang_on(size_now());
  close_->hang_on(size_now());
  follow_visibilities();
  if (!moved) update();
}

// Of a window that the desktop has.
void PanelWindow::report_outline() {
  if (!hooks_.outline || !composited_ || !isVisible()) return;
  const QMargins margins(transform_.margin(), transform_.margin(), transform_.margin(), transform_.margin());
  hooks_.outline(rect().marginsRemoved(margins));
}

void PanelWindow::showEvent(QShowEvent*) {
  report_outline();
  watch_screen();
}

void PanelWindow::begin_with_scale(double scale) { lay_out(scale); }

// An X server's window is transparent or opaque for as long as it lives, and a transparent one costs the server more.
void PanelWindow::set_composited(bool composited) {
  if (std::exchange(composited_, composited) == composited) return;
  const bool shown = isVisible();
  setAttribute(Qt::WA_ShowWithoutActivating, shown && !isActiveWindow());
  const QPoint corner = pos() + QPoint(transform_.margin(), transform_.margin());
  hide();
  destroy();
  setAttribute(Qt::WA_TranslucentBackground, composited);
  lay_out(scale());
  if (!shown) return;
  move(corner - QPoint(transform_.margin(), transform_.margin()));
  show();
}

void PanelWindow::lay_out(double scale) {
  transform_ = PanelTransform(scale, composited_ ? margin_for(scale) : 0);
  for (PanelItem* item : items_) item->follow_transform();
  background_ = {};
  use_panel_type(scale);
  read_screen();
  follow_frame();
}

double PanelWindow::greatest_scale() const {
  return screen() == nullptr ? 1 : tandem::greatest_scale(screen()->availableGeometry().size(), 1);
}

void PanelWindow::set_scale(double scale) {
  const double wanted = std::clamp(std::round(scale / kScaleStep) * kScaleStep, 1.0, greatest_scale());
  if (wanted == this->scale()) return;
  if (drag_from_) *drag_from_ *= wanted / this->scale();
  const QPoint corner = pos() + QPoint(transform_.margin(), transform_.margin()) - screen_origin();
  placing_ = true;
  controls_.Painel.Left = twips(corner.x(), wanted);
  controls_.Painel.Top = twips(corner.y(), wanted);
  placing_ = false;
  lay_out(wanted);
  fit_screen();
}

// Of the screen where the window now is, or of what this has become. What is too large for it gets as small as it must;
// a window that fits keeps its size, and its place, which may be between two screens.
void PanelWindow::suit_screen() {
  watch_screen();
  take_place();
  if (scale() > greatest_scale()) set_scale(greatest_scale());
}

void PanelWindow::watch_screen() {
  disconnect(screen_watch_);
  if (screen() == nullptr) return;
  screen_watch_ = connect(screen(), &QScreen::availableGeometryChanged, this, [this] {
    suit_screen();
    fit_screen();
  });
}

void PanelWindow::step_scale(int steps) { set_scale(scale() + steps * kScaleStep); }

// Brings what a greater window has beyond the work area back into it, as far as it goes.
void PanelWindow::fit_screen() {
  if (screen() == nullptr || !isVisible()) return;
  const QRect area = screen()->availableGeometry();
  const QPoint margin(transform_.margin(), transform_.margin());
  const QRect panel(pos() + margin, size() - 2 * QSize(margin.x(), margin.y()));
  const int left = std::max(area.left(), std::min(panel.left(), area.right() + 1 - panel.width()));
  const int top = std::max(area.top(), std::min(panel.top(), area.bottom() + 1 - panel.height()));
  if (QPoint(left, top) != panel.topLeft()) move(QPoint(left, top) - margin);
}

}  // namespace tandem
