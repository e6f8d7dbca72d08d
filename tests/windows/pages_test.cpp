// The two pages of 49 and the large pictures beside them, as they are seen: what lies at their
// edges, and whether the chosen cell and the names stand out from the ground. CMakeLists.txt runs
// these tests on finer screens too.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <algorithm>
#include <cmath>

#include "browser/frmMain.h"
#include "catalogue/frmSelectSkin.h"
#include "catalogue/model_catalogue.h"
#include "support/chooser_driver.h"
#include "support/user_file_builder.h"
#include "support/window_driver.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

using test::bitmapFile;
using test::clickLine;
using test::find;

constexpr int kBorder = 2;
constexpr QRgb kWhite = 0xFFFFFFFF;

// A control as it is painted, on whatever screen.
class Seen {
  public:
    explicit Seen(QWidget* control) : image_(control->grab().toImage()) {}

    // The pixels of an area, which is told in pixels of the control.
    std::vector<QRgb> pixels(const QRect& area) const {
        const qreal scale = image_.devicePixelRatio();
        const auto fine = [&](int position) {
            return static_cast<int>(std::lround(position * scale));
        };
        std::vector<QRgb> found;
        for (int y = fine(area.top()); y < fine(area.bottom() + 1); ++y) {
            for (int x = fine(area.left()); x < fine(area.right() + 1); ++x) {
                found.push_back(image_.pixel(x, y));
            }
        }
        return found;
    }

    bool isAll(QRgb colour, const QRect& area) const {
        const std::vector<QRgb> found = pixels(area);
        return std::all_of(found.begin(), found.end(), [&](QRgb pixel) { return pixel == colour; });
    }

    bool hasNone(QRgb colour, const QRect& area) const {
        const std::vector<QRgb> found = pixels(area);
        return std::find(found.begin(), found.end(), colour) == found.end();
    }

  private:
    QImage image_;
};

