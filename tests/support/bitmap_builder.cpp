#include "support/test_folder.h"

namespace marlowick::test {

std::string bitmapFile(int width, int height, unsigned rgb) {
    const auto little = [](unsigned number, int bytes) {
        std::string text;
        for (int i = 0; i < bytes; ++i) {
            text += static_cast<char>(number & 0xFFU);
            number >>= 8U;
        }
        return text;
    };
    const unsigned row = (static_cast<unsigned>(width) * 3 + 3) / 4 * 4;
    const unsigned size = row * static_cast<unsigned>(height);
    std::string file = "BM" + little(54 + size, 4) + little(0, 4) + little(54, 4) + little(40, 4) +
                       little(static_cast<unsigned>(width), 4) +
                       little(static_cast<unsigned>(height), 4) + little(1, 2) + little(24, 2) +
                       little(0, 4) + little(size, 4) + little(0, 16);
    for (int y = 0; y < height; ++y) {
        std::string line;
        for (int x = 0; x < width; ++x) {
            line += little(rgb, 3);
        }
        line.resize(row, '\0');
        file += line;
    }
    return file;
}

}  // namespace marlowick::test
