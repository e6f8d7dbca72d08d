// What the windows of a sim and of a pet show alike.
#pragma once

#include <QImage>
#include <string>

#include "system/path.h"

namespace marlowick {

class PictureBox;

// The stock pictures: a skin that is nowhere or can't be shown, and portraits that the file doesn't
// hold.
QImage notFoundCard();
QImage webNotFoundCard();
QImage noBitmapsCard();

// A picture of the sim and what shows where its file doesn't hold one.
struct Portrait {
    PictureBox* picture;
    const PictureBox* stock;
};
struct Portraits {
    Portrait webImage;
    Portrait faces;
    Portrait relationImages;
};
// Shows what gsDumpBMPs has left in the program folder.
void showPortraits(const Portraits& portraits);

// Asks whether changes to a sim or pet of that name are to be saved.
bool saveWanted(const std::string& name);

// Asks whether changes to it that aren't saved may be lost; Enter means No.
bool mayDropChangesOf(const std::string& name);

// Tells that it has been saved.
void tellSaved(const std::string& name);

// Tells that a file that wasn't loaded whole can't be saved; failure: of the load, in words.
void tellNotSaved(const Path& userFile, const std::string& failure);

}  // namespace marlowick
