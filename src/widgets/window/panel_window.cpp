#include "widgets/window/panel_window.h"

#include <QBitmap>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "controls/panel_sizes.h"
#include "paint/panel/panel_background.h"
#include "paint/strokes/ink.h"
#include "paint/surfaces/panels.h"

namespace tandem {

namespace {

constexpr double kCornerRadius = 5;

int pixels(Twips twips) { return twips / kTwipsPerPixel; }

// The box and what is about it up to the next points that are whole device pixels at every step of 25 %.
QRect on_whole_pixels(const QRect& box) {
  constexpr int kStep = 4;  // px
  const auto down = [](int at) { return at - (at % kStep + kStep) % kStep; };
  return {QPoint(down(box.left()), down(box.top())),
          QPoint(down(box.right()) + kStep - 1, down(box.bottom()) + kStep - 1)};
}

bool is_window_size(const QSize& size) {
  return size == window_size(WindowSize::Full) || size == window_size(WindowSize::Compact) ||
         size == window_size(WindowSize::Board);
}

}  // namespace

PanelWindow::PanelWindow(PanelControls& controls, Displays displays, Hooks hooks)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint),
      controls_(controls),
      hooks_(std::move(hooks)) {
  setWindowTitle("Tandem");
  setAttribute(Qt::WA_OpaquePaintEvent);
  // Where windows have no shapes, but may be transparent.
  if (QGuiApplication::platformName().startsWith("wayland")) setAttribute(Qt::WA_TranslucentBackground);
  setAcceptDrops(true);
  add_items(displays);
  add_shortcuts();
  controls_.Painel.view_changed.connect([this] { follow_frame(); });
  // Desktops whose style moves nothing want nothing moved.
  reduced_motion_ = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0;
  read_screen();
  follow_frame();
  item("PLAY")->setFocus(Qt::ActiveWindowFocusReason);
}

PanelWindow::~PanelWindow() {
  controls_.Painel.view_changed.connect(nullptr);
  for (PanelItem* item : items_)
    if (item->model() != nullptr) item->model()->view_changed.connect(nullptr);
  hooks_.frame_wanted = [] {};
  hide();
  for (PanelItem* item : items_) delete item;  // they still speak to their canvas when they go
}

WindowSize PanelWindow::size_now() const {
  if (controls_.Painel.Width != kFullWidth) return WindowSize::Compact;
  return controls_.Painel.Height >= kBoardHeight ? WindowSize::Board : WindowSize::Full;
}

void PanelWindow::read_screen() {
  const QScreen* shown_on = screen();
  if (shown_on == nullptr) return;
  controls_.Painel.ScreenWidth = shown_on->geometry().width() * kTwipsPerPixel;
  controls_.Painel.ScreenHeight = shown_on->geometry().height() * kTwipsPerPixel;
}

// The panel's own size and place. Where the panel says nothing new about its place, the desktop's stands. The panel
// puts height and width one after the other: what it is between the two is no size of the window.
void PanelWindow::follow_frame() {
  const QSize size(pixels(controls_.Painel.Width), pixels(controls_.Painel.Height));
  if (placing_ || !is_window_size(size)) return;
  placing_ = true;
  if (size != this->size()) {
    setBaseSize(size);  // at 150 % the toolkit asks the desktop for steps of 2 from here
    setFixedSize(size);
    shape_corners();
  }
  const QPoint corner(pixels(controls_.Painel.Left), pixels(controls_.Painel.Top));
  const QPoint origin = screen() != nullptr ? screen()->geometry().topLeft() : QPoint();
  const bool moved = isVisible() && corner + origin != pos();
  if (moved) move(corner + origin);
  placing_ = false;
  minimise_->hang_on(size_now());
  close_->hang_on(size_now());
  follow_visibilities();
  if (!moved) update();
}

void PanelWindow::moveEvent(QMoveEvent*) {
  if (placing_ || !isVisible()) return;
  placing_ = true;
  read_screen();
  const QPoint origin = screen() != nullptr ? screen()->geometry().topLeft() : QPoint();
  controls_.Painel.Left = (pos() - origin).x() * kTwipsPerPixel;
  controls_.Painel.Top = (pos() - origin).y() * kTwipsPerPixel;
  placing_ = false;
}

void PanelWindow::shape_corners() {
  if (testAttribute(Qt::WA_TranslucentBackground)) return;
  QBitmap shape(size());
  shape.clear();
  QPainter painter(&shape);
  painter.setBrush(Qt::color1);
  painter.setPen(Qt::NoPen);
  painter.drawRoundedRect(rect(), kCornerRadius, kCornerRadius);
  painter.end();
  setMask(shape);
}

