#include "archive.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "failure.h"

namespace zenithor::karvo {

namespace {

static_assert(sizeof(double) == 8, "terms are IEEE doubles");

template <class Unsigned>
void AppendLittleEndian(Unsigned value, std::string& bytes) {
  for (std::size_t k = 0; k < sizeof value; ++k) {
    bytes += static_cast<char>((value >> (8 * k)) & 0xFFU);
  }
}

template <class Unsigned>
Unsigned LittleEndian(const std::string& bytes, std::size_t at) {
  std::uint64_t value = 0;
  for (std::size_t k = sizeof(Unsigned); k-- > 0;) {
    value = value << 8 | static_cast<unsigned char>(bytes.at(at + k));
  }
  return static_cast<Unsigned>(value);
}

void AppendInt16(int value, std::string& bytes) {
  AppendLittleEndian(static_cast<std::uint16_t>(value), bytes);
}

int Int16(const std::string& bytes, std::size_t at) {
  return static_cast<std::int16_t>(LittleEndian<std::uint16_t>(bytes, at));
}

void AppendDouble(double value, std::string& bytes) {
  std::uint64_t bits;
  std::memcpy(&bits, &value, sizeof bits);
  AppendLittleEndian(bits, bytes);
}

double Double(const std::string& bytes, std::size_t at) {
  const auto bits = LittleEndian<std::uint64_t>(bytes, at);
  double value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

}  // namespace

Archive Encode(const std::vector<BodyTerms>& bodies) {
  Archive archive;
  std::size_t next = 0;
  for (std::size_t slot = 0; slot < bodies.size(); ++slot) {
    const BodyTerms& body = bodies[slot];
    if (next > kHighestInt16) {
      throw Failure("{}: slot {} would start at term {}; the format holds starts up to {}",
                    body.source, slot, next, kHighestInt16);
    }
    for (std::size_t series = 0; series < body.series.size(); ++series) {
      const std::vector<SeriesTerm>& terms = body.series[series];
      if (terms.size() > kHighestInt16) {
        throw Failure("{}: series {} has {} terms; the format holds up to {}", body.source,
                      SeriesName(static_cast<int>(series)), terms.size(), kHighestInt16);
      }
      AppendInt16(next <= kHighestInt16 ? static_cast<int>(next) : kBeyondInt16, archive.index);
      AppendInt16(static_cast<int>(terms.size()), archive.index);
      for (const SeriesTerm& term : terms) {
        if (!std::isfinite(term.amplitude) || !std::isfinite(term.phase) ||
            !std::isfinite(term.frequency)) {
          throw Failure("{}: a term of series {} is not finite", body.source,
                        SeriesName(static_cast<int>(series)));
        }
        AppendDouble(term.amplitude, archive.data);
        AppendDouble(term.phase, archive.data);
        AppendDouble(term.frequency, archive.data);
      }
      next += terms.size();
    }
  }
  return archive;
}

IndexRecord DecodeRecord(const std::string& index, int slot) {
  IndexRecord record{};
  std::size_t at = static_cast<std::size_t>(slot) * kIndexRecordBytes;
  for (IndexPair& pair : record) {
    pair = {Int16(index, at), Int16(index, at + 2)};
    at += 4;
  }
  return record;
}

SeriesTerm DecodeTerm(const std::string& data, std::size_t term) {
  const std::size_t at = term * kTermBytes;
  return {Double(data, at), Double(data, at + 8), Double(data, at + 16)};
}

long TotalTerms(const IndexRecord& record) {
  long total = 0;
  for (const IndexPair& pair : record) {
    total += pair.term_count;
  }
  return total;
}

std::string ArchiveFolder(const std::string& folder) {
  const std::string below = folder + "/archive";
  return std::filesystem::exists(below + "/" + kIndexFileName) ? below : folder;
}

Archive ReadArchive(const std::string& archive_folder) {
  return {ReadBytes(archive_folder + "/" + kIndexFileName),
          ReadBytes(archive_folder + "/" + kDataFileName)};
}

std::string ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path)) {
    throw Failure("{}: cannot be read; karvo build makes the files", path);
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  const std::string temporary = path + ".new";
  std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  std::error_code error;
  if (file) {
    std::filesystem::rename(temporary, path, error);
  }
  if (!file || error) {
    throw Failure("{}: cannot be written", path);
  }
}

}  // namespace zenithor::karvo
