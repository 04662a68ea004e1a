#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "json/jsonReader.h"
#include "model/variantLookup.h"
#include "qvToolkit/stream/streamEncoder.h"
#include "tests/support/modelComparison.h"
#include "tests/support/openTest.h"
#include "tests/support/variantWriter.h"

namespace {

using namespace qvToolkit;

using ExactnessTest = OpenTest;

/// Whether a finding may say that something of the document did not come through.
bool tellsOfALoss(Finding const& finding) {
  return finding.m_severity != Severity::Info;
}

/// A document that is changed at random places.
class Mutation {
 public:
  explicit Mutation(std::uint32_t seed) : m_state(seed * 2654435761U + 1U) {}

  void change(qv::qvVariant& root) {
    std::vector<qv::qvVariant*> places;
    collect(root, places);
    *places[next(places.size())] = takeValue();
  }

 private:
  std::size_t next(std::size_t count) {
    m_state = m_state * 1664525U + 1013904223U;
    return (m_state >> 8U) % count;
  }

  /// Every value below the views; their keys stay.
  static void collect(qv::qvVariant& value, std::vector<qv::qvVariant*>& places) {
    if (value.isList()) {
      for (qv::qvVariant& element : value.editList()) {
        places.push_back(&element);
        collect(element, places);
      }
    } else if (value.isMap()) {
      for (auto& [key, entry] : value.editMap()) {
        if (key != "ver" && key != "views") places.push_back(&entry);
        collect(entry, places);
      }
    }
  }

  qv::qvVariant takeValue() {
    static std::vector<qv::qvVariant> const Pool = {{},
                                                    true,
                                                    false,
                                                    0,
                                                    1,
                                                    5,
                                                    -1,
                                                    0.5,
                                                    0.25,
                                                    2.5,
                                                    12.345,
                                                    655.35,
                                                    655.36,
                                                    1e300,
                                                    -1e39,
                                                    3e38,
                                                    1e-300,
                                                    1e-40,
                                                    0.1,
                                                    16777217,
                                                    "",
                                                    "5",
                                                    "0.5",
                                                    "true",
                                                    "false",
                                                    "yes",
                                                    "1e5",
                                                    "abc",
                                                    "zz",
                                                    "FF00fF",
                                                    "12zzzz",
                                                    "00000z",
                                                    "circle",
                                                    "arrow",
                                                    "tl",
                                                    "rb",
                                                    "outin",
                                                    "sub",
                                                    "text",
                                                    "raster",
                                                    "none",
                                                    "a\r\nb\rc",
                                                    "a\nb\n",
                                                    VariantList{},
                                                    VariantList{1, 2, 3},
                                                    VariantList{0.1, -0.0, 1e-7},
                                                    VariantList{"a", "b"},
                                                    VariantList{1, 2},
                                                    VariantList{"1", true},
                                                    VariantList{1e300, 0, 0},
                                                    VariantList{1, "2", 3},
                                                    VariantList{VariantMap{}},
                                                    VariantList{VariantList{}},
                                                    VariantMap{},
                                                    VariantMap{{"text", "x"}},
                                                    VariantMap{{"heightem", 1.5}}};
    return Pool[next(Pool.size())];
  }

