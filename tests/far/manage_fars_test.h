// The base of the archive window's tests: a game with archives, and hands for the two windows.
#pragma once

#include <QListWidget>
#include <functional>
#include <string>
#include <vector>

#include "far/frmManageFARs.h"
#include "support/archive_builder.h"
#include "support/error_recorder.h"
#include "support/window_driver.h"

namespace marlowick::test {

inline constexpr const char* kTextures = "game/GameData/Textures/";

// Bitmaps of one colour, 246 bytes each.
inline const std::string kRed = bitmapFile(8, 8, 0xFF0000);
inline const std::string kGreen = bitmapFile(8, 8, 0x00FF00);
inline const std::string kBlue = bitmapFile(8, 8, 0x0000FF);

class ManageFARsTest : public WindowTest {
  protected:
    ManageFARsTest();
    ~ManageFARsTest() override;

    void makeArchive(const std::string& name, const std::vector<ArchiveEntry>& entries);
    std::string archive(const std::string& name) const;

    // Shows the window, does what a person does and closes it.
    void manage(const std::function<void(QWidget&)>& action);
    // Picks an archive by the button and the small window, and closes the message that follows.
    void pick(QWidget& window, const QString& name, bool messageFollows = false);
    // Presses "Open FAR File" and cancels.
    void cancelPicking(QWidget& window);
    // Sets the folder of the disk side; name with forward slashes.
    void goTo(QWidget& window, const std::string& name) const;

    static QListWidget* list(QWidget& window, const char* name = "lstFiles");
    static QStringList rows(QWidget& window, const char* name = "lstFiles");
    static QStringList selected(QWidget& window, const char* name = "lstFiles");
    // Clicks one row, then the others with Ctrl held.
    static void select(QWidget& window, const std::vector<int>& rows,
                       const char* name = "lstFiles");
    // The colour in the middle of a picture, 0xRRGGBB; 0xFFFFFFFF if there is none.
    static unsigned colourOf(QWidget& window, const char* picture);
    static bool showsError(QWidget& window, const char* picture);

    // Files in the folder for scratch files.
    std::vector<std::string> scratchFiles() const;

    ErrorRecorder recorder;
};

}  // namespace marlowick::test
