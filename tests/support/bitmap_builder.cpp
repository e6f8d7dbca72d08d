#include "support/bitmap_builder.h"

#include "support/test_folder.h"
#include "support/user_file_builder.h"

namespace marlowick::test {

std::string bitmapHead(const BitmapHead& head) {
    return "BM" + little32(head.fileSize) + little32(0) + little32(head.offset) +
           little32(head.headSize) + little32(head.width) + little32(head.height) + little16(1) +
           little16(head.depth) + little32(head.compression) + little32(head.rowsSize) +
           little32(0) + little32(0) + little32(head.colours) + little32(0);
}

std::string bitmapFile(int width, int height, unsigned rgb) {
    const unsigned row = (static_cast<unsigned>(width) * 3 + 3) / 4 * 4;
    const unsigned size = row * static_cast<unsigned>(height);
    std::string file = bitmapHead({.width = static_cast<unsigned>(width),
                                   .height = static_cast<unsigned>(height),
                                   .fileSize = 54 + size,
                                   .rowsSize = size});
    for (int y = 0; y < height; ++y) {
        std::string line;
        for (int x = 0; x < width; ++x) {
            line += little32(rgb).substr(0, 3);
        }
        line.resize(row, '\0');
        file += line;
    }
    return file;
}

}  // namespace marlowick::test
