// The array forms of the transformation side by side with their point form and with peers, in one process.
// Run without arguments for medians of many short interleaved repetitions, which agree from run to run even
// on a machine that others use, too; every flag of the benchmark library works.

#include <benchmark/benchmark.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/transform/peers.h"
#include "benchmarks/transform/ratioReporter.h"
#include "transform/kernels.h"
#include "transform/qvGenericTransformation.h"

namespace transformBenchmark {

namespace {

constexpr int pointCounts[] = {1, 4, 16, 1'000, 32'000, 8'000'000};

template <class Real>
struct Kind {
  char const* name;
  qv::qvGenericTransformation<Real> transformation;
};

template <class Real>
std::vector<Kind<Real>> kinds() {
  using Vector = Wm4::Vector3<Real>;
  Wm4::Matrix3<Real> const turn(Real(0.36), Real(0.48), Real(-0.8), Real(-0.8), Real(0.6), Real(0),
                                Real(0.48), Real(0.64), Real(0.6));
  std::vector<Kind<Real>> all{
      {"identity", {}}, {"translation", {}}, {"uniform", {}}, {"nonUniform", {}}, {"general", {}}};
  for (std::size_t i = 1; i < all.size(); ++i) all[i].transformation.SetTranslate(Vector(1, 2, 3));
  all[2].transformation.SetRotate(turn);
  all[2].transformation.SetUniformScale(Real(2));
  all[3].transformation.SetRotate(turn);
  all[3].transformation.SetScale(Vector(2, 3, 4));
  all[4].transformation.SetMatrix(turn * Real(2));
  return all;
}

template <class Real>
Affine<Real> affineOf(qv::qvGenericTransformation<Real> const& t, bool scaled) {
  Affine<Real> map;
  for (std::size_t i = 0; i < 9; ++i) {
    map.rows[i] = t.m_matrix.data()[i] * (scaled && t.m_isRSMatrix ? t.m_scale[i % 3] : Real(1));
  }
  for (std::size_t i = 0; i < 3; ++i) map.translation[i] = t.m_translate[i];
  return map;
}

/// The two arrays of all runs with as many points; their pages are touched before a clock starts.
template <class Real>
struct Arrays {
  explicit Arrays(int points) : count(static_cast<std::size_t>(points)), in(count, {1, 2, 3}), out(count) {}

  Real const* source() const { return reinterpret_cast<Real const*>(in.data()); }
  Real* target() { return reinterpret_cast<Real*>(out.data()); }

