#include "app/screen_pixels.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace tandem::test {

std::vector<std::uint32_t> screen_pixels(int left, int top, int width, int height) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(xcb_connect(nullptr, nullptr),
                                                                            &xcb_disconnect);
  if (xcb_connection_has_error(server.get()) != 0) throw std::runtime_error("no screen");
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
  const auto cookie = xcb_get_image(server.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, root, static_cast<std::int16_t>(left),
                                    static_cast<std::int16_t>(top), static_cast<std::uint16_t>(width),
                                    static_cast<std::uint16_t>(height), 0xFFFFFFFF);
  const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> image(
      xcb_get_image_reply(server.get(), cookie, nullptr), &std::free);
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  if (!image || static_cast<std::size_t>(xcb_get_image_data_length(image.get())) != count * sizeof(std::uint32_t))
    throw std::runtime_error("the screen gives no picture");
  std::vector<std::uint32_t> pixels(count);
  std::memcpy(pixels.data(), xcb_get_image_data(image.get()), count * sizeof(std::uint32_t));
  for (std::uint32_t& pixel : pixels) pixel &= 0xFFFFFF;
  return pixels;
}

}  // namespace tandem::test
