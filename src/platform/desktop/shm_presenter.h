// Presents parts of a window's picture on an X server through shared memory (MIT-SHM): each box costs a few bytes on
// the wire, whatever its size, and no reply is waited for. Without an X server, or with one that cannot share memory
// (remote, or too old), present() returns false and the caller falls back to Qt. UI thread.
#pragma once

#include <QImage>
#include <QRect>
#include <cstddef>
#include <cstdint>
#include <span>

class QWindow;
struct xcb_connection_t;

namespace tandem {

class ShmPresenter {
 public:
  // False without an X server.
  static bool is_possible();

  explicit ShmPresenter(QWindow& window) : window_(window) {}
  ~ShmPresenter();
  ShmPresenter(const ShmPresenter&) = delete;
  ShmPresenter& operator=(const ShmPresenter&) = delete;

  // Shows the `boxes` of `picture`, which is what the whole window holds; all in device pixels. False: nothing was
  // shown. The first call asks the server what it can and waits for the answers.
  bool present(const QImage& picture, std::span<const QRect> boxes);

 private:
  bool ready_for(const QImage& picture);
  void find_server();
  void share(std::size_t bytes);
  void give_back();
  void show_box(const QImage& picture, const QRect& box, std::size_t at);

  QWindow& window_;
  bool asked_ = false;
  xcb_connection_t* server_ = nullptr;  // one that shares memory
  std::uint8_t depth_ = 0;              // of the window's pixels
  std::uint32_t context_ = 0;           // the server's, for drawing
  std::uint32_t segment_ = 0;           // the server's id of the segment
  std::span<std::byte> memory_;         // two pictures, drawn in turn: the server may still read the one before
  bool second_ = false;
};

}  // namespace tandem
