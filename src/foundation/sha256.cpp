#include "foundation/sha256.h"

#include <algorithm>
#include <bit>

#include "foundation/sha256_processor.h"

namespace marlowick {
namespace {

// The first 32 bits of the fractional parts of the square roots of the first eight primes.
constexpr std::array<std::uint32_t, 8> kStart = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                                 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};

// Where the content's length in bits stands in the last block.
constexpr std::size_t kLengthField = 56;

std::uint32_t bigEndian(const unsigned char* bytes) {
    return std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U |
           std::uint32_t{bytes[2]} << 8U | bytes[3];
}

void plainBlock(std::uint32_t* state, const unsigned char* data) {
    std::array<std::uint32_t, 64> w;
    for (std::size_t i = 0; i < 16; ++i) {
        w[i] = bigEndian(data + 4 * i);
    }
    for (std::size_t i = 16; i < 64; ++i) {
        const std::uint32_t early = w[i - 15];
        const std::uint32_t late = w[i - 2];
        w[i] = w[i - 16] + (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3U) + w[i - 7] +
               (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10U);
    }
    std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    std::uint32_t e = state[4], f = state[5], g = state[6], h = state[7];
    for (std::size_t i = 0; i < 64; ++i) {
        const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                    ((e & f) ^ (~e & g)) + kSha256Constants[i] + w[i];
        const std::uint32_t second =
            (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + first;
        d = c;
        c = b;
        b = a;
        a = first + second;
    }
    const std::uint32_t worked[] = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < 8; ++i) {
        state[i] += worked[i];
    }
}

void plainBlocks(std::uint32_t* state, const unsigned char* data, std::size_t count) {
    for (; count > 0; --count, data += 64) {
        plainBlock(state, data);
    }
}

int digitOfHex(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return c >= 'A' && c <= 'F' ? c - 'A' + 10 : -1;
}

}  // namespace

Sha256Stream::Sha256Stream(Sha256Way way)
    : blocks_(way == Sha256Way::Fastest && processorHasSha256() ? processorSha256Blocks
                                                                : plainBlocks),
      state_(kStart) {}

void Sha256Stream::add(std::string_view bytes) {
    size_ += bytes.size();
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    std::size_t left = bytes.size();
    if (heldSize_ > 0) {
        const std::size_t taken = std::min(left, kBlock - heldSize_);
        std::copy_n(data, taken, held_.data() + heldSize_);
        heldSize_ += taken;
        data += taken;
        left -= taken;
        if (heldSize_ < kBlock) {
            return;
        }
        blocks_(state_.data(), held_.data(), 1);
    }
    const std::size_t whole = left / kBlock;
    blocks_(state_.data(), data, whole);
    heldSize_ = left % kBlock;
    std::copy_n(data + whole * kBlock, heldSize_, held_.data());
}

Sha256 Sha256Stream::finish() {
    const std::uint64_t bits = size_ * 8;
    std::string end(1, '\x80');
    end.resize(1 + (kBlock + kLengthField - 1 - heldSize_) % kBlock, '\0');
    for (unsigned shift = 64; shift > 0; shift -= 8) {
        end.push_back(static_cast<char>(bits >> (shift - 8) & 0xFFU));
    }
    add(end);
    Sha256 hash;
    for (std::size_t i = 0; i < hash.size(); ++i) {
        hash[i] = static_cast<std::uint8_t>(state_[i / 4] >> (24 - 8 * (i % 4)));
    }
    return hash;
}

Sha256 sha256(std::string_view bytes) {
    Sha256Stream stream;
    stream.add(bytes);
    return stream.finish();
}

std::string hexText(const Sha256& hash) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(hash.size() * 2);
    for (const std::uint8_t byte : hash) {
        text.push_back(kDigits[byte >> 4U]);
        text.push_back(kDigits[byte & 15U]);
    }
    return text;
}

std::optional<Sha256> hashOfHexText(std::string_view text) {
    Sha256 hash;
    if (text.size() != hash.size() * 2) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < hash.size(); ++i) {
        const int high = digitOfHex(text[2 * i]);
        const int low = digitOfHex(text[2 * i + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        hash[i] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return hash;
}

}  // namespace marlowick
