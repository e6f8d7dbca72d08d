#include "far/archive_directory.h"

#include <functional>
#include <utility>

#include "foundation/bytes.h"
#include "foundation/error_trap.h"
#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr const char* kWhat = "directory";

// Of the hash FNV-1a.
constexpr std::uint64_t kHashStart = 0xCBF29CE484222325U;
constexpr std::uint64_t kHashFactor = 0x100000001B3U;

std::size_t blindHash(std::string_view name) {
    std::uint64_t hash = kHashStart;
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(upperByte(c))) * kHashFactor;
    }
    return static_cast<std::size_t>(hash ^ hash >> 32U);
}

// The first letters of a name in upper case, the first one on top, and which bits are taken by
// them.
struct Letters {
    std::uint64_t letters = 0;
    std::uint64_t mask = 0;
};

Letters firstLetters(std::string_view name) {
    Letters first;
    unsigned shift = 64;
    for (const char c : name.substr(0, sizeof first.letters)) {
        shift -= 8;
        first.letters |= std::uint64_t{static_cast<unsigned char>(upperByte(c))} << shift;
        first.mask |= std::uint64_t{0xFF} << shift;
    }
    return first;
}

// read gives false if it failed.
std::shared_ptr<const ArchiveDirectory> keptOrRead(
    KeptFiles& kept, const Path& archive,
    const std::function<bool(FarDirectory& directory)>& read) {
    return kept.get<ArchiveDirectory>(archive, kWhat, [&] {
        FarDirectory directory;
        const bool isWhole = read(directory);
        ArchiveDirectory made(std::move(directory));
        const std::size_t size = made.size();
        return Made<ArchiveDirectory>{std::move(made), size, isWhole};
    });
}

}  // namespace

std::string_view ArchiveDirectory::baseName(int number) const {
    const std::string_view name = directory_.Entries[number].FileName;
    // Forward: there is hardly ever more than one backslash, and the search for a character is fast
    // in that direction.
    std::size_t start = 0;
    for (std::size_t slash = name.find('\\'); slash != std::string_view::npos;
         slash = name.find('\\', start)) {
        start = slash + 1;
    }
    return name.substr(start);
}

int ArchiveDirectory::firstNamed(std::string_view name) const {
    const std::vector<std::int32_t>& places = byName();
    const std::size_t mask = places.size() - 1;
    for (std::size_t place = blindHash(name) & mask; places[place] != 0;
         place = (place + 1) & mask) {
        if (equalsIgnoringCase(baseName(places[place]), name)) {
            return places[place];
        }
    }
    return 0;
}

int ArchiveDirectory::firstBeginningWith(std::string_view beginning) const {
    if (beginnings_.empty()) {
        noteBeginnings();
    }
    const Letters wanted = firstLetters(beginning);
    for (std::size_t i = 0; i < beginnings_.size(); ++i) {
        if ((beginnings_[i] & wanted.mask) != wanted.letters) {
            continue;
        }
        const int number = static_cast<int>(i) + 1;
        if (equalsIgnoringCase(baseName(number).substr(0, beginning.size()), beginning)) {
            return number;
        }
    }
    return 0;
}

std::size_t ArchiveDirectory::size() const {
    // The names lie outside of the entries, and the index has up to four places for each.
    constexpr std::size_t kBesideAName = 16 + 4 * sizeof(std::int32_t) + sizeof(std::uint64_t);
    std::size_t size = sizeof(ArchiveDirectory);
    for (int number = 1; number <= directory_.Entries.bound(); ++number) {
        size += sizeof(FarEntry) + kBesideAName + directory_.Entries[number].FileName.size();
    }
    return size;
}

const std::vector<std::int32_t>& ArchiveDirectory::byName() const {
    if (byName_.empty()) {
        indexNames();
    }
    return byName_;
}

// Of several entries with one name the first stands for all.
void ArchiveDirectory::indexNames() const {
    const int last = count();
    std::size_t places = 2;
    while (places < 2 * static_cast<std::size_t>(last) + 1) {
        places *= 2;
    }
    byName_.assign(places, 0);
    for (int number = 1; number <= last; ++number) {
        const std::string_view name = baseName(number);
        std::size_t place = blindHash(name) & (places - 1);
        while (byName_[place] != 0 && !equalsIgnoringCase(baseName(byName_[place]), name)) {
            place = (place + 1) & (places - 1);
        }
        if (byName_[place] == 0) {
            byName_[place] = number;
        }
    }
}

void ArchiveDirectory::noteBeginnings() const {
    const int last = count();
    beginnings_.reserve(static_cast<std::size_t>(last));
    for (int number = 1; number <= last; ++number) {
        beginnings_.push_back(firstLetters(baseName(number)).letters);
    }
}

std::shared_ptr<const ArchiveDirectory> readArchiveDirectory(const Path& archive) {
    return keptOrRead(keptFiles(), archive,
                      [&](FarDirectory& directory) { return gsReadFARdir(directory, archive); });
}

QuietDirectory lookAtArchiveDirectory(const Path& archive, KeptFiles& kept) {
    QuietDirectory result;
    result.isWhole = true;
    result.directory = keptOrRead(kept, archive, [&](FarDirectory& directory) {
        result.isWhole = ignoringErrors([&] { readFarDirectory(directory, archive); });
        return result.isWhole;
    });
    return result;
}

}  // namespace marlowick
