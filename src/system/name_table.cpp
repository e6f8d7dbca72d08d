#include "system/name_table.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "system/folder_order.h"
#include "system/runtime_error.h"

namespace marlowick {
namespace {

constexpr std::size_t kFewestPlaces = 16;

std::uint32_t shortHash(std::string_view name) {
    const std::uint64_t hash = foldedHash(name);
    return static_cast<std::uint32_t>(hash ^ hash >> 32U);
}

}  // namespace

NameTable::NameTable(std::string names) : names_(std::move(names)) {
    // What counts places from 1 must not come to stand for a removed name.
    if (names_.size() >= std::numeric_limits<std::uint32_t>::max() - 1) {
        throw RuntimeError(error::kOutOfMemory);
    }
    const auto count = static_cast<std::size_t>(std::count(names_.begin(), names_.end(), '\0'));
    std::size_t places = kFewestPlaces;
    while (places < 2 * count) {
        places *= 2;
    }
    places_.resize(places);
    for (std::size_t start = 0; start < names_.size();) {
        const std::string_view name = names_.data() + start;
        enter(shortHash(name), start);
        start += name.size() + 1;
    }
}

void NameTable::add(std::string_view name) {
    if (placeOf(name) != nullptr) {
        return;
    }
    // A quarter of the places stays free, so that no search goes far.
    if ((taken_ + 1) * 4 > places_.size() * 3) {
        *this = NameTable(living());
    }
    const std::size_t start = names_.size();
    names_.append(name).push_back('\0');
    enter(shortHash(name), start);
}

void NameTable::remove(std::string_view name) {
    Place* const place = placeOf(name);
    if (place != nullptr) {
        place->start = kRemoved;
        --size_;
    }
}

std::string NameTable::find(std::string_view wanted) const {
    const std::uint32_t hash = shortHash(wanted);
    std::u16string folded;
    std::string_view best;
    for (std::size_t i = hash & (places_.size() - 1); places_[i].start != 0; i = next(i)) {
        if (places_[i].hash != hash || places_[i].start == kRemoved) {
            continue;
        }
        const std::string_view name = nameAt(places_[i]);
        if (name == wanted) {
            return std::string(name);
        }
        if (!best.empty() && name > best) {
            continue;
        }
        if (folded.empty()) {
            folded = foldedName(wanted);
        }
        if (foldedName(name) == folded) {
            best = name;
        }
    }
    return std::string(best);
}

void NameTable::enter(std::uint32_t hash, std::size_t start) {
    std::size_t i = hash & (places_.size() - 1);
    while (places_[i].start != 0) {
        i = next(i);
    }
    places_[i] = {hash, static_cast<std::uint32_t>(start) + 1};
    ++taken_;
    ++size_;
}

NameTable::Place* NameTable::placeOf(std::string_view name) {
    const std::uint32_t hash = shortHash(name);
    for (std::size_t i = hash & (places_.size() - 1); places_[i].start != 0; i = next(i)) {
        if (places_[i].hash == hash && places_[i].start != kRemoved && nameAt(places_[i]) == name) {
            return &places_[i];
        }
    }
    return nullptr;
}

// The names that weren't removed.
std::string NameTable::living() const {
    std::string names;
    names.reserve(names_.size());
    for (const Place& place : places_) {
        if (place.start != 0 && place.start != kRemoved) {
            names.append(nameAt(place)).push_back('\0');
        }
    }
    return names;
}

}  // namespace marlowick
