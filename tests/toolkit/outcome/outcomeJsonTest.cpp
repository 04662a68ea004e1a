#include "qvToolkit/outcome/outcomeJson.h"

#include <gtest/gtest.h>

#include "tests/toolkit/outcome/outcomeGenerator.h"
#include "text/utf8.h"

namespace {

using namespace qvToolkit;

template <class Value>
std::string write(void (*writer)(JsonWriter&, Value const&), Value const& value) {
  JsonWriter json;
  writer(json, value);
  return json.takeText();
}

/// What is written is one line of UTF-8, and comes back as it was, as it does a second time.
template <class Value>
void requireRoundTrip(Value const& value, void (*writer)(JsonWriter&, Value const&),
                      std::string (*reader)(std::string, Value&)) {
  std::string const text = write(writer, value);
  RC_ASSERT(text.find('\n') == text.size() - 1);
  RC_ASSERT(isValidUtf8(text));
  Value back;
  RC_ASSERT(reader(text, back) == "");
  RC_ASSERT(isSame(back, value));
  RC_ASSERT(write(writer, back) == text);
}

/// Whatever becomes of the text, it is refused with a reason or it is a value.
template <class Value>
void requireReason(std::string text, void (*writer)(JsonWriter&, Value const&),
                   std::string (*reader)(std::string, Value&)) {
  for (int i = *rc::gen::inRange(1, 4); i > 0; --i) {
    auto const at = *rc::gen::inRange<std::size_t>(0, text.size());
    auto const byte =
        *rc::gen::oneOf(rc::gen::arbitrary<char>(), rc::gen::elementOf(std::string("{}[]\",:0-n")));
    if (*rc::gen::arbitrary<bool>()) {
      text[at] = byte;
    } else {
      text.erase(at, *rc::gen::inRange<std::size_t>(1, 20));
    }
    if (text.empty()) text = " ";
  }
  Value value;
  std::string const problem = reader(text, value);
  if (problem.empty()) requireRoundTrip(value, writer, reader);
}

TEST(OutcomeJson, GivesEveryOutcomeBack) {
  EXPECT_TRUE(rc::check("outcome", [] { requireRoundTrip(*anyOutcome(), writeOutcome, readOutcome); }));
}

TEST(OutcomeJson, GivesEveryRequestBack) {
  EXPECT_TRUE(rc::check("request", [] { requireRoundTrip(*anyRequest(), writeRequest, readRequest); }));
}

TEST(OutcomeJson, GivesTheFactsOfEveryRunBack) {
  EXPECT_TRUE(rc::check("facts", [] { requireRoundTrip(*anyRunFacts(), writeRunFacts, readRunFacts); }));
}

TEST(OutcomeJson, TakesAnyBytesForAReasonOrAValue) {
  EXPECT_TRUE(rc::check("damaged outcome", [] {
    requireReason(write(writeOutcome, *anyOutcome()), writeOutcome, readOutcome);
  }));
  EXPECT_TRUE(rc::check("damaged request", [] {
    requireReason(write(writeRequest, *anyRequest()), writeRequest, readRequest);
  }));
}

class OutcomeJsonText : public testing::Test {
 protected:
  OutcomeJsonText() {
    m_outcome.m_source.m_path = "a.json";
    m_outcome.m_findings = {makeFinding(FindingCode::MetadataDropped, "gone", "view/0")};
    m_outcome.m_views.emplace_back().m_address = "view/0";
  }

  /// What is said of the outcome's text with the first `from` in it replaced.
  std::string readWith(std::string const& from, std::string const& to) const {
    std::string text = write(writeOutcome, m_outcome);
    std::size_t const at = text.find(from);
    EXPECT_NE(at, std::string::npos) << text;
    Outcome back;
    back.m_source.m_path = "as before";
    std::string const problem = readOutcome(text.replace(at, from.size(), to), back);
    EXPECT_EQ(back.m_source.m_path == "as before", !problem.empty());
    return problem;
  }

