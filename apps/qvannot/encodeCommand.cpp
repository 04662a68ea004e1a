#include "commands.h"
#include "encodedOutput.h"
#include "job.h"

namespace qvannot {

void run(EncodeCommand const& command, Reporter& reporter) {
  auto const work = [&] {
    qvToolkit::Document const document = openInput(command.m_file, command.m_limits, reporter);
    if (reporter.reportOpened(document)) writeEncoded(document, command, reporter);
  };
  runEncoding(command, work, reporter);
}

}  // namespace qvannot
