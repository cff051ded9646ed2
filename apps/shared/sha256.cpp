#include "sha256.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zenithor {

namespace {

using Word = std::uint32_t;
using Hash = std::array<Word, 8>;

constexpr std::size_t kBlockBytes = 64;
constexpr std::size_t kRounds = 64;
constexpr std::size_t kLengthBytes = 8;

// Section 4.2.2: the first 32 bits of the fractional parts of the cube roots of the first 64
// primes.
constexpr std::array<Word, kRounds> kRoundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

// Section 5.3.3: the same of the square roots of the first eight primes.
constexpr Hash kInitialHash = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                               0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};

constexpr Word RotateRight(Word x, unsigned bits) { return x >> bits | x << (32U - bits); }

// Section 6.2.2, with the names used there: W the message schedule, a to h the working variables.
void AddBlock(const unsigned char* block, Hash& hash) {
  std::array<Word, kRounds> W{};
  for (std::size_t t = 0; t < 16; ++t) {
    const unsigned char* const bytes = block + 4 * t;
    W[t] = Word{bytes[0]} << 24U | Word{bytes[1]} << 16U | Word{bytes[2]} << 8U | Word{bytes[3]};
  }
  for (std::size_t t = 16; t < kRounds; ++t) {
    const Word sigma0 = RotateRight(W[t - 15], 7) ^ RotateRight(W[t - 15], 18) ^ W[t - 15] >> 3U;
    const Word sigma1 = RotateRight(W[t - 2], 17) ^ RotateRight(W[t - 2], 19) ^ W[t - 2] >> 10U;
    W[t] = sigma1 + W[t - 7] + sigma0 + W[t - 16];
  }
  auto [a, b, c, d, e, f, g, h] = hash;
  for (std::size_t t = 0; t < kRounds; ++t) {
    const Word Sigma1 = RotateRight(e, 6) ^ RotateRight(e, 11) ^ RotateRight(e, 25);
    const Word choice = (e & f) ^ (~e & g);
    const Word T1 = h + Sigma1 + choice + kRoundConstants[t] + W[t];
    const Word Sigma0 = RotateRight(a, 2) ^ RotateRight(a, 13) ^ RotateRight(a, 22);
    const Word majority = (a & b) ^ (a & c) ^ (b & c);
    const Word T2 = Sigma0 + majority;
    h = g;
    g = f;
    f = e;
    e = d + T1;
    d = c;
    c = b;
    b = a;
    a = T1 + T2;
  }
  const Hash added = {a, b, c, d, e, f, g, h};
  for (std::size_t k = 0; k < hash.size(); ++k) {
    hash[k] += added[k];
  }
}

// Section 5.1.1: what follows the message. A bit that is set, zeros up to the last eight bytes of a
// block, and there the message's length in bits.
std::string Padding(std::size_t message_bytes) {
  std::string padding(1, '\x80');
  while ((message_bytes + padding.size() + kLengthBytes) % kBlockBytes != 0) {
    padding += '\0';
  }
  const std::uint64_t bits = std::uint64_t{message_bytes} * 8;
  for (unsigned shift = 64; shift > 0;) {
    shift -= 8;
    padding += static_cast<char>(bits >> shift & 0xFFU);
  }
  return padding;
}

}  // namespace

std::string Sha256(const std::string& bytes) {
  const std::size_t whole = bytes.size() / kBlockBytes * kBlockBytes;
  const std::string end = bytes.substr(whole) + Padding(bytes.size());
  Hash hash = kInitialHash;
  for (std::size_t at = 0; at < whole; at += kBlockBytes) {
    AddBlock(reinterpret_cast<const unsigned char*>(bytes.data() + at), hash);
  }
  for (std::size_t at = 0; at < end.size(); at += kBlockBytes) {
    AddBlock(reinterpret_cast<const unsigned char*>(end.data() + at), hash);
  }
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const Word word : hash) {
    for (unsigned shift = 32; shift > 0;) {
      shift -= 4;
      text += kDigits[word >> shift & 0xFU];
    }
  }
  return text;
}

}  // namespace zenithor
