// The names in a folder, looked up blind to letter case. To read a folder anew for each name that
// is looked for costs a minute where 10,000 files are put into it one by one, so its names stay in
// memory where that is known to be true:
//
// - Where the kernel tells of every change in the folder, each is taken over before the next
//   answer, but for names that were moved away, which are found out when they are the answer.
// - While a command runs, or holds the folder, what this program puts there is entered. A name that
//   has gone meanwhile is never an answer; one that another program makes there meanwhile may be
//   missed.
//
// Anywhere else the folder is read for each question.
#pragma once

#include <sys/types.h>

#include <list>
#include <optional>
#include <string>

#include "system/folder_watch_posix.h"
#include "system/name_table.h"

namespace marlowick {

class FolderNames {
  public:
    // watches: whether the kernel is asked for changes at all.
    explicit FolderNames(bool watches = true) : watches_(watches) {}

    // The wanted name if it stands in the folder, or else one that equals it but for case: the
    // first by its bytes if there are several, empty if there is none. folder is a path as the
    // machine wants it; empty is the working directory, where a path that isn't absolute begins.
    std::string find(const std::string& folder, const std::string& wanted);

    // A command begins to put files into a folder, or has ended. One folder at a time.
    void hold(const std::string& folder);
    void release();
    // How many commands run, one within the other. All names of one are looked up in one reading of
    // a folder.
    int commands() const { return commands_; }
    void setCommands(int commands);
    // The program has put a file or folder there; native is its path.
    void added(const std::string& native);

  private:
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        bool operator==(const Identity&) const = default;
    };
    struct Folder {
        Identity identity;
        std::optional<int> watch;
        NameTable names;
    };
    using Place = std::list<Folder>::iterator;

    static std::optional<Identity> identify(const std::string& folder);
    std::optional<Folder> read(const std::string& folder);
    Place kept(const Identity& identity);
    void keep(Folder folder);
    bool mayStay(const Folder& folder) const;
    void dropWhatMayNotStay();
    void drop(Place place);
    void takeChanges();

    bool watches_;
    FolderWatch watch_;
    std::list<Folder> folders_;  // the one that was read last in front
    std::optional<Identity> held_;
    int commands_ = 0;
};

}  // namespace marlowick
