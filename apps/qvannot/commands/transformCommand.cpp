#include "qvToolkit/model/documentTransform.h"
#include "qvannot/cli/sharedOptions.h"
#include "qvannot/commandList.h"
#include "qvannot/encodedOutput.h"
#include "qvannot/optionNames.h"

namespace qvannot {

namespace {

using qvToolkit::TransformKind;

struct TransformCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  DocumentRun m_run{qvToolkit::Action::Transform};
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
  qvToolkit::Request& request = m_run.m_request;
  Options transformations;
  for (TransformRow const& row : TransformRows)
    transformations.push_back(makeTransformOption(row, request.m_transformation));
  Option version = makeStreamVersionOption(request);
  version.m_default = "6.27";
  return join(makeEncodedOutputOptions(m_run), Options{makeStrictFlag(m_isStrict), version}, transformations,
              makeLimitOptions(request.m_limits));
}

void TransformCommand::run(Reporter& reporter) const {
  runDocuments(m_run, reporter);
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
