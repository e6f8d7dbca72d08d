#include "system/kept_files.h"

namespace marlowick {

std::shared_ptr<const void> KeptFiles::take(const Key& key, const std::optional<FileStamp>& stamp) {
    const auto found = byKey_.find(key);
    if (found == byKey_.end()) {
        return nullptr;
    }
    const auto item = found->second;
    if (item->stamp != stamp) {
        drop(item);
        return nullptr;
    }
    items_.splice(items_.begin(), items_, item);
    return item->value;
}

void KeptFiles::keep(Item item) {
    if (item.bytes > most_) {
        return;
    }
    while (bytes_ + item.bytes > most_) {
        drop(std::prev(items_.end()));
    }
    bytes_ += item.bytes;
    items_.push_front(std::move(item));
    byKey_[items_.front().key] = items_.begin();
}

void KeptFiles::drop(std::list<Item>::iterator item) {
    bytes_ -= item->bytes;
    byKey_.erase(item->key);
    items_.erase(item);
}

KeptFiles& keptFiles() {
    static KeptFiles kept;
    return kept;
}

}  // namespace marlowick