  std::uint32_t m_state;
};

std::vector<qv::qvVariant> readExamples() {
  std::vector<qv::qvVariant> documents;
  std::vector<std::filesystem::path> paths;
  for (auto const& entry : std::filesystem::directory_iterator(QVA_EXAMPLES)) {
    if (entry.path().extension() == ".json") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  for (auto const& path : paths) {
    std::ifstream file(path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), {});
    documents.push_back(readJson(text, 1000).m_value);
  }
  return documents;
}

std::optional<double> readWhole(std::string const& text) {
  double number = 0;
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

/// Line breaks of all kinds as LF.
std::string foldBreaks(std::string const& text) {
  std::string folded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
    folded += text[i] == '\r' ? '\n' : text[i];
  }
  return folded;
}

/// Whether a value of a document says what the model holds, which is written in its own kind.
bool saysTheSame(std::string const& key, qv::qvVariant const& said, qv::qvVariant const& held) {
  using Kind = qv::qvVariant::Kind;
  std::string const text = said.toString();
  if (key == "metadata") return said == held;
  if (held.getKind() == Kind::Bool)
    return text == (held.toBool() ? "true" : "false") || text == (held.toBool() ? "1" : "0");
  if (held.getKind() == Kind::Real) {
    double const number = said.isString() ? readWhole(text).value_or(std::nan("")) : said.toReal();
    if (said.isMap() || said.isList()) return false;
    if (key == "heightem") return std::abs(number - held.toReal()) <= 0.0152;
    return static_cast<double>(static_cast<float>(number)) == held.toReal() && std::isfinite(held.toReal());
  }
  if (said.isMap() || said.isList()) return false;
  if (key == "color")
    return std::equal(text.begin(), text.end(), held.getString().begin(), held.getString().end(),
                      [](char a, char b) { return std::toupper(a) == b; });
  if (key == "anchorloc" && text == "rb") return held.getString() == "rt";
  bool const isName =
      key == "frameshape" || key == "head" || key == "arrowdir" || key == "anchorloc" || key == "type";
  return foldBreaks(text) == foldBreaks(held.getString()) || (isName && text.empty());
}

/// The place of the first value that does not say what the model holds; empty when there is none. Null says
/// nothing.
std::string findUnsaid(qv::qvVariant const& said, qv::qvVariant const& held, std::string const& key,
                       std::string const& place) {
  if (said.isNull() || key == "ver") return {};
  if (held.isMap() && said.isMap() && key != "metadata") {
    for (auto const& [name, value] : said.toMap()) {
      if (value.isNull()) continue;
      // What stands beside a key that counts, or is not looked at at this version, is reported as an info.
      qv::qvVariant const* const found = findValue(held.toMap(), name == "childs" ? "children" : name);
      if (found == nullptr || (name == "text" && findList(said.toMap(), "lines") != nullptr)) continue;
      if (std::string unsaid = findUnsaid(value, *found, name, place + "/" + name); !unsaid.empty())
        return unsaid;
    }
    return {};
  }
  if (held.isList() && said.isList()) {
    VariantList const& list = said.toList();
    if (list.size() != held.toList().size()) return place;
    for (std::size_t i = 0; i < list.size(); ++i) {
      std::string unsaid = findUnsaid(list[i], held.toList()[i], key, place + "/" + std::to_string(i));
      if (!unsaid.empty()) return unsaid;
    }
    return {};
  }
  return saysTheSame(key, said, held) ? std::string() : place;
}

VariantList const& viewsOf(qv::qvVariant const& root, VariantList& lone) {
  if (root.isList()) return root.toList();
  if (VariantList const* const views = findList(root.toMap(), "views")) return *views;
  lone = {root};
  return lone;
}

class ExactnessOfMutants : public OpenTest {
 protected:
  /// What the model holds is what the document says.
  static void expectAllSaid(qv::qvVariant const& root, Document const& document) {
    VariantList lone;
    VariantList const& views = viewsOf(root, lone);
    ASSERT_EQ(views.size(), document.m_views.size());
    for (std::size_t i = 0; i < views.size(); ++i) {
      LoadedView const& loaded = document.m_views[i];
      ASSERT_NE(loaded.m_view, nullptr) << writeJsonText(root);
      EXPECT_EQ(findUnsaid(views[i], writeVariant(*loaded.m_view, loaded.m_version), "view", ""), "")
          << writeJsonText(views[i]);
    }
  }

