// Reports when other windows cover ours completely. An X server reports visibility unless a compositor redirects the
// windows; on Wayland nothing is reported here, and Qt's expose state is all there is. UI thread.
#pragma once

#include <QAbstractNativeEventFilter>
#include <cstdint>
#include <functional>

class QWindow;

namespace tandem {

class OcclusionWatch final : public QAbstractNativeEventFilter {
 public:
  // `changed` is called at every change, starting with the first time that the window is covered.
  OcclusionWatch(QWindow& window, std::function<void(bool covered)> changed);
  ~OcclusionWatch() override;
  OcclusionWatch(const OcclusionWatch&) = delete;
  OcclusionWatch& operator=(const OcclusionWatch&) = delete;

 protected:
  bool nativeEventFilter(const QByteArray& kind, void* event, qintptr*) override;

 private:
  std::function<void(bool)> changed_;
  std::uint32_t window_ = 0;  // of the X server
  bool covered_ = false;
};

}  // namespace tandem
