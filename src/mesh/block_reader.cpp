#include "mesh/block_reader.h"

#include <bit>

#include "foundation/bytes.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::size_t kBlock = 32768;

}  // namespace

std::string_view BlockReader::take(std::size_t size) {
    if (block_.size() - next_ < size) {
        block_.erase(0, next_);
        next_ = 0;
        const std::size_t kept = block_.size();
        block_.resize(kBlock);
        block_.resize(kept + file_.read(block_.data() + kept, kBlock - kept));
        if (block_.size() < size) {
            throw RuntimeError(error::kInputPastEnd);
        }
    }
    const std::string_view bytes = std::string_view(block_).substr(next_, size);
    next_ += size;
    return bytes;
}

std::int32_t BlockReader::number() {
    return gflngLittleEndianToLong(take(4));
}

float BlockReader::singleFloat() {
    return std::bit_cast<float>(number());
}

std::string BlockReader::countedText() {
    const auto length = static_cast<unsigned char>(take(1).front());
    return std::string(take(length));
}

}  // namespace marlowick
