#include "system/streams.h"

#include <utility>

#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick {

File& Streams::open(int slot, const Path& path, OpenMode mode) {
    if (isOpen(slot)) {
        throw RuntimeError(error::kFileAlreadyOpen);
    }
    std::unique_ptr<File> file = files().open(path, mode);
    return *slots_.insert_or_assign(slot, Slot{path, std::move(file)}).first->second.file;
}

File& Streams::at(int slot) {
    const auto found = slots_.find(slot);
    if (found == slots_.end()) {
        throw RuntimeError(error::kBadFileName);
    }
    return *found->second.file;
}

void Streams::close(int slot) {
    slots_.erase(slot);
}

int Streams::freeSlot() const {
    int number = 1;
    while (isOpen(number)) {
        ++number;
    }
    return number;
}

bool Streams::isOpen(int slot) const {
    return slots_.contains(slot);
}

void Streams::letGo(const Path& path) {
    std::erase_if(slots_, [&](const auto& entry) {
        return equalsIgnoringCase(entry.second.path.text(), path.text());
    });
}

void Streams::closeAll() {
    slots_.clear();
}

Streams& streams() {
    static Streams instance;
    return instance;
}

}  // namespace marlowick
