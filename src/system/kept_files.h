// What was made out of files, kept from one question to the next, so that a click on another skin
// doesn't read the skeleton and all directories anew.
//
// Nobody is ever shown what no longer stands on the disk. At each use the file is looked at: its
// size, the times of its content and of its last change to the nanosecond, and its place on the
// disk. What was made of another state of it is made again. A file that was changed less than two
// seconds before it was read isn't kept, since its times may not tell a second change. What failed
// is never kept. All that is kept is bounded together; what was used longest ago goes first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "system/file_stamp.h"
#include "system/path.h"

namespace marlowick {

inline constexpr std::size_t kMostKept = 64U << 20U;

template <class Value>
struct Made {
    Value value;
    std::size_t bytes = 0;  // of memory, about
    bool isWhole = true;    // or else a failure came in between, and it serves this question alone
};

class KeptFiles {
  public:
    // most: bytes in all; what was used longest ago goes first. clock: the present time, as stamps
    // count it.
    explicit KeptFiles(std::size_t most = kMostKept,
                       std::function<std::int64_t()> clock = stampClock)
        : most_(most), clock_(std::move(clock)) {}

    // What make makes out of the file. what tells apart what is made of one file, and stands for
    // one type of value. A failure of make is raised and nothing is kept of it. Neither is anything
    // of a file that was changed just now or while it was read.
    template <class Value>
    std::shared_ptr<const Value> get(const Path& file, const std::string& what,
                                     const std::function<Made<Value>()>& make) {
        const std::int64_t now = clock_();
        const std::optional<FileStamp> stamp = fileStamp(file);
        const Key key(file.text(), what);
        if (std::shared_ptr<const void> kept = take(key, stamp)) {
            return std::static_pointer_cast<const Value>(kept);
        }
        Made<Value> made = make();
        auto value = std::make_shared<const Value>(std::move(made.value));
        if (made.isWhole && stamp && isSettled(*stamp, now) && fileStamp(file) == stamp) {
            keep({key, *stamp, value, made.bytes});
        }
        return value;
    }

    std::size_t bytes() const { return bytes_; }

  private:
    using Key = std::pair<std::string, std::string>;
    struct Item {
        Key key;
        FileStamp stamp;
        std::shared_ptr<const void> value;
        std::size_t bytes = 0;
    };

    // The value, if it was made of this very state of the file; one of another state goes.
    std::shared_ptr<const void> take(const Key& key, const std::optional<FileStamp>& stamp);
    void keep(Item item);
    void drop(std::list<Item>::iterator item);

    std::size_t most_;
    std::function<std::int64_t()> clock_;
    std::size_t bytes_ = 0;
    std::list<Item> items_;  // what was used last comes first
    std::map<Key, std::list<Item>::iterator> byKey_;
};

// The ones that the whole program shares.
KeptFiles& keptFiles();

}  // namespace marlowick
