// The registry of Wine: whatever the bytes are, a value is found or not, and a path stays on the
// drives that the prefix has.
#include "bounds.h"
#include "foundation/game.h"
#include "memory_files.h"
#include "system/wine_registry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    fuzz::MemoryFiles disk;
    const fuzz::Bounds bounds(size);
    // The first line names a value; it is looked for in all that follows, itself included.
    const std::string_view line = text.substr(0, text.find('\n'));
    for (const std::string_view key : {std::string_view("Software\\Maxis\\The Sims"), line}) {
        for (const std::string_view value : {std::string_view("InstallPath"), line}) {
            wineRegistryText(text, key, value);
            wineRegistryAnyText(text, key, value);
            if (const auto found = wineRegistryMachineText(text, key, value)) {
                pathThroughDrives(Path("C:\\prefix"), found->text);
            }
        }
    }
    keyOf32Bit(line);
    pathThroughDrives(Path("C:\\prefix"), line);
    return 0;
}