bool PanelWindow::is_shown_in_layout(const PanelItem& item) const {
  const QSize window(pixels(controls_.Painel.Width), pixels(controls_.Painel.Height));
  if (item.place().group == ControlGroup::Chrome) return true;
  if (!item.in_use()) return false;
  if (!QRect(QPoint(), window).contains(item.place().box())) return false;
  const bool list_group = item.place().group == ControlGroup::List;
  const bool equalizer_group = item.place().group == ControlGroup::Equalizer;
  if (equalizer_group && !controls_.MMPanelX1[0].Visible) return false;
  if (list_group && item.model() == nullptr) return controls_.PlayList.Visible;
  return item.model() == nullptr || item.model()->Visible;
}

// A focused item that disappears hands the focus to PLAY, which shows it if that item did.
void PanelWindow::follow_visibilities() {
  PanelItem* focused = dynamic_cast<PanelItem*>(focusWidget());
  const bool shown = focused != nullptr && focused->shows_focus();
  for (PanelItem* item : items_) item->set_scene_visible(is_shown_in_layout(*item));
  if (focused == nullptr || is_shown_in_layout(*focused)) return;
  item("PLAY")->setFocus(shown ? Qt::OtherFocusReason : Qt::MouseFocusReason);
}

void PanelWindow::visibilities_changed() {
  follow_visibilities();
  update();
}

void PanelWindow::repaint_box(const QRect& box) {
  if (!isMinimized() && !covered_) update(box);
}

void PanelWindow::repaint_at_once(const QRect& wanted) {
  if (isMinimized() || covered_) return;
  const QRect box = on_whole_pixels(wanted) & rect();
  const double scale = devicePixelRatioF();
  const QSize pixels = (QSizeF(box.size()) * scale).toSize();
  if (part_.size() != pixels) part_ = QImage(pixels, QImage::Format_RGB32);
  part_.setDevicePixelRatio(scale);
  QPainter painter(&part_);
  set_up(painter, 1);
  painter.translate(-box.topLeft());
  draw_rect(painter, box);
  painter.end();
  const QRectF changed(box);
  show_picture(part_, box.topLeft(), {&changed, 1});
}

void PanelWindow::show_picture(const QImage& picture, const QPointF& at, std::span<const QRectF> changed) {
  if (changed.empty() || isMinimized() || covered_ || draw_directly(*this, picture, at, changed, hooks_.present))
    return;
  for (const QRectF& box : changed) update(box.toAlignedRect());
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

bool PanelWindow::attended() const { return isVisible() && !isMinimized() && (isActiveWindow() || underMouse()); }

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

const QPixmap& PanelWindow::background() {
  const WindowState state{size_now(), controls_.PlayList.Visible};
  if (background_scale_ == devicePixelRatioF() && state == background_state_ && !background_.isNull())
    return background_;
  background_scale_ = devicePixelRatioF();
  background_state_ = state;
  background_ = QPixmap((QSizeF(size()) * background_scale_).toSize());
  background_.fill(testAttribute(Qt::WA_TranslucentBackground) ? Qt::transparent : Qt::black);
  QPainter painter(&background_);
  set_up(painter, background_scale_);
  paint_background(painter, state);
  painter.end();
  background_.setDevicePixelRatio(background_scale_);
  return background_;
}

// One rectangle at a time: a clip of several makes the toolkit draw pictures by spans, on threads of its own.
void PanelWindow::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  set_up(painter, 1);
  for (const QRect& rect : event->region()) {
    draw_rect(painter, rect);
  }
}

void PanelWindow::draw_rect(QPainter& painter, const QRect& rect) {
  painter.setClipRect(rect);
  painter.drawPixmap(0, 0, background());
  draw_items(painter, rect);
}

void PanelWindow::draw_items(QPainter& painter, const QRect& rect) {
  if (visual_->painted_box().contains(rect)) return visual_->draw(painter);
  const QRect glass = control_box("MMPanelX1(1)").box();
  bool shine_due = rect.intersects(glass);
  for (const PanelItem* item : items_) {
    const bool on_glass = item->place().group == ControlGroup::Display;
    if (shine_due && !on_glass) {
      paint_glass_shine(painter, glass);
      shine_due = false;
    }
    if (!item->isHidden() && rect.intersects(item->painted_box())) item->draw(painter);
  }
}

void PanelWindow::closeEvent(QCloseEvent* event) {
  event->accept();
  hooks_.close();
}

PanelItem* PanelWindow::item(std::string_view name) const {
  const auto found = by_name_.find(name);
  return found == by_name_.end() ? nullptr : found->second;
}

bool PanelWindow::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::ScreenChangeInternal:
      read_screen();
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
