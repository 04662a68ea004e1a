#pragma once

namespace qvToolkit {

/// Keeps the numbers of standard streams that the caller has closed from going to files of the process: what
/// reads from one of them or writes to it goes on to fail, with EBADF. To be called before any file is
/// opened.
void reserveStandardStreams() noexcept;

}  // namespace qvToolkit