// The contrast of two colours by the formula of the Web Content Accessibility Guidelines: 1 for the
// same, 21 for black on white.
double brightness(QRgb colour) {
    const auto part = [](int value) {
        const double share = value / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(qRed(colour)) + 0.7152 * part(qGreen(colour)) +
           0.0722 * part(qBlue(colour));
}

double contrast(QRgb one, QRgb other) {
    const auto [darker, lighter] = std::minmax({brightness(one), brightness(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QRect onPage(const QRect& area) {
    return area.translated(kBorder, kBorder);
}

class PagesTest : public test::WindowTest {
  protected:
    PagesTest() {
        resetModelCatalogue();
        test::installGame(folder);
    }
    ~PagesTest() override { resetModelCatalogue(); }

    // The window on a sim whose portrait has one colour.
    frmMain& showMain() {
        folder.write(
            "game/UserData/Characters/user00001.iff",
            test::fileHead(0) + test::segment("OBJD", 1, 1, "user00001 - Mara", "") +
                test::segment("CTSS", 2000, 16, "", test::stringTable({"Mara Quill"})) +
                test::segment("STR#", 200, 16, "", test::stringTable(test::simRows({}))) +
                test::segment("BMP_", 5000, 16, "web_image", bitmapFile(45, 45, 0xFF0000)));
        auto& window = theWindow<frmMain>();
        window.showMain();
        auto* list = find<QListWidget>(window, "lstUserDataDir");
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(list->item(0)).center());
        return window;
    }

    // The chooser on a body with one skin of the size of picSkin's page.
    void openChooser(std::function<void(QWidget&)> action) {
        folder.write("game/GameData/Skins/b001fafit_01.cmx", "");
        folder.write("game/GameData/Skins/b001fafitlgt_a.bmp", bitmapFile(257, 257, 0x0000FF));
        auto& chooser = theWindow<frmSelectSkin>();
        chooser.SkinData = "falgtfitB";
        chooser.SelectMode = kSelectSimSkin;
        chooser.HandMode = false;
        ChosenSkin reply;
        script.whenShown("frmSelectSkin", std::move(action));
        chooser.choose(reply);
        EXPECT_TRUE(script.isDone());
    }

    // Waits until the frame of cell 0 shows or is wiped.
    static void waitForFrame(PictureBox* page, bool visible) {
        for (int i = 0; i < 200 && page->outlineAt({0, 0, 68, 68}).isValid() != visible; ++i) {
            QTest::qWait(10);
        }
        ASSERT_EQ(page->outlineAt({0, 0, 68, 68}).isValid(), visible);
    }

    // The frame of cell 0 lies inside the border: every pixel of its four sides is white.
    static void expectWholeFrame(PictureBox* page) {
        EXPECT_EQ(page->size(), QSize(481, 481));
        waitForFrame(page, true);
        const Seen seen(page);
        for (const QRect& side :
             {QRect(0, 0, 68, 2), QRect(0, 66, 68, 2), QRect(0, 0, 2, 68), QRect(66, 0, 2, 68)}) {
            EXPECT_TRUE(seen.isAll(kWhite, onPage(side))) << side.x() << "," << side.y();
        }
        EXPECT_TRUE(seen.hasNone(kWhite, QRect(0, 0, 70, 2)));
        EXPECT_TRUE(seen.hasNone(kWhite, QRect(0, 0, 2, 70)));
        waitForFrame(page, false);
        const Seen wiped(page);
        EXPECT_TRUE(wiped.hasNone(kWhite, onPage({0, 0, 68, 2})));
        EXPECT_TRUE(wiped.hasNone(kWhite, onPage({0, 0, 2, 68})));
    }

    // The frame of a cell stands out from the ground beside it, and what wipes it is the ground.
    static void expectPlainFrame(PictureBox* page) {
        const QRect line(6 * 68 + 10, 6 * 68, 20, 2);  // of the last cell
        const QRect empty(6 * 68 + 10, 6 * 68 + 20, 20, 2);
        const QRgb ground = Seen(page).pixels(onPage(empty)).front();
        EXPECT_TRUE(Seen(page).isAll(ground, onPage(line)));
        page->frame({6 * 68, 6 * 68, 68, 68}, true);
        const QRgb frame = Seen(page).pixels(onPage(line)).front();
        EXPECT_EQ(frame, kWhite);
        EXPECT_GE(contrast(frame, ground), 2.0);
        page->frame({6 * 68, 6 * 68, 68, 68}, false);
        EXPECT_TRUE(Seen(page).isAll(ground, onPage(line)));
    }

    // Letters, the darkest pixels of an area, can be read on the ground.
    static void expectReadable(PictureBox* page, const QRect& area) {
        const Seen seen(page);
        const std::vector<QRgb> found = seen.pixels(onPage(area));
        const QRgb letters = *std::min_element(
            found.begin(), found.end(),
            [](QRgb one, QRgb other) { return brightness(one) < brightness(other); });
        const QRgb ground = seen.pixels(onPage({area.topLeft(), QSize(1, 1)})).front();
        EXPECT_GE(contrast(letters, ground), 4.5);
    }

    // What is painted on a box of that size in a colour reaches its first and its last pixels.
    static void expectPainted(QWidget* box, QRgb colour, const QRect& area) {
        EXPECT_TRUE(Seen(box).isAll(colour, onPage(area))) << box->objectName().toStdString();
    }
};

TEST_F(PagesTest, TheSimsFrameAndPortraitsAreSeenToTheirFirstPixels) {
    frmMain& window = showMain();
    expectWholeFrame(find<PictureBox>(window, "picThumbs"));
    expectPainted(find<PictureBox>(window, "picThumbs"), 0xFFFF0000, {11, 2, 45, 45});
    auto* sim = find<PictureBox>(window, "picSim");
    EXPECT_EQ(sim->size(), QSize(261, 261));
    expectPainted(sim, 0xFFFF0000, {0, 0, 45, 45});
}

TEST_F(PagesTest, TheSkinsFrameAndTheLargePictureAreSeenToTheirFirstPixels) {
    openChooser([](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        expectWholeFrame(find<PictureBox>(window, "picThumbs"));
        expectPainted(find<PictureBox>(window, "picThumbs"), 0xFF0000FF, {2, 2, 64, 64});
        auto* skin = find<PictureBox>(window, "picSkin");
        EXPECT_EQ(skin->size(), QSize(261, 261));
        expectPainted(skin, 0xFF0000FF, {0, 0, 257, 257});
        test::click(window, "cmdCancel");
    });
}

TEST_F(PagesTest, TheChosenSimAndTheNamesArePlainToSee) {
    auto* page = find<PictureBox>(showMain(), "picThumbs");
    expectPlainFrame(page);
    expectReadable(page, {3, 49, 62, 16});
}

TEST_F(PagesTest, TheChosenSkinAndTheTextOfTheEmptyPageArePlainToSee) {
    openChooser([](QWidget& window) {
        auto* page = find<PictureBox>(window, "picThumbs");
        expectReadable(page, {40, 218, 397, 40});
        clickLine(window, "lstModels", "B001FAFIT_01");
        expectPlainFrame(page);
        test::click(window, "cmdCancel");
    });
}

// Whatever the desktop's colours are: names stay dark on their ground.
TEST_F(PagesTest, ADarkDesktopChangesNothingOnThePages) {
    const QPalette before = QApplication::palette();
    QPalette dark = before;
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Button, Qt::black);
    QApplication::setPalette(dark);
    auto* page = find<PictureBox>(showMain(), "picThumbs");
    expectPlainFrame(page);
    expectReadable(page, {3, 49, 62, 16});
    QApplication::setPalette(before);
}

TEST_F(PagesTest, ANameLiesWhereItsCellIs) {
    frmMain& window = showMain();
    for (const QLabel* label : window.findChildren<QLabel*>("lblSimName")) {
        const int cell = label->property("Index").toInt();
        EXPECT_EQ(label->geometry(), onPage({cell % 7 * 68 + 2, cell / 7 * 68 + 48, 64, 20}));
    }
}

}  // namespace
}  // namespace marlowick
