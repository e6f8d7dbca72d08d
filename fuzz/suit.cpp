// Suits in both forms: whatever the bytes are, they are read or refused.
#include "preview/suit.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "system/runtime_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    for (const FileForm form : {FileForm::Text, FileForm::Binary}) {
        try {
            const std::vector<Suit> suits = readSuits(bytes, form);
            suitNamed(suits, "suit");
        } catch (const RuntimeError&) {
        }
    }
    return 0;
}
