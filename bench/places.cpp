// Times a few bodies of the finished library, for a comparison of platforms: one line each with the
// body's name and the microseconds of a call, every call at another moment.
//
//   bench_places LIBRARY

#define ZENITHOR_LOADER
#include <cstdio>
#include <string>

#include "timing.h"
#include "zenithor/zenithor.h"

namespace {

volatile double sink;  // what the optimizer must believe that somebody looks at

zenithor::bench::Contestant Place(const ZenithorLibrary& library, BodyCode body) {
  return [&library, body](int call) {
    BodyPositionRecord record;
    const double day = 2451545.0 + 0.37 * (call % 100000);
    sink = library.ZENITHOR(day, 0.0, 0.0, 10.0, 50.0, 0.0, body, &record);
  };
}

}  // namespace

int main(int argc, char** argv) {
  const std::string name = argc == 2 ? argv[1] : "";
  const std::basic_string<ZenithorPathCharacter> path(name.begin(), name.end());
  ZenithorLibrary library;
  if (name.empty() || ZenithorOpen(&library, path.c_str()) == 0) {
    std::fprintf(stderr, "usage: bench_places LIBRARY\n");
    return 1;
  }
  Place(library, ZENITHOR_MARS)(0);
  if (sink != ZENITHOR_DONE) {
    std::fprintf(stderr, "bench_places: the library found no data\n");
    return 1;
  }
  const std::vector<double> times =
      zenithor::bench::TimeInTurn({Place(library, ZENITHOR_SUN), Place(library, ZENITHOR_MARS),
                                   Place(library, ZENITHOR_PLUTO), Place(library, ZENITHOR_MOON)});
  std::printf("Sun %.2f\nMars %.2f\nPluto %.2f\nMoon %.2f\n", times[0], times[1], times[2],
              times[3]);
  return 0;
}
