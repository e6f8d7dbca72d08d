#include "support/archive_builder.h"

#include <gtest/gtest.h>

#include "support/user_file_builder.h"

namespace marlowick::test {
namespace {

unsigned size32(const std::string& text) {
    return static_cast<unsigned>(text.size());
}

class Reader {
  public:
    explicit Reader(const std::string& file) : file_(file) {}

    void seek(std::size_t position) { position_ = position; }
    bool atEnd() const { return position_ == file_.size(); }

    unsigned number() {
        unsigned value = 0;
        const std::string bytes = text(4);
        for (std::size_t i = bytes.size(); i > 0; --i) {
            value = value * 256 + static_cast<unsigned char>(bytes[i - 1]);
        }
        return value;
    }

    std::string text(std::size_t size) {
        if (position_ + size > file_.size()) {
            ADD_FAILURE() << "the archive ends at " << file_.size() << ", not behind "
                          << position_ + size;
            return {};
        }
        position_ += size;
        return file_.substr(position_ - size, size);
    }

  private:
    const std::string& file_;
    std::size_t position_ = 0;
};

}  // namespace

std::string archiveFile(const std::vector<ArchiveEntry>& entries, unsigned version,
                        const std::string& filler) {
    std::string data = filler;
    std::string directory = little32(static_cast<unsigned>(entries.size()));
    for (const ArchiveEntry& entry : entries) {
        directory +=
            archiveRecord(size32(entry.data), entry.secondSize.value_or(size32(entry.data)),
                          16 + size32(data), entry.name);
        data += entry.data;
    }
    return archiveHead(16 + size32(data), version) + data + directory;
}

std::string archiveHead(unsigned directoryOffset, unsigned version) {
    return "FAR!byAZ" + little32(version) + little32(directoryOffset);
}

std::string archiveRecord(unsigned size, unsigned secondSize, unsigned offset,
                          const std::string& name) {
    return little32(size) + little32(secondSize) + little32(offset) + little32(size32(name)) + name;
}

std::string pattern(std::size_t size, unsigned seed) {
    std::string data(size, '\0');
    for (std::size_t i = 0; i < size; ++i) {
        data[i] = static_cast<char>(i * 31 + i / 257 + seed);
    }
    return data;
}

std::vector<ArchiveEntry> entriesOfArchive(const std::string& file) {
    std::vector<ArchiveEntry> entries;
    Reader directory(file);
    Reader data(file);
    EXPECT_EQ(directory.text(8), "FAR!byAZ");
    directory.seek(12);
    directory.seek(directory.number());
    for (unsigned left = directory.number(); left > 0 && !::testing::Test::HasFailure(); --left) {
        const unsigned size = directory.number();
        const unsigned secondSize = directory.number();
        data.seek(directory.number());
        const unsigned nameLength = directory.number();
        entries.push_back({directory.text(nameLength), data.text(size), secondSize});
    }
    EXPECT_TRUE(directory.atEnd());
    return entries;
}

}  // namespace marlowick::test
