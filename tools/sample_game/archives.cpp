#include "archives.h"

namespace sample {

std::string farArchive(const std::vector<ArchiveEntry>& entries) {
    std::string data;
    std::string directory = little32(static_cast<std::uint32_t>(entries.size()));
    constexpr std::uint32_t kHead = 16;
    for (const ArchiveEntry& entry : entries) {
        const auto size = static_cast<std::uint32_t>(entry.data.size());
        directory += little32(size);
        directory += little32(size + static_cast<std::uint32_t>(entry.secondSizeMore));
        directory += little32(kHead + static_cast<std::uint32_t>(data.size()));
        directory += little32(static_cast<std::uint32_t>(entry.name.size()));
        directory += entry.name;
        data += entry.data;
    }
    return "FAR!byAZ" + little32(1) + little32(kHead + static_cast<std::uint32_t>(data.size())) +
           data + directory;
}

}  // namespace sample
