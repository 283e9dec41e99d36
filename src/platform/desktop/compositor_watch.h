// Whether the desktop composites windows, so that they may be partly transparent: on Wayland always, on X11 while a
// compositing manager runs, which may start and end at any time. UI thread; gone before the QApplication.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

namespace tandem {

class CompositorWatch final : public QAbstractNativeEventFilter {
 public:
  // `changed` is called at every change from what composites() was at first, while Qt handles an event.
  explicit CompositorWatch(std::function<void()> changed);
  ~CompositorWatch() override;
  CompositorWatch(const CompositorWatch&) = delete;
  CompositorWatch& operator=(const CompositorWatch&) = delete;

  bool composites() const { return composites_; }

 protected:
  bool nativeEventFilter(const QByteArray& kind, void* event, qintptr*) override;

 private:
  void watch_x_server();

  std::function<void()> changed_;
  std::uint32_t selection_ = 0;  // an atom of the X server
  std::uint8_t event_ = 0;       // the code of the event at which the selection's owner changes; 0: none
  bool composites_ = false;
};

}  // namespace tandem
