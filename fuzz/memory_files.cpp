#include "memory_files.h"

#include <algorithm>
#include <utility>

#include "bounds.h"
#include "system/game_text.h"
#include "system/runtime_error.h"

namespace marlowick::fuzz {
namespace {

constexpr std::size_t kLongestName = 255;

// Without doubled separators and one at the end.
std::string keyOf(const Path& path) {
    std::string key;
    for (const char c : path.text()) {
        if (c != '\\' || key.empty() || key.back() != '\\') {
            key += c;
        }
    }
    while (key.ends_with('\\')) {
        key.pop_back();
    }
    return upperCase(utf8ToGameText(key));
}

class MemoryFile : public File {
  public:
    MemoryFile(std::shared_ptr<std::string> content, bool writable)
        : content_(std::move(content)), writable_(writable) {}

    std::size_t read(char* data, std::size_t size) override {
        const std::size_t start = std::min(position_, content_->size());
        const std::size_t count = std::min(size, content_->size() - start);
        std::copy_n(content_->data() + start, count, data);
        position_ = start + count;
        return count;
    }
    void write(std::string_view data) override {
        if (!writable_) {
            throw RuntimeError(error::kPathFileAccess);
        }
        const Uncounted uncounted;
        content_->resize(std::max(content_->size(), position_ + data.size()));
        content_->replace(position_, data.size(), data);
        position_ += data.size();
    }
    void seek(std::int64_t position) override {
        if (position < 0) {
            throw RuntimeError(error::kBadRecordNumber);
        }
        position_ = static_cast<std::size_t>(position);
    }
    std::int64_t position() override { return static_cast<std::int64_t>(position_); }
    std::int64_t size() override { return static_cast<std::int64_t>(content_->size()); }
    void flush() override {}

  private:
    std::shared_ptr<std::string> content_;
    bool writable_;
    std::size_t position_ = 0;
};

}  // namespace

MemoryFiles::MemoryFiles() : before_(setFileSystem(this)) {}

MemoryFiles::~MemoryFiles() {
    setFileSystem(before_);
}

MemoryFiles::Node* MemoryFiles::find(const Path& path) {
    const auto found = nodes_.find(keyOf(path));
    return found == nodes_.end() ? nullptr : &found->second;
}

void MemoryFiles::makeFolders(const Path& path) {
    if (path.empty() || find(path) != nullptr) {
        return;
    }
    makeFolders(path.folder());
    nodes_[keyOf(path)] = {path.fileName(), nullptr};
}

void MemoryFiles::put(const Path& path, std::string_view content) {
    makeFolders(path.folder());
    const Uncounted uncounted;
    nodes_[keyOf(path)] = {path.fileName(), std::make_shared<std::string>(content)};
}

std::vector<std::string> MemoryFiles::names() const {
    std::vector<std::string> names;
    for (const auto& [key, node] : nodes_) {
        if (node.content) {
            names.push_back(key);
        }
    }
    return names;
}

std::string MemoryFiles::content(const Path& path) const {
    return *nodes_.at(keyOf(path)).content;
}

std::unique_ptr<File> MemoryFiles::open(const Path& path, OpenMode mode) {
    Node* node = find(path);
    if (node != nullptr && !node->content) {
        throw RuntimeError(error::kPathFileAccess);
    }
    if (mode == OpenMode::Input && node == nullptr) {
        throw RuntimeError(folderExists(path.folder()) ? error::kFileNotFound
                                                       : error::kPathNotFound);
    }
    const bool isNew = mode == OpenMode::CreateNew || mode == OpenMode::CreateOwn;
    if (isNew && node != nullptr) {
        throw RuntimeError(error::kFileAlreadyExists);
    }
    if (node == nullptr) {
        if (!folderExists(path.folder())) {
            throw RuntimeError(error::kPathNotFound);
        }
        if (path.fileName().size() > kLongestName) {
            throw RuntimeError(error::kBadFileName);
        }
        put(path, "");
        node = find(path);
    } else if (mode == OpenMode::Output || mode == OpenMode::Rewrite) {
        node->content->clear();
    }
    return std::make_unique<MemoryFile>(node->content, mode != OpenMode::Input);
}

std::vector<FolderEntry> MemoryFiles::list(const Path& folder) {
    std::vector<FolderEntry> entries;
    const std::string above = keyOf(folder) + "\\";
    for (auto at = nodes_.upper_bound(above); at != nodes_.end() && at->first.starts_with(above);
         ++at) {
        if (at->first.find('\\', above.size()) == std::string::npos) {
            entries.push_back({at->second.name, at->second.content == nullptr});
        }
    }
    return entries;
}

bool MemoryFiles::fileExists(const Path& path) {
    const Node* node = find(path);
    return node != nullptr && node->content;
}

bool MemoryFiles::folderExists(const Path& path) {
    const Node* node = find(path);
    return node != nullptr && !node->content;
}

std::int64_t MemoryFiles::length(const Path& path) {
    const Node* node = find(path);
    if (node == nullptr || !node->content) {
        throw RuntimeError(error::kFileNotFound);
    }
    return static_cast<std::int64_t>(node->content->size());
}

void MemoryFiles::remove(const Path& path) {
    if (!fileExists(path)) {
        throw RuntimeError(error::kFileNotFound);
    }
    nodes_.erase(keyOf(path));
}

void MemoryFiles::makeFolder(const Path& path) {
    if (find(path) != nullptr || path.fileName().size() > kLongestName) {
        throw RuntimeError(error::kPathFileAccess);
    }
    if (!folderExists(path.folder())) {
        throw RuntimeError(error::kPathNotFound);
    }
    nodes_[keyOf(path)] = {path.fileName(), nullptr};
}

void MemoryFiles::removeFolder(const Path& path) {
    if (!folderExists(path)) {
        throw RuntimeError(error::kPathNotFound);
    }
    if (!list(path).empty()) {
        throw RuntimeError(error::kPathFileAccess);
    }
    nodes_.erase(keyOf(path));
}

void MemoryFiles::rename(const Path& source, const Path& target) {
    Node* from = find(source);
    if (from == nullptr) {
        throw RuntimeError(error::kFileNotFound);
    }
    Node node = *from;
    node.name = target.fileName();
    nodes_.erase(keyOf(source));
    nodes_[keyOf(target)] = std::move(node);
}

}  // namespace marlowick::fuzz
