// The layout of short runs side by side with hb_shape alone, in one process: 100,000 runs in each iteration.
// Run without arguments for medians of interleaved repetitions; every flag of the benchmark library works,
// too.

#include <benchmark/benchmark.h>
#include <hb-ot.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/text/textSample.h"
#include "qvAnnotation/fontOptions.h"
#include "qvAnnotation/textSegmentToSvgConverter.h"
#include "qvSvg/text.h"

namespace textBenchmark {

namespace {

using qv::text::TextArea;
using qv::text::TextSegmentToSvgConverter;
using Runs = std::vector<std::string>;

constexpr std::size_t RUNS = 100'000;
constexpr std::size_t DISTINCT_RUNS = 10'000;

std::vector<TextArea> makeAreas(Runs const& runs) {
  std::vector<TextArea> areas(runs.size());
  for (std::size_t i = 0; i < runs.size(); ++i) {
    qv::text::TextSegment segment;
    segment.setText(runs[i].data(), runs[i].size());
    areas[i].m_lines.emplace_back().push_back(std::move(segment));
  }
  return areas;
}

void layOut(TextSegmentToSvgConverter& converter, std::vector<TextArea> const& areas) {
  for (std::size_t i = 0; i < RUNS; ++i) {
    qv::svg::Node node;
    if (!converter.convertTextAreaToSvg(areas[i % areas.size()], node, nullptr, "text")) std::abort();
    benchmark::DoNotOptimize(node.getChildren().data());
  }
}

/// The file of the font that draws plain text.
std::string findFontFile() {
  TextSegmentToSvgConverter converter;
  qv::svg::Node node;
  if (!converter.convertTextAreaToSvg(makeAreas({"A"})[0], node, nullptr, "text")) std::abort();
  auto const& group = static_cast<qv::svg::Node const&>(*node.getChildren().at(0));
  auto const& item = static_cast<qv::svg::Text const&>(*group.getChildren().at(0));
  return item.m_spans.at(0).m_glyphSource->getFontFile();
}

hb_font_t* loadFont(std::string const& file) {
  hb_blob_t* const blob = hb_blob_create_from_file(file.c_str());
  hb_face_t* const face = hb_face_create(blob, 0);
  hb_font_t* const font = hb_font_create(face);
  hb_face_destroy(face);
  hb_blob_destroy(blob);
  return font;
}

/// Shaping alone, with a font and a buffer that are used again and again.
void shapeOnly(benchmark::State& state) {
  Runs const runs = makePlainRuns(DISTINCT_RUNS);
  hb_font_t* const font = loadFont(findFontFile());
  hb_buffer_t* const buffer = hb_buffer_create();
  for (auto _ : state) {
    for (std::size_t i = 0; i < RUNS; ++i) {
      std::string const& run = runs[i % runs.size()];
      hb_buffer_clear_contents(buffer);
      hb_buffer_add_utf8(buffer, run.data(), static_cast<int>(run.size()), 0, static_cast<int>(run.size()));
      hb_buffer_set_direction(buffer, HB_DIRECTION_LTR);
      hb_buffer_set_script(buffer, HB_SCRIPT_LATIN);
      hb_shape(font, buffer, nullptr, 0);
    }
  }
  hb_buffer_destroy(buffer);
  hb_font_destroy(font);
}

/// Every run is laid out for the first time, with fonts that were used before.
void layOutNew(benchmark::State& state, Runs (*makeRuns)(std::size_t)) {
  std::vector<TextArea> const areas = makeAreas(makeRuns(RUNS));
  for (auto _ : state) {
    state.PauseTiming();
    qv::text::setFontOptions({});  // a new catalogue of fonts, with empty caches
    auto converter = std::make_unique<TextSegmentToSvgConverter>();
    qv::svg::Node node;
    if (!converter->convertTextAreaToSvg(makeAreas({"AVW \u2300\u2316\u21A7\u2334"})[0], node, nullptr, ""))
      std::abort();
    state.ResumeTiming();
    layOut(*converter, areas);
    state.PauseTiming();
    converter.reset();
    state.ResumeTiming();
  }
}

/// All runs were laid out before.
void layOutAgain(benchmark::State& state, Runs (*makeRuns)(std::size_t)) {
  std::vector<TextArea> const areas = makeAreas(makeRuns(DISTINCT_RUNS));
  TextSegmentToSvgConverter converter;
  layOut(converter, areas);
  for (auto _ : state) layOut(converter, areas);
}

/// Prints the time of a run and its ratio to shaping alone, from medians.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(Context const& context) override {
    PrintBasicContext(&GetErrorStream(), context);
    return true;
  }
  void ReportRuns(std::vector<Run> const& runs) override {
    for (Run const& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      m_nanoseconds[run.run_name.function_name] = run.GetAdjustedCPUTime() * 1e6 / static_cast<double>(RUNS);
    }
  }
  void Finalize() override {
    std::printf("%-28s %12s %12s %18s\n", "", "ns a run", "/ hb_shape", "100,000 runs in s");
    for (auto const& [name, time] : m_nanoseconds) {
      std::printf("%-28s %12.0f %12.2f %18.3f\n", name.c_str(), time, time / m_nanoseconds["hb_shape alone"],
                  time * 1e-9 * static_cast<double>(RUNS));
    }
    std::fflush(stdout);
  }

 private:
  std::map<std::string, double> m_nanoseconds;
};

void registerBenchmarks() {
  auto const add = [](char const* name, auto work) {
    benchmark::RegisterBenchmark(name, work)->Unit(benchmark::kMillisecond)->Iterations(1);
  };
  add("hb_shape alone", shapeOnly);
  add("new runs", [](benchmark::State& state) { layOutNew(state, makePlainRuns); });
  add("new runs with signs", [](benchmark::State& state) { layOutNew(state, makeRunsWithSigns); });
  add("known runs", [](benchmark::State& state) { layOutAgain(state, makePlainRuns); });
  add("known runs with signs", [](benchmark::State& state) { layOutAgain(state, makeRunsWithSigns); });
}

}  // namespace

}  // namespace textBenchmark

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  char repetitions[] = "--benchmark_repetitions=9";
  arguments.insert(arguments.begin() + 1, {interleaved, repetitions});
  arguments.push_back(nullptr);
  int count = static_cast<int>(arguments.size()) - 1;
  benchmark::Initialize(&count, arguments.data());
  textBenchmark::registerBenchmarks();
  textBenchmark::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  benchmark::Shutdown();
  return 0;
}
