#include "files/standardStreams.h"

#include <fcntl.h>
#include <unistd.h>

namespace qvToolkit {

void reserveStandardStreams() noexcept {
  // Each gets the lowest number that is free. A mere path can be neither read nor written.
  int number = STDIN_FILENO;
  while (number >= 0 && number <= STDERR_FILENO) number = open("/", O_PATH);
  if (number > STDERR_FILENO) close(number);
}

}  // namespace qvToolkit