  static void expectSame(Document const& a, Document const& b) {
    ASSERT_EQ(a.m_views.size(), b.m_views.size());
    for (std::size_t i = 0; i < a.m_views.size(); ++i) {
      ASSERT_NE(b.m_views[i].m_view, nullptr);
      EXPECT_EQ(qvStreamTest::findDifference(*a.m_views[i].m_view, *b.m_views[i].m_view), "");
    }
  }
};

TEST_F(ExactnessOfMutants, WithoutAFindingAllComesThroughAndStaysWhenWrittenAndReadAgain) {
  std::vector<qv::qvVariant> const examples = readExamples();
  ASSERT_GE(examples.size(), 20U);
  std::size_t exact = 0;
  for (std::uint32_t seed = 0; seed < 3000; ++seed) {
    qv::qvVariant root = examples[seed % examples.size()];
    Mutation mutation(seed);
    for (std::uint32_t i = 0; i <= seed % 3; ++i) mutation.change(root);
    Document const document = read(writeJsonText(root));
    if (getFailure(document) != ExitDone || std::ranges::any_of(document.m_findings, tellsOfALoss)) continue;
    ++exact;
    ASSERT_NO_FATAL_FAILURE(expectAllSaid(root, document)) << seed;
    EncodedDocument const encoded = encodeDocument(document, {});
    if (encoded.m_findings.empty()) expectSame(document, readDocument(encoded.m_bytes, "test.qvs"));
    ASSERT_FALSE(HasFailure()) << seed;
  }
  EXPECT_GT(exact, 200U);
  EXPECT_LT(exact, 1500U);
}

struct Planted {
  char const* m_fragment;  ///< in the first annotation, a text
  char const* m_pointer;   ///< below the annotation
};

TEST_F(ExactnessTest, EachKindOfInexactValueIsOneFindingAtItsPlace) {
  std::vector<Planted> const all = {
      {R"("name":[1])", "/name"},
      {R"("name":{})", "/name"},
      {R"("color":"12zzzz")", "/color"},
      {R"("color":[])", "/color"},
      {R"("color":true)", "/color"},
      {R"("position":[1e300,0,0])", "/position"},
      {R"("isframelocked":2)", "/isframelocked"},
      {R"("isscalelocked":"no")", "/isscalelocked"},
      {R"("isignoreztest":{})", "/isignoreztest"},
      {R"("frameshape":"box")", "/frameshape"},
      {R"("frameshape":1)", "/frameshape"},
      {R"("metadata":5)", "/metadata"},
      {R"("children":5)", "/children"},
      {R"("leaders":5)", "/leaders"},
      {R"("leaders":[5])", "/leaders/0"},
      {R"("leaders":[{"pos":[1,2]}])", "/leaders/0/pos"},
      {R"("leaders":[{"pos":[1,2,1e39]}])", "/leaders/0/pos"},
      {R"("leaders":[{"pos":[1,2,3],"head":3}])", "/leaders/0/head"},
      {R"("measures":"m")", "/measures"},
      {R"("measures":[{"A":[0,0,0],"B":[1,0,0]}])", "/measures/0"},
      {R"("measures":[{"A":[0,0,0],"B":[1e39,0,0],"V":[0,1,0]}])", "/measures/0/B"},
      {R"("measures":[{"A":[0,0,0],"B":[1,0,0],"V":[0,1,0],"arrowdir":"in"}])", "/measures/0/arrowdir"},
      {R"("defaulttextprop":5)", "/defaulttextprop"},
      {R"("defaulttextprop":{"heightem":5000})", "/defaulttextprop/heightem"},
      {R"("defaulttextprop":{"heightem":-2})", "/defaulttextprop/heightem"},
      {R"("defaulttextprop":{"heightem":"high"})", "/defaulttextprop/heightem"},
      {R"("defaulttextprop":{"heightem":null})", "/defaulttextprop/heightem"},
      {R"("defaulttextprop":{"font":["Arial"]})", "/defaulttextprop/font"},
      {R"("defaulttextprop":{"bold":"bold"})", "/defaulttextprop/bold"},
      {R"("lines":5)", "/lines"},
      {R"("lines":[5])", "/lines/0"},
      {R"("lines":[[5]])", "/lines/0/0"},
      {R"("lines":[[{"text":[]}]])", "/lines/0/0/text"},
      {R"("lines":[[{"text":"a","type":"SUP"}]])", "/lines/0/0/type"},
      {R"("lines":[[{"text":"a","italic":0.5}]])", "/lines/0/0/italic"},
      {R"("text":{})", "/text"},
      {R"("children":[{"type":"raster","sizeem":["a","b"]}])", "/children/0/sizeem"},
      {R"("children":[{"type":"raster","sizeem":[1,1e39]}])", "/children/0/sizeem"},
      {R"("children":[{"type":"raster","rastername":[]}])", "/children/0/rastername"},
      {R"("children":[{"type":"raster","anchorloc":"TL"}])", "/children/0/anchorloc"},
      {R"("anchorloc":"zz")", "/anchorloc"},
      {R"("unknown":1)", "/unknown"},
  };
  for (Planted const& planted : all) {
    Document const document =
        read(makeView("6.22", std::string(R"("annotations":[{"type":"text",)") + planted.m_fragment + "}]"));
    Findings findings = document.m_findings;
    std::erase_if(findings, [](Finding const& each) { return each.m_code == FindingCode::ReaderMessage; });
    ASSERT_EQ(findings.size(), 1U) << planted.m_fragment;
    EXPECT_EQ(findings[0].m_place.m_jsonPointer, std::string("/annotations/0") + planted.m_pointer);
    EXPECT_TRUE(findings[0].m_place.m_line && findings[0].m_place.m_column) << planted.m_fragment;
    EXPECT_FALSE(findings[0].m_address.empty()) << planted.m_fragment;
  }
}

}  // namespace
