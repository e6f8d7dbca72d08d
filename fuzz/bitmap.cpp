// Bitmaps: what is given to be decoded is no longer than its file and one row's pad.
#include "bounds.h"
#include "foundation/bitmap_file.h"
#include "memory_files.h"
#include "system/runtime_error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    fuzz::MemoryFiles disk;
    const Path path("C:\\game\\a.bmp");
    disk.put(path, {reinterpret_cast<const char*>(data), size});
    const fuzz::Bounds bounds(size);
    beginsLikePicture(path, kWholeFile);
    for (const std::int64_t length : {kWholeFile, static_cast<std::int64_t>(size / 2)}) {
        std::string fromDisk;
        try {
            fromDisk = readBitmap(path, length);
        } catch (const RuntimeError&) {
            continue;
        }
        fuzz::require(fromDisk.size() <= size + 3, "a bitmap longer than its file");
        const std::string again = bitmapIn(fromDisk);
        fuzz::require(again == fromDisk, "a bitmap in memory is another one");
    }
    return 0;
}
