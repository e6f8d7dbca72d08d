#include "foundation/bitmap_file.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "foundation/bytes.h"
#include "system/files.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

// A skin is a few hundred kilobytes; a bitmap that ends behind this is more than can be shown.
constexpr std::int64_t kLargest = 128LL << 20U;

constexpr std::int64_t kFileHead = 14;
constexpr std::int64_t kShortHead = 12;  // of the oldest bitmaps, with sizes of 16 bits
constexpr std::int64_t kLongHead = 40;
constexpr std::int64_t kHeads = kFileHead + kLongHead;
constexpr std::int32_t kRunLength8 = 1;
constexpr std::int32_t kRunLength4 = 2;
constexpr std::int32_t kBitMasks = 3;
constexpr std::int64_t kPaletteLimit = 256;
constexpr std::int64_t kColourSize = 4;
constexpr std::int64_t kShortColourSize = 3;  // below a short head
constexpr std::size_t kColoursField = 46;

constexpr std::array<std::string_view, 5> kBeginnings = {"BM", "\x89PNG", "/* XPM", "\xFF\xD8\xFF",
                                                         "GIF8"};

struct BitmapHead {
    std::int64_t rowsOffset = 0;  // as stated
    std::int64_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t depth = 0;  // bits a pixel
    std::int32_t compression = 0;
    std::int64_t colours = 0;  // of the palette, as stated; 0 for all that the depth allows
};

// Where the rows of a bitmap end, in bytes from its start.
struct BitmapEnd {
    std::int64_t begin = 0;  // where the rows begin
    std::int64_t least = 0;  // without the pad of the last row; 0 if nothing tells
    std::int64_t whole = 0;
};

std::int64_t signed32(std::string_view bytes, std::size_t offset) {
    return gflngLittleEndianToLong(bytes.substr(offset, 4));
}

std::int64_t unsigned32(std::string_view bytes, std::size_t offset) {
    return signed32(bytes, offset) & 0xFFFFFFFF;
}

std::int64_t unsigned16(std::string_view bytes, std::size_t offset) {
    return signed32(bytes, offset) & 0xFFFF;
}

// The fields of a bitmap's head; none for other bytes.
std::optional<BitmapHead> headOf(std::string_view bytes) {
    const auto size = static_cast<std::int64_t>(bytes.size());
    if (size < kFileHead + kShortHead + 2 || !bytes.starts_with("BM")) {
        return std::nullopt;
    }
    BitmapHead head;
    head.rowsOffset = unsigned32(bytes, 10);
    head.size = unsigned32(bytes, 14);
    if (head.size == kShortHead) {
        head.width = unsigned16(bytes, 18);
        head.height = unsigned16(bytes, 20);
        head.depth = unsigned16(bytes, 24);
        return head;
    }
    if (head.size < kLongHead || size < kHeads) {
        return std::nullopt;
    }
    head.width = signed32(bytes, 18);
    // A height below zero tells of rows from the top down.
    head.height = std::max(signed32(bytes, 22), -signed32(bytes, 22));
    head.depth = unsigned16(bytes, 28);
    head.compression = static_cast<std::int32_t>(signed32(bytes, 30));
    head.colours = unsigned32(bytes, kColoursField);
    return head;
}

std::int64_t headsEnd(const BitmapHead& head) {
    const bool hasMasks = head.compression == kBitMasks && head.size == kLongHead;
    return kFileHead + head.size + (hasMasks ? 12 : 0);
}

// The colours that a palette has room for before the rows; none where there is no telling.
std::optional<std::int64_t> coloursBeforeRows(const BitmapHead& head) {
    const std::int64_t room = (head.rowsOffset - headsEnd(head)) / kColourSize;
    if (head.depth > 8 || head.size == kShortHead || room < 1) {
        return std::nullopt;
    }
    return room;
}

// How many colours the palette has, as the head states it.
std::int64_t statedColours(const BitmapHead& head) {
    const std::int64_t all = std::int64_t{1} << head.depth;
    return head.colours == 0 ? all : std::min(head.colours, kPaletteLimit);
}

