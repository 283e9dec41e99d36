#include "platform/desktop/shm_presenter.h"

#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <utility>

#include "platform/desktop/x_server.h"

namespace tandem {

namespace {

constexpr int kPixelBits = 32;
constexpr std::size_t kPixel = sizeof(QRgb);

// Memory is passed as a descriptor, which only a socket of this machine takes.
bool is_local(xcb_connection_t* server) {
  sockaddr_storage address = {};
  socklen_t size = sizeof(address);
  const int fd = xcb_get_file_descriptor(server);
  return getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) == 0 && address.ss_family == AF_UNIX;
}

bool takes_descriptors(xcb_connection_t* server) {
  const xcb_query_extension_reply_t* known = xcb_get_extension_data(server, &xcb_shm_id);
  if (known == nullptr || known->present == 0) return false;
  const auto cookie = xcb_shm_query_version(server);
  const XcbReply<xcb_shm_query_version_reply_t> version(xcb_shm_query_version_reply(server, cookie, nullptr));
  return version && version->major_version == 1 && version->minor_version >= 2;
}

// The window's depth if it has them, else 0: 24, or 32 for one with transparency.
std::uint8_t depth_of_our_pixels(xcb_connection_t* server, xcb_window_t window) {
  const xcb_setup_t* setup = xcb_get_setup(server);
  const bool little = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
  if (little != (std::endian::native == std::endian::little)) return 0;
  const auto cookie = xcb_get_geometry(server, window);
  const XcbReply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(server, cookie, nullptr));
  if (!geometry || (geometry->depth != 24 && geometry->depth != 32)) return 0;
  const std::span formats(xcb_setup_pixmap_formats(setup), setup->pixmap_formats_len);
  const bool words = std::any_of(formats.begin(), formats.end(), [&geometry](const xcb_format_t& format) {
    return format.depth == geometry->depth && format.bits_per_pixel == kPixelBits;
  });
  return words ? geometry->depth : std::uint8_t{0};
}

std::span<std::byte> map(int fd, std::size_t bytes) {
  if (fd < 0 || ftruncate(fd, static_cast<off_t>(bytes)) != 0) return {};
  void* at = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0);
  return at == MAP_FAILED ? std::span<std::byte>() : std::span(static_cast<std::byte*>(at), bytes);
}

}  // namespace

ShmPresenter::~ShmPresenter() {
  give_back();
  if (server_ != nullptr) xcb_free_gc(server_, context_);
}

bool ShmPresenter::is_possible() { return QGuiApplication::platformName() == "xcb"; }

void ShmPresenter::find_server() {
  asked_ = true;
  xcb_connection_t* server = x_server();
  const auto window = static_cast<xcb_window_t>(window_.winId());
  if (server == nullptr || !is_local(server) || !takes_descriptors(server)) return;
  depth_ = depth_of_our_pixels(server, window);
  if (depth_ == 0) return;
  server_ = server;
  context_ = xcb_generate_id(server_);
  const std::uint32_t no_exposures = 0;
  xcb_create_gc(server_, context_, window, XCB_GC_GRAPHICS_EXPOSURES, &no_exposures);
}

void ShmPresenter::share(std::size_t bytes) {
  give_back();
  const int fd = memfd_create("tandem-picture", MFD_CLOEXEC);
  memory_ = map(fd, bytes);
  if (memory_.empty()) {
    if (fd >= 0) ::close(fd);
    return;
  }
  segment_ = xcb_generate_id(server_);
  constexpr std::uint8_t kReadOnly = 1;
  const auto cookie = xcb_shm_attach_fd_checked(server_, segment_, fd, kReadOnly);  // which closes it
  const XcbReply<xcb_generic_error_t> refused(xcb_request_check(server_, cookie));
  if (!refused) return;
  munmap(memory_.data(), memory_.size());
  memory_ = {};
}

void ShmPresenter::give_back() {
  if (memory_.empty()) return;
  xcb_shm_detach(server_, segment_);
  munmap(memory_.data(), memory_.size());
  memory_ = {};
}

// What failed once is not tried again.
bool ShmPresenter::ready_for(const QImage& picture) {
  if (!asked_) find_server();
  const auto bytes =
      2 * static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height()) * kPixel;
  if (server_ == nullptr || picture.depth() != kPixelBits) return false;
  if (bytes > memory_.size()) share(bytes);
  if (memory_.empty()) xcb_free_gc(std::exchange(server_, nullptr), context_);
  return !memory_.empty();
}

void ShmPresenter::show_box(const QImage& picture, const QRect& box, std::size_t at) {
  const auto left = static_cast<std::size_t>(box.left()) * kPixel;
  const std::size_t line = static_cast<std::size_t>(picture.width()) * kPixel;
  std::byte* into = &memory_[at + static_cast<std::size_t>(box.top()) * line + left];
  const uchar* from = picture.constScanLine(box.top()) + left;
  const qsizetype from_line = picture.bytesPerLine();
  for (int rows = box.height(); rows > 0; --rows) {
    std::memcpy(into, from, static_cast<std::size_t>(box.width()) * kPixel);
    into += line;
    from += from_line;
  }
  const auto size = [](int length) { return static_cast<std::uint16_t>(length); };
  const auto place = [](int coordinate) { return static_cast<std::int16_t>(coordinate); };
  xcb_shm_put_image(server_, static_cast<xcb_window_t>(window_.winId()), context_, size(picture.width()),
                    size(picture.height()), size(box.left()), size(box.top()), size(box.width()), size(box.height()),
                    place(box.left()), place(box.top()), depth_, XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment_,
                    static_cast<std::uint32_t>(at));
}

bool ShmPresenter::present(const QImage& picture, std::span<const QRect> boxes) {
  if (!ready_for(picture)) return false;
  second_ = !second_;
  for (const QRect& wanted : boxes) {
    const QRect box = wanted & picture.rect();
    if (!box.isEmpty()) show_box(picture, box, second_ ? memory_.size() / 2 : 0);
  }
  xcb_flush(server_);
  return true;
}

}  // namespace tandem
