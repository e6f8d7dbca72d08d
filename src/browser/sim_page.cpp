#include "browser/sim_page.h"

#include <algorithm>
#include <utility>

namespace marlowick {

page::Position portraitPosition(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + 2 + 9, corner.y + 2};
}

page::Position namePosition(int cell) {
    const page::Position corner = page::corner(cell);
    return {corner.x + 2, corner.y + 48};
}

bool SimPage::goTo(int number) {
    return std::exchange(number_, number) != number;
}

bool SimPage::goToFirst() {
    return goTo(0);
}

bool SimPage::goToPrevious() {
    return number_ > 0 && goTo(number_ - 1);
}

bool SimPage::goToNext() {
    return page::lastPage(files_.bound()) > number_ && goTo(number_ + 1);
}

bool SimPage::goToLast() {
    return goTo(page::lastPage(files_.bound()));
}

int SimPage::filledCells() const {
    const int before = page::entryOf(number_, 0) - 1;
    return number_ < 0 ? 0 : std::clamp(files_.bound() - before, 0, page::kCells);
}

std::string SimPage::fileIn(int cell) const {
    const int entry = page::entryOf(number_, cell);
    return entry >= 1 && entry <= files_.bound() ? files_[entry] : std::string();
}

}  // namespace marlowick