// Where the rows begin: where the head says, but never within the heads, nor within the palette
// where it can't be told to be shorter.
std::int64_t rowsBegin(const BitmapHead& head) {
    std::int64_t begin = headsEnd(head);
    if (head.depth <= 8 && !coloursBeforeRows(head)) {
        begin += statedColours(head) * (head.size == kShortHead ? kShortColourSize : kColourSize);
    }
    return std::max(begin, head.rowsOffset);
}

// A palette that is told to reach into the rows ends before them.
void cutPalette(std::string& bytes) {
    const std::optional<BitmapHead> head = headOf(bytes);
    const std::optional<std::int64_t> room = coloursBeforeRows(*head);
    if (room && *room < statedColours(*head)) {
        bytes.replace(kColoursField, 4, gfstrLongToLittleEndian(static_cast<std::int32_t>(*room)));
    }
}

// None for bytes that no rows can follow.
std::optional<BitmapEnd> endOf(std::string_view bytes) {
    const std::optional<BitmapHead> head = headOf(bytes);
    if (!head || head->width <= 0 || head->height <= 0 || head->depth < 1 || head->depth > 32) {
        return std::nullopt;
    }
    const std::int64_t begin = rowsBegin(*head);
    const std::int64_t row = (head->width * head->depth + 7) / 8;
    const std::int64_t paddedRow = (row + 3) / 4 * 4;
    if (paddedRow > kLargest / head->height) {
        return std::nullopt;
    }
    if (head->compression == kRunLength8 || head->compression == kRunLength4) {
        // At worst four bytes for each pixel and for each end of a row.
        return BitmapEnd{begin, 0, begin + 4 * (head->width + 1) * (head->height + 1)};
    }
    return BitmapEnd{begin, begin + paddedRow * (head->height - 1) + row,
                     begin + paddedRow * head->height};
}

// Reads on until so many bytes are held, or the file ends.
void readUpTo(File& file, std::int64_t end, std::string& bytes) {
    const std::size_t held = bytes.size();
    bytes.resize(std::max(held, static_cast<std::size_t>(end)));
    bytes.resize(held + file.read(bytes.data() + held, bytes.size() - held));
}

std::int64_t countedLength(File& file, std::int64_t length) {
    return std::min(file.size(), length);
}

}  // namespace

std::string readBitmap(const Path& path, std::int64_t length) {
    const std::unique_ptr<File> file = files().open(path, OpenMode::Input);
    const std::int64_t available = std::min(countedLength(*file, length), kLargest);
    std::string bytes;
    readUpTo(*file, std::min(available, kHeads), bytes);
    const std::optional<BitmapEnd> end = endOf(bytes);
    if (!end || end->begin >= available || end->least > available) {
        throw RuntimeError(error::kInvalidPicture);
    }
    readUpTo(*file, std::min(available, end->whole), bytes);
    return bitmapIn(std::move(bytes));
}

std::string bitmapIn(std::string bytes) {
    const std::optional<BitmapEnd> end = endOf(bytes);
    const auto held = std::min(static_cast<std::int64_t>(bytes.size()), kLargest);
    if (!end || end->begin >= held || end->least > held) {
        throw RuntimeError(error::kInvalidPicture);
    }
    cutPalette(bytes);
    bytes.resize(
        static_cast<std::size_t>(end->least > 0 ? end->whole : std::min(held, end->whole)));
    return bytes;
}

bool beginsLikePicture(const Path& path, std::int64_t length) {
    const std::unique_ptr<File> file = files().open(path, OpenMode::Input);
    std::string bytes;
    readUpTo(*file, std::min(countedLength(*file, length), kHeads), bytes);
    return std::any_of(kBeginnings.begin(), kBeginnings.end(),
                       [&](std::string_view beginning) { return bytes.starts_with(beginning); });
}

}  // namespace marlowick
