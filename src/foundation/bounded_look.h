// How far the program looks around for the game and its saves: a bounded number of files opened,
// and in a search this machine's own disks alone and a bounded time. Whatever lies beyond is simply
// not found.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "system/places.h"

namespace marlowick {

using SearchClock = std::function<std::chrono::steady_clock::time_point()>;

class BoundedLook {
  public:
    // For a search. remote: roots that nothing behind is asked for. The time runs from here.
    BoundedLook(const std::vector<Path>& remote, SearchClock clock);
    // For questions about one game, wherever that lies and however long they take.
    BoundedLook();

    // The path with every link in it followed, each once.
    std::optional<Path> place(const Path& path);
    // The same of a file alone, and of a folder.
    std::optional<Path> file(const Path& path);
    std::optional<Path> folder(const Path& path);

    // The content of a file of at most so many bytes.
    std::optional<std::string> read(const Path& path, std::int64_t most);

    // The names in a folder, UTF-8, in order, at most so many.
    std::vector<std::string> names(const Path& folder, std::size_t most);

  private:
    bool mayGoOn() const;

    std::optional<LocalPlaces> places_;  // none: every place counts
    SearchClock clock_;
    std::chrono::steady_clock::time_point end_;
    int opened_ = 0;
};

}  // namespace marlowick
