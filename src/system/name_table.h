// The names of a folder, to be found blind to letter case. They stand one behind the other in one
// text, as a folder may have a hundred thousand of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marlowick {

// Names are UTF-8, as the machine has them, and none is empty.
class NameTable {
  public:
    // names: each ended by a zero byte, none twice. Raises 7 for more than four gigabytes.
    explicit NameTable(std::string names = {});

    // Unless it is there.
    void add(std::string_view name);
    // If it is there.
    void remove(std::string_view name);
    // The wanted name, or else one that equals it but for case: the first by its bytes if there are
    // several, empty if there is none.
    std::string find(std::string_view wanted) const;
    std::size_t size() const { return size_; }

  private:
    struct Place {
        std::uint32_t hash = 0;
        std::uint32_t start = 0;  // of the name, in the text, counted from 1; 0 for none
    };
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFF;

    std::string_view nameAt(const Place& place) const { return names_.data() + place.start - 1; }
    std::size_t next(std::size_t index) const { return (index + 1) & (places_.size() - 1); }
    void enter(std::uint32_t hash, std::size_t start);
    Place* placeOf(std::string_view name);
    std::string living() const;

    std::string names_;
    std::vector<Place> places_;  // by hash, each in the first one that was free; a power of two
    std::size_t taken_ = 0;      // places, also by names that were removed
    std::size_t size_ = 0;
};

}  // namespace marlowick