  std::size_t count;
  std::vector<Wm4::Vector3<Real>> in;
  std::vector<Wm4::Vector3<Real>> out;
};

/// The arrays of the size that is being measured; another size's are given back.
template <class Real>
Arrays<Real>& arraysOf(int points) {
  static std::unique_ptr<Arrays<Real>> kept;
  if (!kept || kept->count != static_cast<std::size_t>(points)) {
    kept.reset();
    kept = std::make_unique<Arrays<Real>>(points);
  }
  return *kept;
}

/// Registers a way: `work` maps the arrays once.
template <class Real, class Work>
void addWay(std::string const& row, int points, char const* way, Work work) {
  benchmark::RegisterBenchmark((row + '/' + way).c_str(), [points, work](benchmark::State& state) {
    Arrays<Real>& arrays = arraysOf<Real>(points);
    for (auto _ : state) {
      work(arrays);
      benchmark::DoNotOptimize(arrays.out.data());
      benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * points);
  });
}

template <class Real>
void addPeers(std::string const& row, int points, qv::qvGenericTransformation<Real> const& t) {
  Affine<Real> const whole = affineOf(t, true);
  if (t.IsRSMatrix()) {
    RotationAndScale<Real> const parts{affineOf(t, false), {t.m_scale[0], t.m_scale[1], t.m_scale[2]}};
    addWay<Real>(row, points, "plain",
                 [=](Arrays<Real>& a) { plainLoop(parts, a.count, a.source(), a.target()); });
  } else {
    addWay<Real>(row, points, "plain",
                 [=](Arrays<Real>& a) { plainLoop(whole, a.count, a.source(), a.target()); });
  }
  addWay<Real>(row, points, "eigen",
               [=](Arrays<Real>& a) { eigenExpression(whole, a.count, a.source(), a.target()); });
  addWay<Real>(row, points, "eigenPoints",
               [=](Arrays<Real>& a) { eigenPoints(whole, a.count, a.source(), a.target()); });
  addWay<Real>(row, points, "glm",
               [=](Arrays<Real>& a) { glmPoints(whole, a.count, a.source(), a.target()); });
}

/// The loops for processors without AVX2.
template <class Real>
void addBaseline(std::string const& row, int points, qv::qvGenericTransformation<Real> const& t) {
  using namespace qv::transform;
  auto const add = [&](auto const& formula) {
    addWay<Real>(row, points, "sse2", [=](Arrays<Real>& a) {
      Baseline<Real>::kernels.of(formula)(formula, a.count, a.source(), a.target(), StoreWay::cached);
    });
  };
  Multiply<Real> const multiply(t.m_matrix);
  Add<Real> const plus(t.m_translate);
  if (t.IsRSMatrix()) {
    add(Chain{Scale<Real>(t.m_scale), multiply, plus});
  } else {
    add(Chain{multiply, plus});
  }
}

template <class Real>
void addForward(std::string const& row, int points, qv::qvGenericTransformation<Real> const& t) {
  addWay<Real>(row, points, "array",
               [=](Arrays<Real>& a) { t.ApplyForward(points, a.in.data(), a.out.data(), true); });
  addWay<Real>(row, points, "point", [=](Arrays<Real>& a) {
    for (std::size_t i = 0; i < a.count; ++i) a.out[i] = t.ApplyForward(a.in[i], true);
  });
  if (t.IsIdentity()) return;
  addBaseline<Real>(row, points, t);
  addPeers<Real>(row, points, t);
}

template <class Real>
void addInverse(std::string const& row, int points, qv::qvGenericTransformation<Real> const& t) {
  addWay<Real>(row, points, "array",
               [=](Arrays<Real>& a) { t.ApplyInverse(points, a.in.data(), a.out.data()); });
  addWay<Real>(row, points, "point", [=](Arrays<Real>& a) {
    for (std::size_t i = 0; i < a.count; ++i) a.out[i] = t.ApplyInverse(a.in[i], true);
  });
}

template <class Real>
void addSize(std::string const& precision, int points) {
  std::string const size = precision + '/' + std::to_string(points) + '/';
  addWay<Real>(size + "copy", points, "memcpy",
               [](Arrays<Real>& a) { std::memcpy(a.target(), a.source(), a.count * 3 * sizeof(Real)); });
  for (Kind<Real> const& kind : kinds<Real>()) {
    addForward<Real>(size + kind.name + "-forward", points, kind.transformation);
    addInverse<Real>(size + kind.name + "-inverse", points, kind.transformation);
  }
}

/// Measures and prints size by size, so that a table stands as soon as it can, and all its ways share one
/// time.
template <class Real>
void runPrecision(std::string const& precision) {
  for (int const points : pointCounts) {
    benchmark::ClearRegisteredBenchmarks();
    addSize<Real>(precision, points);
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
  }
}

}  // namespace

}  // namespace transformBenchmark

int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  char interleaved[] = "--benchmark_enable_random_interleaving=true";
  char repetitions[] = "--benchmark_repetitions=21";
  char minimalTime[] = "--benchmark_min_time=0.003";
  arguments.insert(arguments.begin() + 1, {interleaved, repetitions, minimalTime});
  arguments.push_back(nullptr);
  int count = static_cast<int>(arguments.size()) - 1;
  benchmark::Initialize(&count, arguments.data());
  transformBenchmark::runPrecision<float>("float");
  transformBenchmark::runPrecision<double>("double");
  benchmark::Shutdown();
  return 0;
}
