// The golden answers through the library itself, by the loader of the C header.
//   golden_host LIBRARY FILE CASES
#define ZENITHOR_LOADER  // asked for where the C header is first included

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "golden/check.h"
#include "golden/library_functions.h"
#include "host.h"

int main(int count, char** words) {
  namespace golden = zenithor::golden;
  if (count != 4) {
    std::fprintf(stderr, "usage: golden_host LIBRARY FILE CASES\n");
    return EXIT_FAILURE;
  }
  ZenithorLibrary library;
  if (OpenLibrary(&library, words[1]) == 0) {
    std::fprintf(stderr, "golden_host: cannot load %s\n", words[1]);
    return EXIT_FAILURE;
  }
  golden::Functions functions = golden::FunctionsOf(library);
  const auto position = functions.position;
  functions.position = [&](const golden::PositionCall& call, BodyPositionRecord* record) {
    // The expected answers for Pluto were each computed in a freshly loaded library.
    if (call.code == ZENITHOR_PLUTO) {
      ZenithorClose(&library);
      CHECK(OpenLibrary(&library, words[1]) != 0);
    }
    return position(call, record);
  };
  try {
    const golden::Summary summary = golden::Check(golden::ReadGoldenFile(words[2]), functions);
    std::printf("%s: %d cases, %d failed\n%s\n", words[2], summary.cases, summary.failures,
                summary.first_failure.c_str());
    CHECK(summary.cases == std::atoi(words[3]));
    CHECK(summary.failures == 0);
  } catch (const std::exception& problem) {
    std::fprintf(stderr, "golden_host: %s\n", problem.what());
    return EXIT_FAILURE;
  }
  ZenithorClose(&library);
  return HOST_RESULT;
}
