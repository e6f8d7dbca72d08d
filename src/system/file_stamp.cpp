#include "system/file_stamp.h"

#include <algorithm>

namespace marlowick {

bool isSettled(const FileStamp& stamp, std::int64_t now) {
    const std::int64_t latest = std::max(stamp.modified, stamp.changed);
    return latest <= now && now - latest >= kStampGrain.count();
}

std::int64_t stampClock() {
    const auto since = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(since).count();
}

}  // namespace marlowick
