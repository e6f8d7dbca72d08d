// What the windows of a sim and of a pet have in common.
#pragma once

#include <QImage>
#include <string>

#include "iff/iff_file.h"
#include "iff/string_segment.h"
#include "platform/path.h"

namespace marlowick {

class PictureBox;

// The stock pictures: a skin that is nowhere or can't be shown, and portraits that the file doesn't
// hold.
QImage notFoundCard();
QImage webNotFoundCard();
QImage noBitmapsCard();

// A portrait, the file in the program folder that gsDumpBMPs leaves it in, and what shows without
// it.
struct Portrait {
    PictureBox* picture;
    const char* file;
    const PictureBox* stock;
};
void showPortrait(const Portrait& portrait);

// Asks whether changes to a sim or pet of that name are to be saved.
bool saveWanted(const std::string& name);

// What a save takes: the file, its record, its rows, the name of the sim or pet, and the writer of
// "\usertemp.iff".
struct UserFileSave {
    const Path& userFile;
    IffFile& record;
    const StrSegment& rows;
    const std::string& name;
    bool (*writeTemp)(IffFile& iff);
};

// Puts the rows into the record and the record into the file's place, behind a backup if one is
// wanted, and tells of the success. Sets CheckpointNumber to 3000 and 4000. Ends after any step
// that failed, raising its failure or, where the step has reported it, with false: the file then is
// as it was.
bool saveUserFile(const UserFileSave& save);

}  // namespace marlowick
