#include "system/streams.h"

#include <utility>

#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {

File& Streams::open(Slot slot, const Path& path, OpenMode mode) {
    if (isOpen(slot)) {
        throw RuntimeError(error::kFileAlreadyOpen);
    }
    std::unique_ptr<File> file = files().open(path, mode);
    return *streams_.insert_or_assign(slot, Stream{path, std::move(file)}).first->second.file;
}

File& Streams::at(Slot slot) {
    const auto found = streams_.find(slot);
    if (found == streams_.end()) {
        throw RuntimeError(error::kBadFileName);
    }
    return *found->second.file;
}

void Streams::close(Slot slot) {
    streams_.erase(slot);
}

Slot Streams::freeSlot() const {
    int number = 1;
    while (isOpen(Slot::free(number))) {
        ++number;
    }
    return Slot::free(number);
}

bool Streams::isOpen(Slot slot) const {
    return streams_.contains(slot);
}

void Streams::letGo(const Path& path) {
    std::erase_if(streams_, [&](const auto& entry) {
        return equalsIgnoringCase(entry.second.path.text(), path.text());
    });
}

void Streams::closeAll() {
    streams_.clear();
}

Streams& streams() {
    static Streams instance;
    return instance;
}

}  // namespace marlowick
