#include "mesh/item_reader.h"

#include <bit>
#include <optional>

#include "foundation/bytes.h"
#include "system/block_copy.h"
#include "system/runtime_error.h"

namespace marlowick {

ItemReader::ItemReader(File& file) : bytes_(file, kBlock) {}

std::string_view ItemReader::take(std::size_t size) {
    const std::optional<std::string_view> bytes = bytes_.take(size);
    if (!bytes) {
        throw RuntimeError(error::kInputPastEnd);
    }
    return *bytes;
}

std::int32_t ItemReader::number() {
    return gflngLittleEndianToLong(take(4));
}

float ItemReader::singleFloat() {
    return std::bit_cast<float>(number());
}

std::string ItemReader::countedText() {
    const auto length = static_cast<unsigned char>(take(1).front());
    return std::string(take(length));
}

}  // namespace marlowick
