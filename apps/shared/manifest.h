#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zenithor {

// manifest.json beside the two files: what they must be, and what they were compiled from.

constexpr char kManifestFileName[] = "manifest.json";

struct ManifestFile {
  std::string name;
  std::size_t bytes;
  std::string sha256;
};

// What an error budget did; absent when every term was kept.
struct ManifestBudget {
  double max_error_arcsec;
  double measured_arcsec;
};

struct Manifest {
  std::size_t terms;
  std::optional<ManifestBudget> budget;
  std::vector<ManifestFile> files;
  std::vector<ManifestFile> sources;
};

ManifestFile Describe(const std::string& name, const std::string& bytes);

std::string ManifestText(const Manifest& manifest);

// Throws Failure, naming `path`, for text that is not a manifest.
Manifest ParseManifest(const std::string& path, const std::string& text);

}  // namespace zenithor
