#include <fmt/core.h>

#include <filesystem>

#include "archive.h"
#include "body_terms.h"
#include "commands.h"
#include "failure.h"
#include "manifest.h"
#include "term_budget.h"

namespace zenithor::karvo {

namespace {

std::vector<ManifestFile> DescribeSources(const std::vector<BodyTerms>& bodies) {
  std::vector<ManifestFile> sources;
  sources.reserve(bodies.size());
  for (const BodyTerms& body : bodies) {
    sources.push_back(
        Describe(std::filesystem::path(body.source).filename().string(), ReadBytes(body.source)));
  }
  return sources;
}

// Drops terms from every body and prints what was kept and what that costs; the largest error.
double ApplyBudget(double max_error_arcsec, std::vector<BodyTerms>& bodies) {
  fmt::print("error budget {} arcsec, years -2000 to +6000\n", max_error_arcsec);
  fmt::print("slot  {:<16} {:>6} {:>6}  {:>12}\n", "source", "terms", "kept", "error arcsec");
  double largest = 0.0;
  for (std::size_t slot = 0; slot < bodies.size(); ++slot) {
    const std::size_t before = TermCount(bodies[slot]);
    const double error = KeepWithinBudget(max_error_arcsec, bodies[slot]);
    largest = std::max(largest, error);
    fmt::print("{:>4}  {:<16} {:>6} {:>6}  {:>12.6f}\n", slot, kSourceNames[slot], before,
               TermCount(bodies[slot]), error);
  }
  return largest;
}

}  // namespace

int Build(const BuildOptions& options) {
  std::vector<BodyTerms> bodies = ReadAllBodies(options.source);
  Manifest manifest;
  manifest.sources = DescribeSources(bodies);
  if (options.max_error_arcsec) {
    manifest.budget = {*options.max_error_arcsec, ApplyBudget(*options.max_error_arcsec, bodies)};
  }
  const Archive archive = Encode(bodies);
  manifest.terms = archive.data.size() / kTermBytes;
  manifest.files = {Describe(kIndexFileName, archive.index), Describe(kDataFileName, archive.data)};

  const std::string folder = options.out + "/archive";
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  if (error) {
    throw Failure("{}: cannot be made: {}", folder, error.message());
  }
  // The data first, each file in one step: no index is there before the terms that it counts.
  WriteBytes(folder + "/" + kDataFileName, archive.data);
  WriteBytes(folder + "/" + kIndexFileName, archive.index);
  WriteBytes(folder + "/" + kManifestFileName, ManifestText(manifest));
  fmt::print("{}: {} terms, {} bytes\n", folder, manifest.terms, archive.data.size());
  return 0;
}

}  // namespace zenithor::karvo
