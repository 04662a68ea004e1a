#include "qvToolkit/model/documentTransform.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/encodedOutput.h"
#include "qvannot/job.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

using qvToolkit::TransformKind;

struct TransformCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  EncodedOutput m_output;
  qvToolkit::Similarity m_transformation;
};

struct TransformRow {
  char const* m_name;
  TransformKind m_kind;
  char const* m_words;
  char const* m_help;
};

constexpr TransformRow TransformRows[] = {
    {option::Matrix, TransformKind::Matrix, "M00 ... M23",
     "Three rows of four numbers for column vectors, or all 16: a turn times one scale, and a move"},
    {option::Translate, TransformKind::Translate, "X Y Z", "Move by a vector of model space"},
    {option::Scale, TransformKind::Scale, "S",
     "Scale places about the origin by a number above 0; texts keep their size"},
    {option::Rotate, TransformKind::Rotate, "AXIS DEG",
     "Turn about the axis x, y or z of model space, counter-clockwise"},
};

Option makeTransformOption(TransformRow const& row, qvToolkit::Similarity& transformation) {
  return {.m_names = row.m_name,
          .m_value = {.m_word = row.m_words, .m_hasWords = true},
          .m_help = row.m_help,
          .m_read =
              [&row, &transformation](auto const& words) {
                return readTransform(row.m_kind, {words.begin(), words.end()}, transformation);
              },
          .m_group = "Transformation",
          .m_presence = Presence::OneOfGroup};
}

Options TransformCommand::listOptions() {
  Options transformations;
  for (TransformRow const& row : TransformRows)
    transformations.push_back(makeTransformOption(row, m_transformation));
  Option version = makeStreamVersionOption(m_output.m_options);
  version.m_default = "6.27";
  Options const others = {makeStrictFlag(m_isStrict), version};
  return join(makeEncodedOutputOptions(m_output), others, transformations,
              makeLimitOptions(m_output.m_limits));
}

void transformFile(TransformCommand const& command, Reporter& reporter) {
  EncodedOutput const& output = command.m_output;
  qvToolkit::Document document = openInput(output.m_file, output.m_limits, reporter);
  if (!reporter.reportOpened(document)) return;
  if (auto const refusal = checkTrees(document, qvToolkit::makeTreeLimits(output.m_limits))) {
    return reporter.report(document.m_path, {*refusal});
  }
  auto const outcome = transformDocument(document, command.m_transformation);
  reporter.report(document.m_path, outcome.m_findings);
  if (outcome.m_isMoved) writeEncoded(document, output, reporter);
}

void TransformCommand::run(Reporter& reporter) const {
  runEncoding(
      m_output, [&] { transformFile(*this, reporter); }, reporter);
}

constexpr Example Examples[] = {
    {"qvannot transform bracket.json -o moved.qvs --rotate z 90",
     "Turns a whole document by 90 degrees about the z axis and writes it as an object stream."},
    {"qvannot transform bracket.json -o moved.qvs --translate 0 0 -12.5 --stream-version 6.22",
     "Moves it down by 12.5 units of the model, and writes an older version."},
};

}  // namespace

constexpr CommandRow transformCommand = {
    "transform", "Move a whole document, written as an object stream",
    "Views move in the model; their pages stay as they are. Texts, frames and heads keep their size.",
    Examples, makeCommand<TransformCommand>};

}  // namespace qvannot
