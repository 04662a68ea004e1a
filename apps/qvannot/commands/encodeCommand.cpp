#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/encodedOutput.h"
#include "qvannot/job.h"

namespace qvannot {

namespace {

struct EncodeCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  EncodedOutput m_output;
};

Options EncodeCommand::listOptions() {
  Option version = makeStreamVersionOption(m_output.m_options);
  version.m_presence = Presence::Required;
  return join(makeEncodedOutputOptions(m_output), Options{makeStrictFlag(m_isStrict), version},
              makeLimitOptions(m_output.m_limits));
}

void EncodeCommand::run(Reporter& reporter) const {
  auto const work = [&] {
    qvToolkit::Document const document = openInput(m_output.m_file, m_output.m_limits, reporter);
    if (reporter.reportOpened(document)) writeEncoded(document, m_output, reporter);
  };
  runEncoding(m_output, work, reporter);
}

constexpr Example Examples[] = {
    {"qvannot encode bracket.json -o bracket.qvs --stream-version 6.22",
     "Writes the document as an object stream of that version, and names what the version cannot hold."},
};

}  // namespace

constexpr CommandRow encodeCommand = {
    "encode", "Write a document as an object stream",
    "Reads either encoding. What the chosen version cannot hold is told, annotation by annotation.", Examples,
    makeCommand<EncodeCommand>};

}  // namespace qvannot
