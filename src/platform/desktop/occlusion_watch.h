// Whether other windows hide one of ours wholly, as far as the desktop tells: an X server tells unless a compositor
// holds the windows' pictures; a Wayland desktop tells by the window's being exposed. UI thread.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

class QWindow;

namespace tandem {

class OcclusionWatch final : public QAbstractNativeEventFilter {
 public:
  // `tell` is called at every change, but not before the window is hidden for the first time.
  OcclusionWatch(QWindow& window, std::function<void(bool covered)> tell);
  ~OcclusionWatch() override;
  OcclusionWatch(const OcclusionWatch&) = delete;
  OcclusionWatch& operator=(const OcclusionWatch&) = delete;

 protected:
  bool nativeEventFilter(const QByteArray& kind, void* event, qintptr*) override;

 private:
  std::function<void(bool)> tell_;
  std::uint32_t window_ = 0;  // of the X server
  bool covered_ = false;
};

}  // namespace tandem
