// Reads a finished user file back and compares it, record with record, with the file that was
// loaded and with what a command meant to change in it. All bytes of the new file are told: each
// belongs to a field that is compared, and the file is exactly as long as they are together.
#pragma once

#include <string>

#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "system/path.h"

namespace marlowick {

// What a command changes. Everything else has to be as it was.
struct UserFileChange {
    const StrSegment& rows;        // what every wardrobe table of the file has to hold
    bool labelsArePadded = false;  // a sim's save: blanks behind the first zero byte of all labels
    bool picturesAreDropped = false;  // a pet's save: the "BMP_" segments and the map go
};

// In words how the file differs from what was meant (English, ASCII); empty if it doesn't. loaded
// is the record as the reader gave it. CheckpointNumber stays. Raises 55, having touched nothing,
// if the stream slot of user files is taken; it is free again behind.
std::string userFileDifference(const IffFile& loaded, const UserFileChange& change,
                               const Path& file);

}  // namespace marlowick
