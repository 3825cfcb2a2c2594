// Reading a 1000 x 1000 array out of a variant, element by element with
// GetDoubleValue(row, column), beside the same loop over the array's memory
// without VxVariant: once of VT_R8 elements, once of VT_VARIANT elements
// holding VT_R8.
#include <benchmark/benchmark.h>

#include "Figures.h"
#include "settings/VxVariant.h"

namespace {

constexpr int side = 1000;

TALVO_TIME_LIMIT("VariantReadR8", 5e6);
TALVO_TIME_LIMIT("VariantReadVariants", 15e6);

// A made variant with its array filled; the array is freed at exit.
class FilledVariant {
public:
  explicit FilledVariant(bool asVariants) : mVariant(VT_R8, side, side, asVariants) {
    for (int row = 0; row < side; ++row)
      for (int column = 0; column < side; ++column)
        mVariant.SetDoubleValue(row * 0.5 + column, row, column);
  }
  ~FilledVariant() { VariantClear(mVariant.GetVariant()); }
  FilledVariant(FilledVariant const &) = delete;
  FilledVariant & operator=(FilledVariant const &) = delete;
  VxVariant & Get() { return mVariant; }

private:
  VxVariant mVariant;
};

VxVariant & Doubles() {
  static FilledVariant variant(false);
  return variant.Get();
}

VxVariant & Variants() {
  static FilledVariant variant(true);
  return variant.Get();
}

void ReadThroughVxVariant(benchmark::State & state, VxVariant & variant) {
  for (auto _ : state) {
    double sum = 0;
    for (int row = 0; row < side; ++row)
      for (int column = 0; column < side; ++column) sum += variant.GetDoubleValue(row, column);
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * side * side);
}

void VariantReadR8_candidate(benchmark::State & state) { ReadThroughVxVariant(state, Doubles()); }
BENCHMARK(VariantReadR8_candidate)->Name("VariantReadR8/candidate")->Unit(benchmark::kMillisecond);

void VariantReadR8_baseline(benchmark::State & state) {
  auto const * data = static_cast<double const *>(Doubles().GetVariant()->parray->pvData);
  for (auto _ : state) {
    double sum = 0;
    for (int row = 0; row < side; ++row)
      for (int column = 0; column < side; ++column) {
        benchmark::DoNotOptimize(data);
        sum += data[side * row + column];
      }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * side * side);
}
BENCHMARK(VariantReadR8_baseline)->Name("VariantReadR8/baseline")->Unit(benchmark::kMillisecond);

void VariantReadVariants_candidate(benchmark::State & state) {
  ReadThroughVxVariant(state, Variants());
}
BENCHMARK(VariantReadVariants_candidate)
    ->Name("VariantReadVariants/candidate")
    ->Unit(benchmark::kMillisecond);

// The bare loop checks each element's type, as any reader of variants must.
void VariantReadVariants_baseline(benchmark::State & state) {
  auto const * data = static_cast<VARIANT const *>(Variants().GetVariant()->parray->pvData);
  for (auto _ : state) {
    double sum = 0;
    for (int row = 0; row < side; ++row)
      for (int column = 0; column < side; ++column) {
        benchmark::DoNotOptimize(data);
        VARIANT const & v = data[side * row + column];
        sum += v.vt == VT_R8 ? v.dblVal : VxVariant::NoNumber;
      }
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * side * side);
}
BENCHMARK(VariantReadVariants_baseline)
    ->Name("VariantReadVariants/baseline")
    ->Unit(benchmark::kMillisecond);

}  // namespace
