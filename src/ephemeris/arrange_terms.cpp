// Arranging a body's terms for the fast sum, at load.

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "ephemeris/cosine_sum.h"
#include "numerics/bits.h"
#include "numerics/sincos.h"
#include "numerics/sincos_kernel.h"

namespace zenithor {

namespace {

// Where a series lies in the body's block and in its track.
struct DealtSeries {
  std::int32_t first_term, term_count;
  int track;
  std::int32_t first_step;
};

struct Deal {
  DealtSeries series[kSeriesCount];
  std::int32_t step_count;
};

// Deals the series out, the longest first, each to the track that is shortest so far, so that the
// four tracks come out about equally long.
Deal DealSeries(const BodyIndexRecord& record, std::int32_t term_count) {
  Deal deal{};
  int by_length[kSeriesCount];
  std::int32_t first = 0;
  for (int s = 0; s < kSeriesCount; ++s) {
    const std::int32_t count = record.series[static_cast<std::size_t>(s)].term_count;
    deal.series[s].first_term = first;
    deal.series[s].term_count = std::clamp<std::int32_t>(count, 0, term_count - first);
    first += deal.series[s].term_count;
    by_length[s] = s;
  }
  std::sort(by_length, by_length + kSeriesCount, [&](int a, int b) {
    const std::int32_t length_a = deal.series[a].term_count;
    const std::int32_t length_b = deal.series[b].term_count;
    return length_a != length_b ? length_a > length_b : a < b;
  });
  std::int32_t length[kTrackCount] = {};
  for (const int s : by_length) {
    const auto track = std::min_element(length, length + kTrackCount) - length;
    deal.series[s].track = static_cast<int>(track);
    deal.series[s].first_step = length[track];
    length[track] += deal.series[s].term_count;
  }
  deal.step_count = *std::max_element(length, length + kTrackCount);
  return deal;
}

std::size_t MostFrequencies(std::int32_t term_count) {
  return static_cast<std::size_t>(std::min(term_count, kMostFrequencies)) + 3;
}

constexpr std::size_t kAlignment = 64;
constexpr std::size_t kProductsSize = kTrackCount * 2 * sizeof(double);
constexpr std::size_t kIndicesSize = kTrackCount * sizeof(std::uint16_t);

bool IsOrdinary(const SeriesTerm& term) {
  return std::isfinite(term.amplitude) && std::fabs(term.phase) <= kLargestKernelAngle &&
         std::isfinite(term.frequency);
}

// Gives every distinct frequency a number in the order in which they first appear. Open addressing
// in a table twice as large as needed.
class FrequencyNumbers {
 public:
  explicit FrequencyNumbers(double* frequencies) : frequencies_(frequencies) {
    std::fill(std::begin(slots_), std::end(slots_), kFree);
  }

  // The number of `frequency`, -1 when there would be too many.
  int NumberOf(double frequency) {
    const std::uint64_t bits = BitsOf(frequency);
    auto slot = static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15U) >> (64 - kSlotBits));
    while (slots_[slot] != kFree) {
      if (BitsOf(frequencies_[slots_[slot]]) == bits) {
        return slots_[slot];
      }
      slot = (slot + 1) % kSlots;
    }
    if (count_ == kMostFrequencies) {
      return -1;
    }
    frequencies_[count_] = frequency;
    slots_[slot] = static_cast<std::int16_t>(count_);
    return count_++;
  }

  int Count() const { return count_; }

 private:
  static constexpr int kSlotBits = 12;
  static constexpr std::size_t kSlots = std::size_t{1} << kSlotBits;
  static_assert(kSlots >= 2 * kMostFrequencies, "half of the slots stay free");
  static constexpr std::int16_t kFree = -1;

  double* frequencies_;
  int count_ = 0;
  std::int16_t slots_[kSlots];
};

// The products A cos B and -A sin B of one series, kTrackCount pairs of them apart.
void WriteProducts(const SeriesTerm* terms, std::int32_t count, double* products) {
  constexpr int kBatch = 64;
  double phases[kBatch];
  double cosine_sine[2 * kBatch];
  for (std::int32_t done = 0; done < count; done += kBatch) {
    const int here = std::min<std::int32_t>(kBatch, count - done);
    for (int k = 0; k < here; ++k) {
      phases[k] = terms[done + k].phase;
    }
    CosinesAndSines(phases, here, cosine_sine);
    for (int k = 0; k < here; ++k) {
      const double amplitude = terms[done + k].amplitude;
      products[0] = amplitude * cosine_sine[2 * k];
      products[1] = -amplitude * cosine_sine[2 * k + 1];
      products += 2 * kTrackCount;
    }
  }
}

}  // namespace

std::size_t ArrangedSize(const BodyIndexRecord& record, std::int32_t term_count) {
  const auto steps = static_cast<std::size_t>(DealSeries(record, term_count).step_count);
  return kAlignment + steps * (kProductsSize + kIndicesSize) +
         MostFrequencies(term_count) * sizeof(double);
}

TermTracks ArrangeTerms(const SeriesTerm* terms, std::int32_t term_count,
                        const BodyIndexRecord& record, void* room) {
  const Deal deal = DealSeries(record, term_count);
  const auto steps = static_cast<std::size_t>(deal.step_count);

  const std::size_t off = reinterpret_cast<std::uintptr_t>(room) % kAlignment;
  const std::size_t skipped = off == 0 ? 0 : kAlignment - off;
  void* const aligned = static_cast<char*>(room) + skipped;
  auto* const products = static_cast<double*>(aligned);
  auto* const frequencies = products + steps * kTrackCount * 2;
  auto* const indices = reinterpret_cast<std::uint16_t*>(frequencies + MostFrequencies(term_count));
  // Where a track is shorter than the longest its sum goes on with zeros, which nobody reads.
  std::memset(room, 0, ArrangedSize(record, term_count));

  TermTracks tracks;
  FrequencyNumbers numbers(frequencies);
  for (int s = 0; s < kSeriesCount; ++s) {
    const DealtSeries& series = deal.series[s];
    if (series.term_count == 0) {
      continue;
    }
    const std::size_t start = static_cast<std::size_t>(series.first_step) * kTrackCount +
                              static_cast<std::size_t>(series.track);
    for (std::int32_t k = 0; k < series.term_count; ++k) {
      const SeriesTerm& term = terms[series.first_term + k];
      const int number = IsOrdinary(term) ? numbers.NumberOf(term.frequency) : -1;
      if (number < 0) {
        return {};
      }
      indices[start + static_cast<std::size_t>(k) * kTrackCount] =
          static_cast<std::uint16_t>(2 * number);
      tracks.largest_frequency = std::max(tracks.largest_frequency, std::fabs(term.frequency));
    }
    WriteProducts(terms + series.first_term, series.term_count, products + 2 * start);
    tracks.ends[tracks.end_count] = {series.first_step + series.term_count,
                                     static_cast<std::int16_t>(kLaneOfTrack[series.track]),
                                     static_cast<std::int16_t>(s)};
    ++tracks.end_count;
  }
  std::sort(tracks.ends, tracks.ends + tracks.end_count,
            [](const SeriesEnd& a, const SeriesEnd& b) { return a.step < b.step; });
  tracks.frequency_count = (numbers.Count() + 3) / 4 * 4;
  tracks.frequencies = frequencies;
  tracks.products = products;
  tracks.indices = indices;
  return tracks;
}

}  // namespace zenithor
