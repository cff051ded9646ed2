#include "manifest.h"

#include <nlohmann/json.hpp>

#include "failure.h"
#include "sha256.h"

namespace zenithor {

namespace {

using Json = nlohmann::ordered_json;

Json FilesToJson(const std::vector<ManifestFile>& files) {
  Json list = Json::array();
  for (const ManifestFile& file : files) {
    list.push_back({{"name", file.name}, {"bytes", file.bytes}, {"sha256", file.sha256}});
  }
  return list;
}

std::vector<ManifestFile> FilesFromJson(const Json& list) {
  std::vector<ManifestFile> files;
  for (const Json& file : list) {
    files.push_back({file.at("name").get<std::string>(), file.at("bytes").get<std::size_t>(),
                     file.at("sha256").get<std::string>()});
  }
  return files;
}

}  // namespace

ManifestFile Describe(const std::string& name, const std::string& bytes) {
  return {name, bytes.size(), Sha256(bytes)};
}

std::string ManifestText(const Manifest& manifest) {
  Json json;
  json["terms"] = manifest.terms;
  if (manifest.budget) {
    json["max_error_arcsec"] = manifest.budget->max_error_arcsec;
    json["measured_error_arcsec"] = manifest.budget->measured_arcsec;
  }
  json["files"] = FilesToJson(manifest.files);
  json["sources"] = FilesToJson(manifest.sources);
  return json.dump(2) + "\n";
}

Manifest ParseManifest(const std::string& path, const std::string& text) {
  try {
    const Json json = Json::parse(text);
    Manifest manifest{json.at("terms").get<std::size_t>(), std::nullopt,
                      FilesFromJson(json.at("files")), FilesFromJson(json.at("sources"))};
    if (json.contains("max_error_arcsec")) {
      manifest.budget = {json.at("max_error_arcsec").get<double>(),
                         json.at("measured_error_arcsec").get<double>()};
    }
    return manifest;
  } catch (const Json::exception& error) {
    throw Failure("{}: is not a manifest: {}", path, error.what());
  }
}

}  // namespace zenithor
