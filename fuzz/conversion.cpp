// The conversion of meshes: whatever the bytes are, it ends, in a report or in a text.
#include "bounds.h"
#include "memory_files.h"
#include "mesh/mesh_converter.h"
#include "system/streams.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    fuzz::MemoryFiles disk;
    disk.put(Path("C:\\program\\a.bmf"), {reinterpret_cast<const char*>(data), size});
    const fuzz::Bounds bounds(size);
    if (gsConvertBMFtoSKN(Path("C:\\program\\a.bmf"), Path("C:\\program\\a.skn"))) {
        const std::string text = disk.content(Path("C:\\program\\a.skn"));
        fuzz::require(text.ends_with("\r\n"), "the last line has no end");
    }
    streams().closeAll();
    return 0;
}