  Outcome m_outcome;
};

TEST_F(OutcomeJsonText, LeavesNoMemberOut) {
  EXPECT_EQ(write(writeOutcome, Outcome()),
            R"({"format":"qvannot.outcome","formatVersion":1,"toolVersion":"3.0.0","source":{"path":"",)"
            R"("pathHex":null,"size":null,"sha256":null,"encoding":null},"conclusion":"done","findings":[],)"
            R"("views":[],"outputs":[],"fonts":[]})"
            "\n");
}

TEST_F(OutcomeJsonText, NamesTheMemberThatIsWrong) {
  EXPECT_EQ(readWith("\"gone\"", "null"), "/findings/0/text: found null, expected a text");
  EXPECT_EQ(readWith("\"lines\":0", "\"lines\":-1"),
            "/views/0/counts/lines: found -1, expected an integer from 0 on, beyond 63 bits as a text");
  EXPECT_EQ(readWith("\"lines\":0", "\"lines\":\"17\""),
            "/views/0/counts/lines: found \"17\", expected an integer from 0 on, beyond 63 bits as a text");
  EXPECT_EQ(readWith("\"readable\":false", "\"readable\":0"),
            "/views/0/readable: found 0, expected true or false");
  EXPECT_EQ(readWith("\"readable\":false", "\"red\":false"),
            "/views/0/readable: found nothing, expected a member of this name");
  EXPECT_EQ(readWith("\"conclusion\":\"done\"", "\"conclusion\":\"fine\""),
            "/conclusion: found \"fine\", expected the word for a conclusion");
  EXPECT_EQ(readWith("metadata-dropped", "metadata-drooped"),
            "/findings/0/code: found \"migration.metadata-drooped\", expected the code of a finding");
  EXPECT_EQ(readWith("\"pathHex\":null", "\"pathHex\":\"6\""),
            "/source/pathHex: found \"6\", expected null or two hexadecimal digits for each byte");
  EXPECT_EQ(readWith("\"outputs\":[]", "\"outputs\":{}"), "/outputs: found an object, expected a list");
  EXPECT_EQ(readWith("\"outputs\":[]", "\"outputs\":[[]]"), "/outputs/0: found a list, expected an object");
}

TEST_F(OutcomeJsonText, IsNoneOfAnotherFormat) {
  EXPECT_EQ(readWith("qvannot.outcome", "qvannot.request"),
            "/format: found \"qvannot.request\", expected \"qvannot.outcome\"");
  EXPECT_EQ(readWith("\"formatVersion\":1", "\"formatVersion\":2"), "/formatVersion: found 2, expected 1");
  Outcome outcome;
  EXPECT_EQ(readOutcome("[]", outcome), "found a list, expected an object");
  EXPECT_EQ(readOutcome("", outcome).substr(0, 19), "JSON:1:1: error: no");
}

TEST_F(OutcomeJsonText, MayHoldMembersOfLaterTools) {
  EXPECT_EQ(readWith("\"source\":{", "\"later\":[{\"a\":1}],\"source\":{\"later\":null,"), "");
}

TEST(RequestJson, RefusesWhatIsNoProperTransformation) {
  std::string const text = write(writeRequest, Request());
  auto const readWith = [&text](std::string const& from, std::string const& to) {
    std::string changed = text;
    Request request;
    return readRequest(changed.replace(changed.find(from), from.size(), to), request);
  };
  EXPECT_EQ(readWith("[1,0,0,", "[-1,0,0,"),
            "/transformation/rotation: found a list, expected a turn, which neither mirrors nor scales");
  EXPECT_EQ(readWith("[1,0,0,", "[0,0,"),
            "/transformation/rotation: found a list, expected a list of 9 numbers");
  EXPECT_EQ(readWith("[1,0,0,", "[1,null,0,"), "/transformation/rotation/1: found null, expected a number");
  EXPECT_EQ(readWith("\"scale\":1", "\"scale\":0"),
            "/transformation/scale: found 0, expected a scale from 1e-12 to 1e12");
  EXPECT_EQ(readWith("\"6.27\"", "\"6.027\""),
            "/streamVersion: found \"6.027\", expected a version such as \"6.27\"");
}

TEST(RequestJson, CallsLimitsAsTheirOptionsAreCalled) {
  for (std::size_t i = 0; i < LimitCount; ++i) {
    Request request;
    request.m_limits.set(static_cast<Limit>(i), 123'456);
    std::string const key(getOptionText(getOptionKey(static_cast<Limit>(i))));
    EXPECT_NE(write(writeRequest, request).find("\"" + key + "\":123456"), std::string::npos) << key;
  }
}

}  // namespace
