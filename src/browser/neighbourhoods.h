// The neighbourhoods of the open game and the sim files in them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/list.h"
#include "iff/iff_file.h"
#include "system/path.h"

namespace marlowick {

// Names in the folder of the neighbourhoods that begin with "Userdata", files included, in listing
// order.
List<std::string> findUserDataDirs();

// The line of the list for a folder: "Neighborhood 02   (UserData2)".
std::string neighbourhoodLine(std::string_view folder);

// The folder back out of a line: what stands behind the "(" of "(UserData", up to the first ")".
std::string folderOfLine(std::string_view line);

// The characters folder of a neighbourhood, without a trailing backslash. Raises 52 for a name that
// no path can hold.
Path charactersFolder(std::string_view userDataDir);

// The names of the files that fit "user*.iff" in it, in listing order; none if it isn't there or
// if no path can lead to it.
List<std::string> findSimFiles(std::string_view userDataDir);

// The guarded reading of a file of that listing, after a reset: an empty text, or the reason of the
// failure. A name that no file can be opened by (one that was listed with "?") is such a reason
// too.
std::string readSimFile(IffFile& iff, std::string_view userDataDir, std::string_view name);

// A file that isn't a user file, and why.
struct BadFile {
    std::string reason;
    std::string name;
};

// Tells good files from bad ones: adds a name to simFiles if the file is a user file, and to
// badFiles with the reason otherwise. Reads into iff.
void sortOutSimFile(IffFile& iff, std::string_view userDataDir, const std::string& name,
                    List<std::string>& simFiles, List<BadFile>& badFiles);

// The report of the bad files, lines ended by CR LF.
std::string badFileReport(const List<BadFile>& badFiles);

}  // namespace marlowick
