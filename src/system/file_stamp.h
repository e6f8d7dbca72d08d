// What tells whether a file is still the one that was read: for whoever keeps something of a file
// between two questions.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "system/path.h"

namespace marlowick {

// Times count nanoseconds since 1970. The system's own clock sets them when the file changes.
struct FileStamp {
    std::int64_t size = 0;      // bytes
    std::int64_t modified = 0;  // of the content
    std::int64_t changed = 0;   // of the content or of anything that is known about the file
    std::uint64_t volume = 0;
    std::uint64_t place = 0;  // on the volume; no two files have one at the same time

    bool operator==(const FileStamp&) const = default;
};

// The file's stamp, links followed; nothing if there is no such file or it is a folder.
std::optional<FileStamp> fileStamp(const Path& path);

// A file's time may stand still for so long while its content changes.
inline constexpr std::chrono::nanoseconds kStampGrain = std::chrono::seconds(2);

// Whether a later change would show: what the stamp tells of lies further back than the grain. now
// counts as the stamp's times do. A time to come is never settled.
bool isSettled(const FileStamp& stamp, std::int64_t now);

// The machine's present time, as stamps count it.
std::int64_t stampClock();

}  // namespace marlowick
