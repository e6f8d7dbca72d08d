// SHA-256 as published in FIPS 180-4: what tells whether kept bytes are still those that were kept.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace marlowick {

using Sha256 = std::array<std::uint8_t, 32>;

// The processor's own instructions for it where it has them, or plain arithmetic; both give the
// same.
enum class Sha256Way { Fastest, Plain };

// Takes content piece by piece, so that nothing large has to be held.
class Sha256Stream {
  public:
    explicit Sha256Stream(Sha256Way way = Sha256Way::Fastest);

    void add(std::string_view bytes);
    // The hash of all that was added; the stream is used up then.
    Sha256 finish();

  private:
    static constexpr std::size_t kBlock = 64;

    using Blocks = void (*)(std::uint32_t* state, const unsigned char* data, std::size_t count);

    Blocks blocks_;
    std::array<std::uint32_t, 8> state_;
    std::array<unsigned char, kBlock> held_{};
    std::size_t heldSize_ = 0;
    std::uint64_t size_ = 0;  // bytes
};

Sha256 sha256(std::string_view bytes);

// 64 lower-case hexadecimal digits, and back; nothing for any other text. Capitals are read too.
std::string hexText(const Sha256& hash);
std::optional<Sha256> hashOfHexText(std::string_view text);

}  // namespace marlowick
