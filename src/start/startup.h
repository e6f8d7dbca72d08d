// The way into the program, shared by the program itself, its tests and the tour.
#pragma once

namespace marlowick {

// Fonts, style and icon of the application; the error trap's window. Needs a QApplication.
void prepareApplication();

// Lets the error trap show its report window.
void installErrorWindow();

// Sets ProgramFolder from the place of the program's own file.
void findProgramFolder();

// Opens the title window and, when it closes, the main window. Says first if the program folder
// can't be written into.
void startProgram();

// Locks the program folder for this copy of the program until it ends. False if another copy has it
// already, which a message has told then. True also where no lock can be had.
bool isOnlyCopy();

}  // namespace marlowick
