#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/encodedOutput.h"

namespace qvannot {

namespace {

struct EncodeCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Encode};
};

Options EncodeCommand::listOptions() {
  Option version = makeStreamVersionOption(m_run.m_request);
  version.m_presence = Presence::Required;
  return join(makeEncodedOutputOptions(m_run), Options{makeStrictFlag(m_isStrict), version},
              makeLimitOptions(m_run.m_request.m_limits));
}

void EncodeCommand::run(Reporter& reporter) const {
  runDocuments(m_run, reporter);
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
