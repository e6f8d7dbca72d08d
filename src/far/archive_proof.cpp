#include "far/archive_proof.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "system/block_copy.h"
#include "system/files.h"

namespace marlowick {
namespace {

constexpr std::string_view kMagicAndVersion("FAR!byAZ\x01\0\0\0", 12);
constexpr std::int64_t kHeadSize = 16;
constexpr std::int64_t kCountSize = 4;
constexpr std::int64_t kRecordSize = 16;

// Bytes anywhere in a file, read in pieces: most entries are small and lie behind one another.
class Pieces {
  public:
    explicit Pieces(const Path& path) : file_(files().open(path, OpenMode::Input)) {}

    std::int64_t size() { return file_->size(); }

    // Fewer bytes where the file ends. Valid until the next call.
    std::string_view at(std::int64_t position, std::int64_t size) {
        if (position < start_ || position + size > start_ + held()) {
            file_->seek(position);
            piece_.resize(static_cast<std::size_t>(std::max(size, kPiece)));
            piece_.resize(file_->read(piece_.data(), piece_.size()));
            start_ = position;
        }
        return std::string_view(piece_).substr(static_cast<std::size_t>(position - start_),
                                               static_cast<std::size_t>(size));
    }

  private:
    static constexpr std::int64_t kPiece = 1 << 17;

    std::int64_t held() const { return static_cast<std::int64_t>(piece_.size()); }

    std::unique_ptr<File> file_;
    std::string piece_;
    std::int64_t start_ = 0;
};

// True if size bytes at two places of two files have the same first and last block.
bool haveSameEnds(Pieces& left, std::int64_t leftPlace, Pieces& right, std::int64_t rightPlace,
                  std::int64_t size) {
    const auto block = static_cast<std::int64_t>(kBlock);
    const auto same = [&](std::int64_t from, std::int64_t count) {
        const std::string_view bytes = left.at(leftPlace + from, count);
        return static_cast<std::int64_t>(bytes.size()) == count &&
               bytes == right.at(rightPlace + from, count);
    };
    return same(0, std::min(size, block)) &&
           (size <= block || same(std::max(block, size - block), std::min(size - block, block)));
}

class ArchiveComparison {
  public:
    // found: the archive's directory, as it was read back.
    ArchiveComparison(const FarEdit& edit, const FarDirectory& found, const Path& archive,
                      const std::function<void()>& afterEntry)
        : edit_(edit), found_(found), afterEntry_(afterEntry), file_(archive) {}

    // Entry by entry; the head comes last, since it tells where they end.
    std::string difference() {
        if (!keptEntriesAreSame() || !addedEntriesAreSame()) {
            return "Entry " + std::to_string(number_) + " " + why_ + ".";
        }
        const std::int32_t count = gflngLittleEndianToLong(found_.FileCount);
        if (count != number_ || found_.Entries.bound() != number_) {
            return "The directory lists " + std::to_string(count) + " entries instead of " +
                   std::to_string(number_) + ".";
        }
        const std::string head(file_.at(0, kHeadSize));
        if (head != std::string(kMagicAndVersion) +
                        gfstrLongToLittleEndian(static_cast<std::int32_t>(position_))) {
            return "The head differs.";
        }
        const std::int64_t end = position_ + directorySize_;
        return file_.size() == end ? ""
                                   : "The length is " + std::to_string(file_.size()) +
                                         " instead of " + std::to_string(end) + ".";
    }

  private:
    bool keptEntriesAreSame() {
        std::optional<Pieces> source;
        const int count = farEntryCount(edit_.mudtFarDir);
        for (int number = 1; number <= count; ++number) {
            const FarEntry& entry = edit_.mudtFarDir.Entries[number];
            if (entry.Deleted) {
                continue;
            }
            if (!source) {
                source.emplace(edit_.mstrFarFile);
            }
            if (!isSame(entry, *source, gflngLittleEndianToLong(entry.FileOffset))) {
                return false;
            }
        }
        return true;
    }

    bool addedEntriesAreSame() {
        for (int number = 1; number <= edit_.mudtAddedFiles.bound(); ++number) {
            const FarAddedFile& added = edit_.mudtAddedFiles[number];
            if (added.AddedName.empty()) {
                continue;
            }
            Pieces source(added.AddedPath);
            FarEntry entry;
            entry.FileSize = gfstrLongToLittleEndian(static_cast<std::int32_t>(source.size()));
            entry.FileSize2 = entry.FileSize;
            entry.NameLength =
                gfstrLongToLittleEndian(static_cast<std::int32_t>(added.AddedName.size()));
            entry.FileName = added.AddedName;
            if (!isSame(entry, source, 0)) {
                return false;
            }
        }
        return true;
    }

    // Whether the next entry is the one that was meant, whose data lies in source.
    bool isSame(const FarEntry& meant, Pieces& source, std::int64_t place) {
        if (++number_ > found_.Entries.bound()) {
            why_ = "is missing";
            return false;
        }
        const FarEntry& found = found_.Entries[number_];
        if (found.FileName != meant.FileName || found.NameLength != meant.NameLength) {
            why_ = "has another name";
            return false;
        }
        if (found.FileSize != meant.FileSize || found.FileSize2 != meant.FileSize2) {
            why_ = "has another size";
            return false;
        }
        const std::int64_t size = gflngLittleEndianToLong(meant.FileSize);
        if (gflngLittleEndianToLong(found.FileOffset) != position_) {
            why_ = "lies elsewhere";
            return false;
        }
        if (!haveSameEnds(file_, position_, source, place, size)) {
            why_ = "has other data";
            return false;
        }
        position_ += size;
        directorySize_ += kRecordSize + static_cast<std::int64_t>(meant.FileName.size());
        if (afterEntry_) {
            afterEntry_();
        }
        return true;
    }

    const FarEdit& edit_;
    const FarDirectory& found_;
    const std::function<void()>& afterEntry_;
    Pieces file_;
    int number_ = 0;
    std::string why_;
    std::int64_t position_ = kHeadSize;
    std::int64_t directorySize_ = kCountSize;
};

}  // namespace

std::string archiveDifference(const FarEdit& edit, const Path& archive,
                              const std::function<void()>& afterEntry) {
    FarDirectory found;
    try {
        readFarDirectory(found, archive);
    } catch (...) {
        return "It can't be read again: " + errorText(currentError()) + ".";
    }
    return ArchiveComparison(edit, found, archive, afterEntry).difference();
}

}  // namespace marlowick
