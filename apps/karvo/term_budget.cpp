#include "term_budget.h"

#include <algorithm>
#include <cmath>

namespace zenithor::karvo {

namespace {

constexpr double kArcsecondsPerRadian = 206264.80624709636;
constexpr double kFirstMillennium = -4.0;  // the year -2000, from J2000.0
constexpr double kLastMillennium = 4.0;    // the year +6000
constexpr int kSampleCount = 8192;
constexpr double kTighter = 0.9;
constexpr int kAttempts = 4;

// Cosine from additions and multiplications only; good to 1e-10 for arguments up to 2e6, which is
// ample for comparing errors.
double PortableCosine(double x) {
  constexpr double kTurns = 0.15915494309189535;
  constexpr double kTwoPiHigh = 6.28318530717958623200;
  constexpr double kTwoPiLow = 2.44929359829470635445e-16;
  constexpr double kToInteger = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds
  const double n = (x * kTurns + kToInteger) - kToInteger;
  const double r = x - n * kTwoPiHigh - n * kTwoPiLow;
  // cos r = 1 - 2 sin^2(r/2), with Taylor's series for the sine on [-pi/2, pi/2].
  const double h = 0.5 * r;
  const double z = h * h;
  const double sine =
      h * (1.0 + z * (-1.0 / 6.0 +
                      z * (1.0 / 120.0 +
                           z * (-1.0 / 5040.0 +
                                z * (1.0 / 362880.0 + z * (-1.0 / 39916800.0 +
                                                           z * (1.0 / 6227020800.0 -
                                                                z * (1.0 / 1307674368000.0))))))));
  return 1.0 - 2.0 * sine * sine;
}

using Samples = std::vector<double>;

// Moments [Julian millennia] by the golden section, which leaves no period unsampled.
Samples Moments(double start) {
  constexpr double kGoldenSection = 0.61803398874989485;
  Samples moments;
  double fraction = start;
  for (int k = 0; k < kSampleCount; ++k) {
    fraction += kGoldenSection;
    fraction -= std::floor(fraction);
    moments.push_back(kFirstMillennium + (kLastMillennium - kFirstMillennium) * fraction);
  }
  return moments;
}

double Power(double t, int p) {
  double power = 1.0;
  for (int k = 0; k < p; ++k) {
    power *= t;
  }
  return power;
}

// What the term adds to its coordinate at every moment.
void Contribute(const SeriesTerm& term, int power, const Samples& moments, Samples& contribution) {
  for (std::size_t k = 0; k < moments.size(); ++k) {
    contribution[k] = term.amplitude * PortableCosine(term.phase + term.frequency * moments[k]) *
                      Power(moments[k], power);
  }
}

// A coordinate of the full series at every moment.
Samples Coordinate(const BodyTerms& body, int coordinate, const Samples& moments) {
  Samples values(moments.size(), 0.0);
  Samples contribution(moments.size());
  for (int power = 0; power < kPowerCount; ++power) {
    for (const SeriesTerm& term : body.series[static_cast<std::size_t>(coordinate) * kPowerCount +
                                              static_cast<std::size_t>(power)]) {
      Contribute(term, power, moments, contribution);
      for (std::size_t k = 0; k < moments.size(); ++k) {
        values[k] += contribution[k];
      }
    }
  }
  return values;
}

// What dropped terms have cost so far, at each moment, per coordinate.
struct ErrorRecord {
  Samples moments;
  Samples weight[3];  // cos B, 1, 1 / R: what turns an error into an angle seen from the Sun
  Samples error[3];
  Samples change;  // of a term that is being tried
};

ErrorRecord NewErrorRecord(const BodyTerms& body, double start) {
  ErrorRecord record;
  record.moments = Moments(start);
  record.weight[0] = Coordinate(body, 1, record.moments);
  record.weight[1].assign(record.moments.size(), 1.0);
  record.weight[2] = Coordinate(body, 2, record.moments);
  for (std::size_t k = 0; k < record.moments.size(); ++k) {
    record.weight[0][k] = PortableCosine(record.weight[0][k]);
    record.weight[2][k] = 1.0 / record.weight[2][k];
  }
  for (Samples& error : record.error) {
    error.assign(record.moments.size(), 0.0);
  }
  record.change.assign(record.moments.size(), 0.0);
  return record;
}

double SquaredError(const ErrorRecord& record, std::size_t k, int changed, double change) {
  double sum = 0.0;
  for (int c = 0; c < 3; ++c) {
    const double error = (record.error[c][k] + (c == changed ? change : 0.0)) * record.weight[c][k];
    sum += error * error;
  }
  return sum;
}

struct Candidate {
  int series;
  std::size_t position;
  double effect;  // [rad], the largest in those years
};

// Every term of the body, the least important first.
std::vector<Candidate> Candidates(const BodyTerms& body, const ErrorRecord& record) {
  const double largest_inverse_radius =
      *std::max_element(record.weight[2].begin(), record.weight[2].end());
  std::vector<Candidate> candidates;
  for (int series = 0; series < kSeriesCount; ++series) {
    const auto& terms = body.series[static_cast<std::size_t>(series)];
    const double scale = (series / kPowerCount == 2 ? largest_inverse_radius : 1.0) *
                         Power(kLastMillennium, series % kPowerCount);
    for (std::size_t position = 0; position < terms.size(); ++position) {
      candidates.push_back({series, position, std::fabs(terms[position].amplitude) * scale});
    }
  }
  std::stable_sort(candidates.begin(), candidates.end(),
                   [](const Candidate& a, const Candidate& b) { return a.effect < b.effect; });
  return candidates;
}

// Adds the loss of a term to the record where the error stays within `limit` [rad]; else leaves
// it alone.
bool TryToDrop(const SeriesTerm& term, int series, double limit, ErrorRecord& record) {
  const int coordinate = series / kPowerCount;
  Contribute(term, series % kPowerCount, record.moments, record.change);
  for (std::size_t k = 0; k < record.moments.size(); ++k) {
    if (SquaredError(record, k, coordinate, -record.change[k]) > limit * limit) {
      return false;
    }
  }
  for (std::size_t k = 0; k < record.moments.size(); ++k) {
    record.error[coordinate][k] -= record.change[k];
  }
  return true;
}

double LargestError(const ErrorRecord& record) {
  double largest = 0.0;
  for (std::size_t k = 0; k < record.moments.size(); ++k) {
    largest = std::max(largest, SquaredError(record, k, -1, 0.0));
  }
  return std::sqrt(largest);
}

BodyTerms Without(const BodyTerms& body, const std::vector<Candidate>& dropped) {
  std::array<std::vector<bool>, kSeriesCount> gone;
  for (std::size_t series = 0; series < gone.size(); ++series) {
    gone[series].assign(body.series[series].size(), false);
  }
  for (const Candidate& candidate : dropped) {
    gone[static_cast<std::size_t>(candidate.series)][candidate.position] = true;
  }
  BodyTerms kept;
  kept.source = body.source;
  for (std::size_t series = 0; series < gone.size(); ++series) {
    for (std::size_t position = 0; position < gone[series].size(); ++position) {
      if (!gone[series][position]) {
        kept.series[series].push_back(body.series[series][position]);
      }
    }
  }
  return kept;
}

struct Search {
  const BodyTerms& body;
  ErrorRecord choosing;   // at the moments by which terms are chosen
  ErrorRecord measuring;  // at those by which the outcome is judged
};

struct Outcome {
  std::vector<Candidate> dropped;
  double measured = 0.0;  // [rad]
};

// Drops what can be dropped while the error stays within `limit` [rad] where terms are chosen.
Outcome Drop(Search search, double limit) {
  Outcome outcome;
  for (const Candidate& candidate : Candidates(search.body, search.choosing)) {
    // What could still be dropped at thirty times the limit would have to vanish at every moment.
    if (candidate.effect > 30.0 * limit) {
      break;
    }
    const SeriesTerm& term =
        search.body.series[static_cast<std::size_t>(candidate.series)][candidate.position];
    if (TryToDrop(term, candidate.series, limit, search.choosing)) {
      TryToDrop(term, candidate.series, HUGE_VAL, search.measuring);
      outcome.dropped.push_back(candidate);
    }
  }
  outcome.measured = std::max(LargestError(search.choosing), LargestError(search.measuring));
  return outcome;
}

}  // namespace

double KeepWithinBudget(double max_error_arcsec, BodyTerms& body) {
  const double budget = max_error_arcsec / kArcsecondsPerRadian;
  const Search search{body, NewErrorRecord(body, 0.0), NewErrorRecord(body, 0.36)};
  // The limit of the search lies between one that is known to hold the budget and one that is known
  // not to; what is measured elsewhere exceeds it by a few percent.
  double holds = 0.0;
  double fails = HUGE_VAL;
  Outcome best;
  double limit = budget;
  for (int attempt = 0; attempt < kAttempts || holds == 0.0; ++attempt) {
    const Outcome outcome = Drop(search, limit);
    if (outcome.measured <= budget) {
      holds = limit;
      if (outcome.dropped.size() >= best.dropped.size()) {
        best = outcome;
      }
      if (limit == budget) {
        break;
      }
    } else {
      fails = limit;
    }
    limit = holds > 0.0 ? 0.5 * (holds + fails) : limit * kTighter;
  }
  body = Without(body, best.dropped);
  return best.measured * kArcsecondsPerRadian;
}

}  // namespace zenithor::karvo
