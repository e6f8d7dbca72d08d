#include "foundation/proof.h"

#include <string>

namespace marlowick {

RuntimeError notProven(const Path& file, std::string_view difference) {
    const int number = error::kInvalidFormat;
    return {number, std::string(errorDescription(number)) + "\r\n" + file.text() + "\r\n" +
                        std::string(difference)};
}

}  // namespace marlowick
