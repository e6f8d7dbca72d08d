// How many earlier versions are kept, and the taking away of the oldest.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "system/path.h"

namespace marlowick {

// The oldest commands go first; of each of the two kinds the newest may be larger than its bound.
// Those whose "about.json" can't be read weigh what they kept, and go with the others.
struct HistoryBounds {
    std::int64_t files = 1LL << 30U;     // bytes of sims, pets and ensembles
    std::int64_t archives = 1LL << 30U;  // bytes of archives
    int versionsOfAnArchive = 2;
};

class HistoryPruner {
  public:
    // Takes away the commands that are more than the bounds, and what an earlier end left half
    // taken away; folders in open (names in history) are left alone. What isn't of this program's
    // making stays, and so does what can't be taken away. Raises nothing.
    void prune(const Path& history, const HistoryBounds& bounds, const std::set<std::string>& open);

  private:
    // What one command weighs.
    struct Weight {
        std::string folder;
        std::int64_t aboutSize = 0;  // below 0: it has none, and is no command
        bool isReadable = false;
        bool isMeasured = false;  // bytes are those on the disk, not those that "about.json" tells
        std::int64_t bytes = 0;
        bool isEmpty = false;               // it replaced nothing
        std::vector<std::string> archives;  // which
    };

    std::vector<Weight> weighed(const Path& history, const std::set<std::string>& open,
                                bool measure);
    static void weighKeptFiles(const Path& entry, const Path& game, Weight& weight);
    static Weight weigh(const Path& history, const std::string& folder, bool measure);

    // Of the commands that are kept, so that not each is read again for each command: checked
    // against the size of its "about.json".
    std::map<std::string, Weight> known_;
};

}  // namespace marlowick
