// Everything the program does to the disk goes through FileSystem. There is one
// real implementation a system; tests put their own in front of it to see what a
// failing write, a full disk or a sudden end leaves behind.
//
// Names are matched without regard to letter case on every system, and a
// folder is listed in the order of NTFS: by upper-case letter, blind to case.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/path.h"

namespace marlowick {

// The ending of the files that the program itself makes beside a file that it replaces. It fits no
// mask of the game or of this program, so that a leftover is never listed; and as nobody else
// writes such a name, it is looked up as it stands, without a search through a folder of thousands.
inline constexpr std::string_view kNewFileEnding = ".marlowick-new";

enum class OpenMode {
    Binary,     // read and write without truncation; made if missing; reading alone where the file
                // or its folder can't be written
    Input,      // reading; must exist
    Output,     // writing; made, or emptied
    Rewrite,    // writing; made, or written over from its start, and cut behind the last position
                // when it is closed: a file system that has emptied a file sends it to the disk at
                // once
    CreateNew,  // writing; must not exist (58)
    CreateOwn,  // the same in a folder that the program made and fills itself: the name is taken as
                // it stands, without a search through the folder for another letter case of it
};

// An open file. Positions are bytes from 0. A failure is a RuntimeError (57, 61, 75, 63 ...).
class File {
  public:
    virtual ~File() = default;
    // Reads up to size bytes at the position; fewer only at the end of the file.
    virtual std::size_t read(char* data, std::size_t size) = 0;
    // Writes all of data at the position; 75 if the file could only be opened for reading.
    virtual void write(std::string_view data) = 0;
    virtual void seek(std::int64_t position) = 0;
    virtual std::int64_t position() = 0;
    virtual std::int64_t size() = 0;
    // Sends what was written to the disk itself.
    virtual void flush() = 0;
};

struct FolderEntry {
    std::string name;  // game text; "?" for each character without a Windows-1252 form
    bool isFolder = false;
};

class FileSystem {
  public:
    virtual ~FileSystem() = default;

    // 53 no such file, 76 no such folder, 75 a folder or no right, 70 held by another program.
    virtual std::unique_ptr<File> open(const Path& path, OpenMode mode) = 0;
    // All files and folders in a folder, in the order of NTFS; nothing if it can't be listed. An
    // empty path is no folder, here as elsewhere.
    virtual std::vector<FolderEntry> list(const Path& folder) = 0;
    virtual bool fileExists(const Path& path) = 0;
    virtual bool folderExists(const Path& path) = 0;
    // Length in bytes; 53 if there is no such file.
    virtual std::int64_t length(const Path& path) = 0;
    // 53 no such file, 75 read-only, 70 held by another program.
    virtual void remove(const Path& path) = 0;
    // 75 if it exists or can't be made, 76 if the folder above it is missing.
    virtual void makeFolder(const Path& path) = 0;
    // Removes an empty folder: 75 if it isn't empty or can't be removed, 76 if there is none.
    virtual void removeFolder(const Path& path) = 0;
    virtual bool isReadOnly(const Path& path) = 0;
    // Sets a file's attributes to normal (no read-only mark). Nothing if there is no such file.
    virtual void clearAttributes(const Path& path) = 0;
    // Gives target the rights of source, as far as the system allows.
    virtual void copyAttributes(const Path& source, const Path& target) = 0;
    // The path with links followed, so that a linked file is replaced where it lies.
    virtual Path followLinks(const Path& path) = 0;
    // True if a link stands there, wherever it leads; true too of a system that can't tell.
    virtual bool isLink(const Path& /*path*/) { return true; }
    // The path with each name in the letters in which it stands on the disk; a name that isn't
    // there stays as it is written, and so do those behind it. Where nobody minds letter case, the
    // path itself.
    virtual Path asOnDisk(const Path& path) { return path; }
    // Gives source the name of target in one step, replacing what stands there, also if that is
    // read-only. Both lie in one folder. The name is on the disk itself when the call returns or,
    // on Linux and its kin, when the command ends in which it is called.
    virtual void rename(const Path& source, const Path& target) = 0;
    // Gives source a name in another folder, where nothing stands under it, if the system can do
    // that in one step without touching the content. False, with nothing changed, if it can't: the
    // folders lie on two disks, or somebody holds the file. The name needn't be on the disk itself.
    virtual bool moveInOneStep(const Path& /*source*/, const Path& /*target*/) { return false; }
    // True if a file can be made in the folder.
    virtual bool canWriteInto(const Path& folder) = 0;
};

// The file system in use.
FileSystem& files();
// Puts another file system in use and gives back the one before it; nullptr is the real one.
FileSystem* setFileSystem(FileSystem* fileSystem);
// The machine's own, whatever is in use.
FileSystem& nativeFileSystem();
// A drive without a disk in it is an error like others: the system shows no box of its own. To be
// called once, at the start; does nothing on a system without such boxes.
void keepSystemBoxesAway();

// File names (no folders) in a folder that fit a mask, as a directory search gives them.
std::vector<std::string> searchFiles(const Path& folder, std::string_view mask);
// The same with folders included.
std::vector<std::string> searchFilesAndFolders(const Path& folder, std::string_view mask);

// The whole content in one read. Raises what open(Input) raises.
std::string readWholeFile(const Path& path);
// The whole content of a file of at most so many bytes; nothing if there is none such or it can't
// be read. For files that anybody may have written.
std::optional<std::string> readUntrustedFile(const Path& path, std::int64_t most);
// Replaces what stands at path by content (OpenMode::Output).
void writeWholeFile(const Path& path, std::string_view content);
// Deletes the file if it stands there.
void removeIfPresent(const Path& path);

// The same, also if the file is read-only.
void clearAndRemove(const Path& path);

}  // namespace marlowick
