#include <algorithm>
#include <string>
#include <vector>

#include "qvannot/commandList.h"
#include "qvannot/reporter.h"
#include "qvannot/schemas.h"

namespace qvannot {

namespace {

std::vector<std::string_view> listNames() {
  std::vector<std::string_view> names;
  for (Schema const& schema : listSchemas()) names.push_back(schema.m_name);
  return names;
}

std::string readName(std::string const& text, Schema const*& schema) {
  auto const schemas = listSchemas();
  auto const found = std::ranges::find(schemas, text, &Schema::m_name);
  if (found == schemas.end()) return refuseChoice(text, listNames());
  schema = &*found;
  return {};
}

struct SchemaCommand final : Command {
  Options listOptions() override;
  void run(Reporter& reporter) const override;

  Schema const* m_schema = nullptr;  ///< null for the list of all
};

Options SchemaCommand::listOptions() {
  return {{.m_names = "NAME",
           .m_value = {.m_word = "NAME", .m_completion = Completion::Choice, .m_choices = listNames()},
           .m_help = "Of a document; without one, a list of all",
           .m_read = [this](auto const& words) { return readName(words[0], m_schema); }}};
}

void SchemaCommand::run(Reporter& reporter) const {
  reporter.expectNoViews();
  if (m_schema != nullptr) {
    reporter.print(m_schema->m_text);
  } else {
    for (std::string_view const name : listNames()) reporter.print(std::string(name) + '\n');
  }
}

constexpr Example Examples[] = {
    {"qvannot schema inspect",
     "Prints the schema of what 'qvannot inspect --json' writes; without a name, lists all."},
};

}  // namespace

constexpr CommandRow schemaCommand = {
    "schema",
    "Print the JSON Schema of a document",
    "The schemas are of draft 2020-12. They name every member of the JSON documents of this version.",
    Examples,
    makeCommand<SchemaCommand>,
    true};

}  // namespace qvannot
