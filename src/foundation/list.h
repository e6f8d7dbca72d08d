// The program's lists: counted from 1, with an element 0 that exists, stays
// empty and is never used. An upper bound of 0 means an empty list.
#pragma once

#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "system/runtime_error.h"

namespace marlowick {

// Raises 6 if a 16-bit counter can't hold the number.
inline void checkCounter(long long number) {
    if (number > std::numeric_limits<short>::max()) {
        throw RuntimeError(error::kOverflow);
    }
}

template <class Element>
class List {
  public:
    // The upper bound: the number of elements behind element 0.
    int bound() const { return static_cast<int>(elements_.size()) - 1; }

    // Element 0 to bound(); 9 for any other index.
    Element& operator[](int index) { return elements_[checked(index)]; }
    const Element& operator[](int index) const { return elements_[checked(index)]; }

    // Back to element 0 alone.
    void reset() { elements_.assign(1, Element{}); }

    // Exactly the elements 0 to newBound, what was there is kept. 9 for a bound below 0.
    void resize(int newBound) {
        if (newBound < 0) {
            throw RuntimeError(error::kSubscript);
        }
        elements_.resize(static_cast<std::size_t>(newBound) + 1);
    }

    // One more element at the end.
    void append(Element element) { elements_.push_back(std::move(element)); }

    // Room for so many elements, so that none is moved before they are there.
    void reserve(int bound) { elements_.reserve(static_cast<std::size_t>(bound) + 1); }

    // A new element at the end, to be filled where it stands; good until the next one is added.
    Element& appendNew() { return elements_.emplace_back(); }

    // An element at the end of a list whose counter is 16 bits wide: 6 past 32767.
    void appendCounted(Element element) {
        checkCounter(bound() + 1LL);
        append(std::move(element));
    }

  private:
    std::size_t checked(int index) const {
        if (index < 0 || index > bound()) {
            throw RuntimeError(error::kSubscript);
        }
        return static_cast<std::size_t>(index);
    }

    std::vector<Element> elements_ = std::vector<Element>(1);
};

}  // namespace marlowick
