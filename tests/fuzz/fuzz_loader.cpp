// The loader, with any bytes as its two files: two bytes give the length of the index file (12
// bits) and which slot is loaded (4 bits); then follows the index file, and the rest is the data
// file. What is loaded is then evaluated, too.

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "ephemeris/loader.h"
#include "ephemeris/series.h"
#include "hash_of.h"

namespace {

// A file in memory; the loader opens it by name like any other.
class MemoryFile {
 public:
  MemoryFile() : descriptor_(memfd_create("fuzz", 0)) {
    name_ = "/proc/self/fd/" + std::to_string(descriptor_);
  }
  void Hold(const std::uint8_t* bytes, std::size_t size) const {
    const auto length = static_cast<ssize_t>(size);
    if (ftruncate(descriptor_, 0) != 0 || pwrite(descriptor_, bytes, size, 0) != length) {
      std::abort();
    }
  }
  const char* Name() const { return name_.c_str(); }

 private:
  int descriptor_;
  std::string name_;
};

// The terms that an index of 16-bit numbers asks for, first terms counted in.
long TermsAskedFor(const std::uint8_t* index, std::size_t size) {
  long terms = 0;
  for (std::size_t k = 0; k + 1 < size; k += 2) {
    std::int16_t number = 0;
    std::memcpy(&number, index + k, sizeof number);
    terms += number > 0 ? number : 0;
  }
  return terms;
}

// Which slots the four bits choose, as a range: one of -1 to 9, or all of them. A slot is nine
// times as fast, and loads do not depend on each other.
struct Slots {
  int first;
  int last;
};

Slots SlotsOf(unsigned bits) {
  const int slot = static_cast<int>(bits) - 1;
  return slot > zenithor::kSlotCount ? Slots{-1, zenithor::kSlotCount} : Slots{slot, slot};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const MemoryFile index_file;
  static const MemoryFile data_file;
  if (size < 2) {
    return 0;
  }
  const std::size_t rest = size - 2;
  const std::size_t asked = data[0] + 256U * (data[1] & 15U);
  const Slots slots = SlotsOf(data[1] >> 4U);
  const std::size_t index_size = asked < rest ? asked : rest;
  // Hundreds of thousands of terms take a quarter of a second: of 256 inputs with many terms one
  // goes through.
  if (TermsAskedFor(data + 2, index_size) > 2000 && HashOf(data, size) % 256 != 0) {
    return 0;
  }
  index_file.Hold(data + 2, index_size);
  data_file.Hold(data + 2 + index_size, rest - index_size);

  zenithor::EphemerisStore store;
  zenithor::SetEphemerisFolder(store, nullptr);
  for (int slot = slots.first; slot <= slots.last; ++slot) {
    const zenithor::LoadStatus status =
        zenithor::LoadBodySeries(store, slot, index_file.Name(), data_file.Name());
    const bool has_slot = slot >= 0 && slot < zenithor::kSlotCount;
    if (has_slot != (status != zenithor::LoadStatus::kLoaded || IsLoaded(store, slot))) {
      std::fprintf(stderr, "slot %d: status %d\n", slot, static_cast<int>(status));
      std::abort();
    }
    if (status != zenithor::LoadStatus::kLoaded) {
      std::fclose(store.index_stream);  // left open on purpose
      std::fclose(store.data_stream);
    }
    static_cast<void>(zenithor::EvaluateSeries(store, slot, 0.25));
  }
  // A process never gives its terms back; a fuzzer has to.
  zenithor::FreeBodies(store);
  return 0;
}
