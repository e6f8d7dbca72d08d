// The files of the launchers: Steam's libraries and manifests, Epic's items.
#include "bounds.h"
#include "foundation/epic_manifests.h"
#include "foundation/steam_library.h"
#include "foundation/vdf_text.h"
#include "memory_files.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace marlowick;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    fuzz::MemoryFiles disk;
    disk.put(Path("C:\\steam\\steamapps\\libraryfolders.vdf"), text);
    disk.put(Path("C:\\data\\Epic\\EpicGamesLauncher\\Data\\Manifests\\a.item"), text);
    const fuzz::Bounds bounds(size);
    std::size_t values = 0;
    readVdf(text, [&](const std::vector<std::string>&, const std::string&) { ++values; });
    fuzz::require(values <= size, "values from nowhere");
    librariesOfVdf(text);
    installDirOfManifest(text);
    installLocationOfItem(text);
    BoundedLook look;
    epicInstalls(Path("C:\\data"), look);
    steamLibraries({Path("C:\\steam")}, look);
    return 0;
}
