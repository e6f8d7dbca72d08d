// Drives and the room on them. Where the system has no drives, the root of the file system and the
// file systems that are mounted in it stand for them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "system/path.h"

namespace marlowick {

// Bytes free to the caller on the drive of a root path; 0 if the system doesn't tell.
double gfdblFreeDiskSpace(const Path& root);

// Puts another answer in the place of the system's, for tests; an empty function is the system's.
void setFreeDiskSpace(std::function<double(const Path&)> answer);

// The root of the drive that a path lies on: its first three characters, such as "C:\", with a
// backslash however the path is written; or the place where the path's own file system is mounted.
Path driveRoot(const Path& path);

// The drive of a path as people write it: the path's first two characters, or the mount point.
std::string driveName(const Path& path);

// The roots of all drives that a person can reach, in order: "C:\", or "\" and the mount points.
std::vector<Path> driveRoots();

// The roots of the disks that are built into the machine, by letter; none on a system without
// drives. No disk is asked for anything.
std::vector<Path> fixedDriveRoots();

// The roots behind which no disk of this machine lies: network drives, drives for discs, mounted
// network file systems. Nothing behind them is asked for.
std::vector<Path> remoteRoots();

// A number of bytes in groups of three digits, "1,234,567"; empty for 0.
std::string groupedDigits(double number);

}  // namespace marlowick
