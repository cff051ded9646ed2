#include "files.h"

#include <fstream>
#include <iterator>

#include "trouble.h"

namespace zenithor::almanac {

namespace fs = std::filesystem;

std::optional<std::string> BytesOf(const fs::path& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) {
    return std::nullopt;
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    return std::nullopt;
  }
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return file.bad() ? std::nullopt : std::optional(std::move(bytes));
}

void PutFile(const fs::path& path, const std::string& bytes) {
  fs::path beside = path;
  beside += ".new";
  std::ofstream file(beside, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  std::error_code error;
  if (!file) {
    fs::remove(beside, error);
    throw Trouble("{}: cannot be written", beside.u8string());
  }
  fs::rename(beside, path, error);
  if (error) {
    const std::string reason = error.message();
    fs::remove(beside, error);
    throw Trouble("{}: cannot be written: {}", path.u8string(), reason);
  }
}

}  // namespace zenithor::almanac
