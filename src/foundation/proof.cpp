#include "foundation/proof.h"

#include <string>

#include "system/shown_path.h"

namespace marlowick {

RuntimeError notProven(const Path& file, std::string_view difference) {
    const int number = error::kInvalidFormat;
    return {number, std::string(errorDescription(number)) + "\r\n" + shownPath(file) + "\r\n" +
                        std::string(difference)};
}

}  // namespace marlowick
