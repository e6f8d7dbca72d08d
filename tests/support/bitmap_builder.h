// Bitmap files by a writer of the tests' own.
#pragma once

#include <string>

namespace marlowick::test {

// The fields of a bitmap's head that tell where its rows lie. The sizes of the file and of its rows
// are wrong unless they are given: nothing may depend on them.
struct BitmapHead {
    unsigned width = 3;
    unsigned height = 2;
    unsigned depth = 24;  // bits a pixel
    unsigned compression = 0;
    unsigned offset = 54;  // of the rows; bytes from 0
    unsigned colours = 0;
    unsigned headSize = 40;  // without the first 14 bytes
    unsigned fileSize = 1;
    unsigned rowsSize = 77;
};

// 54 bytes.
std::string bitmapHead(const BitmapHead& head);

}  // namespace marlowick::test
