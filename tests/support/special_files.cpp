#include "support/special_files.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace tandem::test {

void make_socket(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  const int bound = ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  const int error = errno;
  ::close(socket);
  if (bound != 0) throw std::system_error(error, std::generic_category(), path);
}

}  // namespace tandem::test
