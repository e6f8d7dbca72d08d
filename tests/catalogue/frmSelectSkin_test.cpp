#include "catalogue/frmSelectSkin.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include "catalogue/model_catalogue.h"
#include "catalogue/thumbnail_page.h"
#include "foundation/error_trap.h"
#include "start/startup.h"
#include "support/archive_builder.h"
#include "support/chooser_driver.h"
#include "support/error_recorder.h"
#include "support/faulty_files.h"
#include "support/window_driver.h"
#include "system/shown_path.h"
#include "widgets/input_guard.h"
#include "widgets/picture_box.h"

namespace marlowick {
namespace {

using test::ArchiveEntry;
using test::archiveFile;
using test::bitmapFile;
using test::click;
using test::clickCell;
using test::clickLine;
using test::find;
using test::kArchives;
using test::kFolder;
using test::lookIn;
using test::sourceOption;
using test::textOf;

const std::string kSkins = "game/GameData/Skins/";
const std::string kTextures = "game/GameData/Textures/Textures.far";

constexpr int kBorder = 2;  // of a picture box

std::string numbered(const std::string& name, int number) {
    const std::string digits = std::to_string(number);
    return name + std::string(3 - digits.size(), '0') + digits;
}

// A file can be opened so many times; then it has gone bad.
class SpoiledFile : public test::FaultyFiles {
  public:
    SpoiledFile(std::string name, int opens)
        : FaultyFiles(0, Fault::Fail), name_(std::move(name)), opens_(opens) {}

    std::unique_ptr<File> open(const Path& path, OpenMode mode) override {
        if (path.fileName() == name_ && opens_-- <= 0) {
            throw RuntimeError(error::kPathFileAccess);
        }
        return FaultyFiles::open(path, mode);
    }

  private:
    std::string name_;
    int opens_;
};

class SelectSkinTest : public test::WindowTest {
  protected:
    SelectSkinTest() {
        resetModelCatalogue();
        std::filesystem::create_directories(folder.program() / "temp");
    }
    ~SelectSkinTest() override { resetModelCatalogue(); }

    // Models in the game's folder, each with so many skins in its own colours.
    void makeModel(const std::string& prefix, int skins, unsigned rgb = 0x100000) {
        folder.write(kSkins + prefix + "_01.cmx", "");
        for (int i = 1; i <= skins; ++i) {
            folder.write(kSkins + numbered(prefix + "lgt_s", i) + ".bmp",
                         bitmapFile(8, 8, rgb + static_cast<unsigned>(i)));
        }
    }

    void makeHands(int count) {
        for (int i = 1; i <= count; ++i) {
            folder.write(kSkins + numbered("hm", i) + ".bmp",
                         bitmapFile(8, 8, 0x200000 + static_cast<unsigned>(i)));
        }
    }

    void makeArchive(const std::vector<std::pair<std::string, unsigned>>& skins) {
        std::vector<ArchiveEntry> entries;
        for (const auto& [name, rgb] : skins) {
            entries.push_back({name, bitmapFile(8, 8, rgb)});
        }
        folder.write(kTextures, archiveFile(entries));
    }

    void open(std::int32_t mode, std::function<void(QWidget&)> action,
              const std::string& request = "falgtfitB") {
        auto& chooser = theWindow<frmSelectSkin>();
        chooser.SkinData = request;
        chooser.SelectMode = mode;
        chooser.HandMode = mode == kSelectHand;
        script.whenShown("frmSelectSkin", std::move(action));
        chooser.choose(reply);
        EXPECT_TRUE(script.isDone());
    }

    static void press(QWidget& window, int x, int y) {
        QTest::mouseClick(find<PictureBox>(window, "picThumbs"), Qt::LeftButton, Qt::NoModifier,
                          {x, y});
    }

    // The colour in the middle of a cell; 0 where nothing is painted.
    static unsigned cellColour(QWidget& window, int cell) {
        const QImage page = find<PictureBox>(window, "picThumbs")->painted();
        const QPoint middle(cell % 7 * 68 + 34, cell / 7 * 68 + 34);
        return page.isNull() || qAlpha(page.pixel(middle)) == 0 ? 0 : page.pixel(middle) & 0xFFFFFF;
    }

    static unsigned skinColour(QWidget& window) {
        const QImage image = find<PictureBox>(window, "picSkin")->picture();
        return image.isNull() ? 0 : image.pixel(1, 1) & 0xFFFFFF;
    }

    static QStringList models(QWidget& window) {
        QStringList names;
        auto* list = find<QListWidget>(window, "lstModels");
        for (int i = 0; i < list->count(); ++i) {
            names.append(list->item(i)->text());
        }
        return names;
    }

    // Whether something stands in the middle of the page, where no thumbnail is.
    static bool hasLetters(PictureBox* page) {
        const QImage image = page->grab(QRect(30, 210, 420, 60)).toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixel(x, y) != image.pixel(0, 0)) {
                    return true;
                }
            }
        }
        return false;
    }

    // The cell that is framed, as soon as its frame shows; -1 if none comes.
    static int framedCell(QWidget& window) {
        auto* box = find<PictureBox>(window, "picThumbs");
        for (int tick = 0; tick < 100; ++tick) {
            for (int cell = 0; cell < 56; ++cell) {
                const QRect outer(cell % 7 * 68, cell / 7 * 68, 68, 68);
                if (box->outlineAt(outer) == QColor(Qt::white) &&
                    box->outlineAt(outer.adjusted(1, 1, -1, -1)) == QColor(Qt::white)) {
                    return cell;
                }
            }
            QTest::qWait(20);
        }
        return -1;
    }

    Path skinPath(const std::string& name) const {
        return folder.path("game\\gamedata\\skins\\" + name);
    }

    ChosenSkin reply;
};

TEST_F(SelectSkinTest, EachModeAndSourceHasItsCaption) {
    struct Case {
        std::int32_t mode;
        const char* request;
    };
    for (const Case& c : {Case{1, "Select A Hand Skin"}, Case{2, "Select A Body And A Skin"},
                          Case{3, "Select A Pet Body And A Pet Skin"}}) {
        open(c.mode, [&](QWidget& window) {
            const QString start =
                QStringLiteral("Skin Selection - %1 - Looking For Skins In ").arg(c.request);
            EXPECT_EQ(window.windowTitle(), start + "The Skins Folder");
            EXPECT_TRUE(sourceOption(window, kFolder)->isChecked());
            lookIn(window, kArchives);
            EXPECT_EQ(window.windowTitle(), start + "FAR Files");
            EXPECT_EQ(window.focusWidget(), find<QWidget>(window, "cmdFocus"));
            click(window, "cmdCancel");
        });
        EXPECT_EQ(reply.SelectedSkin, "");
    }
}

TEST_F(SelectSkinTest, EveryControlHasItsPlace) {
    struct Place {
        const char* name;
        QRect box;
    };
    static const Place kPlaces[] = {
        {"lblBody", {8, 8, 73, 13}},         {"lstModels", {8, 24, 261, 147}},
        {"Label1", {8, 184, 109, 13}},       {"txtSkinName", {8, 200, 261, 19}},
        {"Label3", {8, 228, 109, 21}},       {"picSkin", {8, 244, 261, 261}},
        {"cmdSelect", {8, 516, 77, 25}},     {"cmdCancel", {192, 516, 77, 25}},
        {"Label2", {280, 8, 89, 17}},        {"picThumbs", {280, 24, 481, 481}},
        {"cmdPrevious", {412, 516, 57, 21}}, {"txtPageCount", {480, 516, 81, 19}},
        {"cmdNext", {572, 516, 57, 21}},     {"cmdFocus", {340, 564, 61, 21}},
        {"picLoad", {256, 564, 73, 81}},
    };
    open(kSelectSimSkin, [](QWidget& window) {
        for (const Place& place : kPlaces) {
            EXPECT_EQ(find<QWidget>(window, place.name)->geometry(), place.box) << place.name;
        }
        EXPECT_EQ(sourceOption(window, kFolder)->geometry(), QRect(372, 8, 81, 13));
        EXPECT_EQ(sourceOption(window, kArchives)->geometry(), QRect(456, 8, 73, 13));
        EXPECT_EQ(find<QLabel>(window, "Label3")->text(), "Selected Skin Image");
        EXPECT_EQ(window.size(), QSize(770, 549));
        window.resize(900, 900);
        EXPECT_EQ(window.size(), QSize(770, 549));
        EXPECT_EQ(find<QTimer>(window, "Timer1")->interval(), 250);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, ModelsAreSortedAndAClickShowsTheirSkins) {
    makeModel("b002fafit", 3, 0x400000);
    makeModel("B001FAFIT", 2);
    folder.write("game/ExpansionPack3/SkinsBuy/b000fafit_Shop.cmx", "");
    open(kSelectSimSkin, [&](QWidget& window) {
        EXPECT_EQ(models(window), QStringList({"b000fafit_Shop", "B001FAFIT_01", "B002FAFIT_01"}));
        EXPECT_EQ(textOf(window, "txtPageCount"), "");
        EXPECT_EQ(cellColour(window, 0), 0U);
        clickLine(window, "lstModels", "B002FAFIT_01");
        EXPECT_EQ(cellColour(window, 0), 0x400001U);
        EXPECT_EQ(cellColour(window, 2), 0x400003U);
        EXPECT_EQ(cellColour(window, 3), 0U);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b002fafitlgt_s001");
        EXPECT_EQ(skinColour(window), 0x400001U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "B002FAFIT_01,b002fafitlgt_s001");
    EXPECT_EQ(reply.LoadSkinFile, skinPath("b002fafitlgt_s001.bmp"));
    EXPECT_EQ(reply.FarFileIndex, -1);
}

TEST_F(SelectSkinTest, AThumbnailFillsItsPlaceInTheCellWhateverItsSize) {
    folder.write(kSkins + "b001fafit_01.cmx", "");
    folder.write(kSkins + "b001fafitlgt_a.bmp", bitmapFile(3, 200, 0x112233));
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        const QImage page = find<PictureBox>(window, "picThumbs")->painted();
        EXPECT_EQ(page.pixel(2, 2) & 0xFFFFFF, 0x112233U);
        EXPECT_EQ(page.pixel(65, 65) & 0xFFFFFF, 0x112233U);
        EXPECT_EQ(qAlpha(page.pixel(1, 2)), 0);
        EXPECT_EQ(qAlpha(page.pixel(66, 65)), 0);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, FortyNineSkinsAreOnePage) {
    makeModel("b001fafit", 49);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        clickCell(window, 5);
        click(window, "cmdNext");
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s006");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        click(window, "cmdPrevious");
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s006");
        EXPECT_TRUE(find<QWidget>(window, "cmdNext")->isEnabled());
        EXPECT_TRUE(find<QWidget>(window, "cmdPrevious")->isEnabled());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, FiftySkinsAreTwoPagesAndAModelBeginsWithItsFirst) {
    makeModel("b001fafit", 50);
    makeModel("b002fafit", 60, 0x500000);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
        click(window, "cmdNext");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        EXPECT_EQ(cellColour(window, 0), 0x100000U + 50);
        EXPECT_EQ(cellColour(window, 1), 0U);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s050");
        click(window, "cmdNext");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        clickLine(window, "lstModels", "B002FAFIT_01");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
        EXPECT_EQ(cellColour(window, 48), 0x500000U + 49);
        click(window, "cmdNext");
        clickCell(window, 10);
        click(window, "cmdPrevious");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 2");
        EXPECT_EQ(textOf(window, "txtSkinName"), "b002fafitlgt_s001");
        EXPECT_EQ(framedCell(window), 0);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, APageNumberOfTwoDigitsIsToldWhole) {
    std::vector<ArchiveEntry> entries(10 * 49, {"b001fafitlgt_a.bmp", bitmapFile(1, 1, 0x1)});
    folder.write(kTextures, archiveFile(entries));
    makeModel("b001fafit", 1);
    open(kSelectSimSkin, [](QWidget& window) {
        auto* box = find<QLineEdit>(window, "txtPageCount");
        const auto expectWhole = [&](const QString& text) {
            EXPECT_EQ(box->text(), text);
            EXPECT_EQ(box->toolTip(), text);
            EXPECT_LE(QFontMetrics(box->font()).horizontalAdvance(text), box->width() - 10);
        };
        clickLine(window, "lstModels", "B001FAFIT_01");
        expectWhole("Page 1 of 1");
        EXPECT_EQ(box->font(), window.font());
        lookIn(window, kArchives);
        for (int page = 2; page <= 10; ++page) {
            click(window, "cmdNext");
        }
        expectWhole("Page 10 of 10");
        lookIn(window, kFolder);
        EXPECT_EQ(box->font(), window.font());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, TheFrameBlinksAroundCellZeroFromTheStart) {
    open(kSelectSimSkin, [](QWidget& window) {
        auto* box = find<PictureBox>(window, "picThumbs");
        const QRect outer(0, 0, 68, 68);
        bool seen = false;
        bool gone = false;
        for (int i = 0; i < 60 && !(seen && gone); ++i) {
            QTest::qWait(20);
            (box->outlineAt(outer).isValid() ? seen : gone) = true;
        }
        EXPECT_TRUE(seen && gone);
        EXPECT_TRUE(box->painted().isNull());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, APressLeftOfTheFirstCellChoosesNothing) {
    makeModel("b001fafit", 3);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        auto* box = find<PictureBox>(window, "picThumbs");
        const QPoint position(-3, 30);
        QMouseEvent press(QEvent::MouseButtonPress, position, box->mapToGlobal(position),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(box, &press);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s001");
        EXPECT_EQ(skinColour(window), 0x100001U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AClickOnAnEmptyCellMovesTheFrameAlone) {
    makeModel("b001fafit", 3);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        clickCell(window, 1);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s002");
        clickCell(window, 20);
        EXPECT_EQ(framedCell(window), 20);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s002");
        EXPECT_EQ(skinColour(window), 0x100002U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.LoadSkinFile, skinPath("b001fafitlgt_s002.bmp"));
}

TEST_F(SelectSkinTest, ThePixelBeyondTheSeventhColumnIsTheNextRow) {
    makeModel("b001fafit", 10);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        press(window, kBorder + 475, 10);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s007");
        press(window, kBorder + 476, 10);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s008");
        EXPECT_EQ(framedCell(window), 7);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, TheFirstPixelOfTheFirstCellLiesInsideTheBorderAndTheBorderIsNotThePage) {
    makeModel("b001fafit", 10);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        press(window, kBorder + 67, kBorder + 67);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s001");
        press(window, kBorder + 68, kBorder + 67);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s002");
        for (const QPoint edge : {QPoint(30, 1), QPoint(1, 30), QPoint(479, 30), QPoint(30, 479)}) {
            press(window, edge.x(), edge.y());
            EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s002");
        }
        EXPECT_EQ(framedCell(window), 1);
        press(window, kBorder, kBorder);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s001");
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, TheToolTipTellsTheWholeNameUnderThePointer) {
    makeModel("b001fafit", 1);
    makeArchive({{"skins\\b001fafitlgt_far.bmp", 0x777777}});
    open(kSelectSimSkin, [](QWidget& window) {
        auto* box = find<PictureBox>(window, "picThumbs");
        const auto tipAt = [&](QPoint position) {
            // The window's own pointer: the display's one comes late or not at all.
            QTest::mouseMove(window.windowHandle(), box->mapTo(&window, position));
            return box->toolTip();
        };
        EXPECT_EQ(tipAt({5, 5}), "");
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(tipAt({10, 10}), "B001FAFITLGT_S001.BMP");
        EXPECT_EQ(tipAt({100, 10}), "");
        lookIn(window, kArchives);
        EXPECT_EQ(tipAt({12, 10}), "B001FAFITLGT_FAR.BMP");
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, ASkinOutOfAnArchiveIsHandedBackByItsNumber) {
    makeModel("b001fafit", 1);
    makeArchive({{"other.bmp", 0x1},
                 {"b001fafitlgt_one.bmp", 0xAA0001},
                 {"b001fafitlgt_two.bmp", 0xAA0002}});
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        lookIn(window, kArchives);
        EXPECT_EQ(cellColour(window, 0), 0xAA0001U);
        EXPECT_EQ(cellColour(window, 1), 0xAA0002U);
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_ONE");
        clickCell(window, 1);
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_TWO");
        EXPECT_EQ(skinColour(window), 0xAA0002U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,B001FAFITLGT_TWO");
    EXPECT_EQ(reply.LoadSkinFile, folder.path("game\\GameData\\Textures\\Textures.far"));
    EXPECT_EQ(reply.FarFileIndex, 3);
    EXPECT_TRUE(folder.read("program/temp/skintemp.bmp") == bitmapFile(8, 8, 0xAA0002));
}

TEST_F(SelectSkinTest, ADoubleClickSelectsAndATypedNameIsHandedBack) {
    makeModel("b001fafit", 3);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        auto* name = find<QLineEdit>(window, "txtSkinName");
        auto* page = find<PictureBox>(window, "picThumbs");
        QTest::mouseClick(page, Qt::LeftButton, Qt::NoModifier, {80, 10});
        name->selectAll();
        QTest::keyClicks(name, "typed");
        QTest::mouseDClick(page, Qt::LeftButton, Qt::NoModifier, {80, 10});
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,typed");
}

TEST_F(SelectSkinTest, ArrowsMoveTheChoiceAndEnterSelectsIt) {
    makeModel("b001fafit", 20);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        auto* box = find<PictureBox>(window, "picThumbs");
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Left);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s001");
        QTest::keyClick(box, Qt::Key_Right);
        QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s009");
        QTest::keyClick(box, Qt::Key_Up);
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,b001fafitlgt_s002");
}

TEST_F(SelectSkinTest, AModelStaysChosenByClicksThatChooseNoOther) {
    makeModel("b001fafit", 2);
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        auto* list = find<QListWidget>(window, "lstModels");
        const QPoint below(20, list->viewport()->height() - 5);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, below);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list->visualItemRect(list->item(0)).center());
        EXPECT_EQ(list->selectedItems().size(), 1);
        click(window, "cmdSelect");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,b001fafitlgt_s001");
}

TEST_F(SelectSkinTest, TheKeysChooseTheFirstModelFirst) {
    makeModel("b001fafit", 1);
    makeModel("b002fafit", 1, 0x500000);
    for (const auto key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_Return}) {
        open(kSelectSimSkin, [key](QWidget& window) {
            auto* list = find<QListWidget>(window, "lstModels");
            list->setFocus();
            EXPECT_TRUE(list->selectedItems().isEmpty());
            EXPECT_EQ(textOf(window, "txtSkinName"), "");
            QTest::keyClick(list, key);
            EXPECT_EQ(textOf(window, "txtSkinName"), "b001fafitlgt_s001");
            QTest::keyClick(list, Qt::Key_Down);
            EXPECT_EQ(textOf(window, "txtSkinName"), "b002fafitlgt_s001");
            click(window, "cmdCancel");
        });
    }
}

TEST_F(SelectSkinTest, SelectNeedsAModelAndAName) {
    makeModel("b001fafit", 1);
    open(kSelectSimSkin, [](QWidget& window) {
        QTest::keyClicks(find<QLineEdit>(window, "txtSkinName"), "typed");
        click(window, "cmdSelect");
        EXPECT_TRUE(window.isVisible());
        clickLine(window, "lstModels", "B001FAFIT_01");
        find<QLineEdit>(window, "txtSkinName")->clear();
        click(window, "cmdSelect");
        EXPECT_TRUE(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(reply.SelectedSkin, "");
}

TEST_F(SelectSkinTest, AnEmptyModelListStaysEmpty) {
    open(kSelectSimSkin, [](QWidget& window) {
        EXPECT_TRUE(models(window).isEmpty());
        click(window, "cmdSelect");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AModelWithoutSkinsClearsThePageAndKeepsItsCount) {
    makeModel("b001fafit", 3);
    folder.write(kSkins + "b002fafit_01.cmx", "");
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        clickLine(window, "lstModels", "B002FAFIT_01");
        EXPECT_TRUE(find<PictureBox>(window, "picThumbs")->painted().isNull());
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        EXPECT_EQ(textOf(window, "txtSkinName"), "");
        EXPECT_EQ(skinColour(window), 0U);
        click(window, "cmdSelect");
        EXPECT_TRUE(window.isVisible());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, ABadSkinIsToldOncePerRunOfTheBuilder) {
    makeModel("b001fafit", 2);
    folder.write(kSkins + "b001fafitlgt_bad.bmp", "no picture");
    open(kSelectSimSkin, [this](QWidget& window) {
        script.answer();
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 1), 0x100002U);
        EXPECT_EQ(cellColour(window, 2), 0U);
        click(window, "cmdCancel");
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_EQ(script.messages()[0].title, "Bad Skin Files Detected");
    EXPECT_EQ(script.messages()[0].icon, QMessageBox::Critical);
    EXPECT_FALSE(script.messages()[0].yesNo);
    EXPECT_EQ(script.messages()[0].text,
              "The following files could not be loaded:\r\n\r\nb001fafitlgt_bad.bmp\r\n\r\n"
              "These files may be \"fixed\" by loading them into\r\n"
              "a program like Paint Shop Pro and re-saving them.\r\n");
}

TEST_F(SelectSkinTest, HundredsOfBadSkinsScrollAndLeaveTheButtonOnTheScreen) {
    makeModel("b001fafit", 1);
    QString names;
    for (int i = 1; i <= 400; ++i) {
        const std::string name = numbered("b001fafitlgt_bad", i) + ".bmp";
        folder.write(kSkins + name, "no picture");
        names += QString::fromStdString(name) + "\r\n";
    }
    open(kSelectSimSkin, [&](QWidget& window) {
        script.whenShown({}, [&](QWidget& message) {
            auto& box = dynamic_cast<QMessageBox&>(message);
            EXPECT_TRUE(box.text().contains("loaded:\r\n\r\n" + names + "\r\nThese"));
            EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
            auto* view = find<QScrollArea>(box, "messageText");
            auto* bar = view->verticalScrollBar();
            EXPECT_GT(bar->maximum(), 400 * 5);
            EXPECT_GE(view->widget()->height(), view->widget()->sizeHint().height());
            // With the keys the text can be read to its end.
            QWidget* ok = box.button(QMessageBox::Ok);
            EXPECT_EQ(box.focusWidget(), ok);
            QTest::keyClick(ok, Qt::Key_Tab);
            for (int page = 0; page < 100; ++page) {
                QTest::keyClick(box.focusWidget(), Qt::Key_PageDown);
            }
            EXPECT_EQ(bar->value(), bar->maximum());
            QTest::keyClick(box.focusWidget(), Qt::Key_Return);
            EXPECT_FALSE(box.isVisible());
        });
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 0), 0x100001U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, HandsNeedNoModelAndTheFirstIsShownButNotChosen) {
    makeHands(3);
    reply.LoadSkinFile = folder.path("leftover");
    open(kSelectHand, [](QWidget& window) {
        EXPECT_FALSE(find<QWidget>(window, "lstModels")->isVisible());
        EXPECT_FALSE(find<QWidget>(window, "lblBody")->isVisible());
        EXPECT_EQ(textOf(window, "txtSkinName"), "hm001");
        EXPECT_EQ(skinColour(window), 0x200001U);
        EXPECT_EQ(cellColour(window, 2), 0x200003U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "hm001");
    EXPECT_TRUE(reply.LoadSkinFile.empty());
    EXPECT_EQ(reply.FarFileIndex, -1);
}

TEST_F(SelectSkinTest, AHandThatIsClickedIsChosen) {
    makeHands(3);
    open(kSelectHand, [](QWidget& window) {
        clickCell(window, 2);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "hm003");
    EXPECT_EQ(reply.LoadSkinFile, skinPath("hm003.bmp"));
}

TEST_F(SelectSkinTest, TheHandListIsBuiltTwiceAtFirstAndTellsOfABadHandTwice) {
    makeHands(1);
    folder.write(kSkins + "hu_bad.bmp", "no picture");
    script.answer();
    script.answer();
    open(kSelectHand, [](QWidget& window) {
        EXPECT_EQ(cellColour(window, 0), 0x200001U);
        click(window, "cmdCancel");
    });
    ASSERT_EQ(script.messages().size(), 2U);
    EXPECT_EQ(script.messages()[0].text, script.messages()[1].text);
}

TEST_F(SelectSkinTest, TheModelListIsBackAfterAHand) {
    makeHands(1);
    makeModel("b001fafit", 1);
    open(kSelectHand, [](QWidget& window) { click(window, "cmdCancel"); });
    open(kSelectSimSkin, [](QWidget& window) {
        EXPECT_TRUE(find<QWidget>(window, "lstModels")->isVisible());
        EXPECT_EQ(textOf(window, "txtSkinName"), "");
        EXPECT_EQ(textOf(window, "txtPageCount"), "");
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, HandsOfArchivesAreShownAtOnceAndTheNextSourceIsEmpty) {
    makeHands(2);
    open(kSelectHand, [](QWidget& window) {
        // No archive: the page is cleared, the name and the count of the folder stay.
        lookIn(window, kArchives);
        EXPECT_TRUE(find<PictureBox>(window, "picThumbs")->painted().isNull());
        EXPECT_EQ(textOf(window, "txtSkinName"), "hm001");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "hm001");
    EXPECT_EQ(reply.FarFileIndex, 0);
    makeArchive({{"x.bmp", 1}, {"hmfar.bmp", 0xBB0001}});
    open(kSelectHand, [](QWidget& window) {
        lookIn(window, kArchives);
        EXPECT_EQ(cellColour(window, 0), 0xBB0001U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "HMFAR");
    EXPECT_EQ(reply.FarFileIndex, 2);
}

TEST_F(SelectSkinTest, AnArchivesPathIsLeftOverWhenTheSourceChangesBack) {
    makeHands(1);
    makeArchive({{"hmfar.bmp", 0xBB0001}});
    open(kSelectHand, [](QWidget& window) {
        lookIn(window, kArchives);
        lookIn(window, kFolder);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "hm001");
    EXPECT_EQ(reply.LoadSkinFile, folder.path("game\\GameData\\Textures\\Textures.far"));
    EXPECT_EQ(reply.FarFileIndex, -1);
}

TEST_F(SelectSkinTest, TheSourceKeepsThePageOfHandsAndFailsIfItIsTooFar) {
    makeHands(50);
    makeArchive({{"hmfar.bmp", 0xBB0001}});
    const test::ErrorRecorder recorder;
    open(kSelectHand, [&](QWidget& window) {
        click(window, "cmdNext");
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        lookIn(window, kArchives);
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 9);
        EXPECT_EQ(recorder.reports()[0].module, "frmSelectSkin");
        EXPECT_EQ(recorder.reports()[0].procedure, "msFillThumbsFAR");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
        EXPECT_EQ(cellColour(window, 0), 0U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        lookIn(window, kFolder);
        EXPECT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(textOf(window, "txtSkinName"), "hm050");
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, ASkinThatWentBadShowsTheThumbnailBeforeIt) {
    makeModel("b001fafit", 3);
    const SpoiledFile spoiled("b001fafitlgt_s002.bmp", 1);
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 1), 0x100001U);
        EXPECT_EQ(cellColour(window, 2), 0x100003U);
        EXPECT_TRUE(recorder.reports().empty());
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AFirstSkinThatWentBadIsReportedWithItsFile) {
    makeModel("b001fafit", 3);
    const SpoiledFile spoiled("b001fafitlgt_s001.bmp", 2);
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].procedure, "msFillThumbs");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 3000);
        EXPECT_EQ(gstrErrorDescription, "Path/File access error\r\nFile: " +
                                            shownPath(skinPath("b001fafitlgt_s001.bmp")));
        // The window's pointer isn't given back.
        EXPECT_EQ(window.cursor().shape(), Qt::WaitCursor);
        click(window, "cmdCancel");
    });
    EXPECT_EQ(theWindow<frmSelectSkin>().isVisible(), false);
}

TEST_F(SelectSkinTest, AHandThatWentBadEndsThePage) {
    makeHands(3);
    // Two builders and one painter read it; the second painter can't.
    const SpoiledFile spoiled("hm002.bmp", 3);
    const test::ErrorRecorder recorder;
    open(kSelectHand, [&](QWidget& window) {
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].procedure, "msFillHandBMPs");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 2000);
        EXPECT_EQ(gstrErrorDescription, "Path/File access error");
        EXPECT_EQ(cellColour(window, 0), 0x200001U);
        EXPECT_EQ(cellColour(window, 1), 0U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, ABadBitmapInAnArchiveEndsThePage) {
    makeModel("b001fafit", 1);
    folder.write(kTextures, archiveFile({{"b001fafitlgt_a.bmp", bitmapFile(8, 8, 0xCC0001)},
                                         {"b001fafitlgt_b.bmp", std::string(900, 'x')},
                                         {"b001fafitlgt_c.bmp", bitmapFile(8, 8, 0xCC0003)}}));
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(recorder.reports()[0].procedure, "msFillThumbsFAR");
        EXPECT_EQ(recorder.reports()[0].checkpoint, 2400);
        EXPECT_EQ(gstrErrorDescription,
                  "Invalid picture\r\nFile: " +
                      shownPath(folder.path("game\\GameData\\Textures\\Textures.far")));
        EXPECT_EQ(cellColour(window, 0), 0xCC0001U);
        EXPECT_EQ(cellColour(window, 2), 0U);
        clickCell(window, 1);
        ASSERT_EQ(recorder.reports().size(), 2U);
        EXPECT_EQ(recorder.reports()[1].procedure, "picThumbs_MouseDown");
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, APetsSkinsComeByTheirPrefix) {
    folder.write(kSkins + "b001dog_01.cmx", "");
    folder.write(kSkins + "b001dog_coat.bmp", bitmapFile(8, 8, 0x778899));
    folder.write(kSkins + "b001cat_01.cmx", "");
    open(
        kSelectPetSkin,
        [](QWidget& window) {
            EXPECT_EQ(models(window), QStringList({"B001DOG_01"}));
            clickLine(window, "lstModels", "B001DOG_01");
            EXPECT_EQ(cellColour(window, 0), 0x778899U);
            click(window, "cmdSelect");
        },
        "Dog");
    EXPECT_EQ(reply.SelectedSkin, "B001DOG_01,b001dog_coat");
}

// Closing the real report window by its frame activates the chooser.

TEST_F(SelectSkinTest, AReportOverTheArchivesHandsLeavesEverythingAsItIs) {
    makeHands(50);
    makeArchive({{"hmfar.bmp", 0xBB0001}});
    installErrorWindow();
    open(kSelectHand, [&](QWidget& window) {
        click(window, "cmdNext");
        script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
        lookIn(window, kArchives);  // its page 2 has no hand
        EXPECT_TRUE(script.isDone());
        EXPECT_TRUE(sourceOption(window, kArchives)->isChecked());
        EXPECT_EQ(cellColour(window, 0), 0U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        click(window, "cmdPrevious");
        EXPECT_EQ(cellColour(window, 0), 0xBB0001U);
        folder.write(kTextures, archiveFile({{"hmfar.bmp", "no picture"}}));
        script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
        clickCell(window, 0);
        EXPECT_TRUE(script.isDone());
        EXPECT_EQ(cellColour(window, 0), 0xBB0001U);
        EXPECT_TRUE(window.windowTitle().endsWith("FAR Files"));
        makeArchive({{"hmfar.bmp", 0xBB0002}});
        clickCell(window, 0);
        EXPECT_EQ(skinColour(window), 0xBB0002U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "HMFAR");
    EXPECT_EQ(reply.FarFileIndex, 1);
}

TEST_F(SelectSkinTest, AReportOverABodysSkinsLeavesItsModelChosen) {
    makeModel("b001fafit", 60);
    makeModel("b002fafit", 1);
    installErrorWindow();
    open(kSelectSimSkin, [&](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        click(window, "cmdNext");
        folder.write("game/GameData/Skins/b001fafitlgt_s052.bmp", "no picture");
        makeModel("b003fafit", 1);
        script.whenShown("frmErrorDialog", [](QWidget& report) { report.close(); });
        clickCell(window, 2);
        EXPECT_TRUE(script.isDone());
        EXPECT_EQ(models(window), QStringList({"B001FAFIT_01", "B002FAFIT_01"}));
        EXPECT_EQ(find<QListWidget>(window, "lstModels")->selectedItems().size(), 1);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 2 of 2");
        EXPECT_EQ(cellColour(window, 2), 0x100000U + 52);
        EXPECT_TRUE(sourceOption(window, kFolder)->isChecked());
        click(window, "cmdSelect");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,b001fafitlgt_s050");
}

TEST_F(SelectSkinTest, AnEntryOfMoreThan64MegabytesSpoilsNoSkinBehindIt) {
    makeModel("b001fafit", 1);
    // A bitmap and, with its entry, 70 megabytes behind its rows.
    std::string large = bitmapFile(8, 8, 0xDD0001);
    large.resize(70U << 20U);
    folder.write(kTextures, archiveFile({{"b001fafitlgt_a.bmp", large},
                                         {"b001fafitlgt_b.bmp", bitmapFile(8, 8, 0xDD0002)}}));
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 0), 0xDD0001U);
        EXPECT_EQ(cellColour(window, 1), 0xDD0002U);
        clickCell(window, 1);
        EXPECT_EQ(skinColour(window), 0xDD0002U);
        click(window, "cmdSelect");
    });
    EXPECT_TRUE(recorder.reports().empty());
    EXPECT_EQ(reply.FarFileIndex, 2);
}

TEST_F(SelectSkinTest, ABitmapOfMoreThan64MegabytesIsShown) {
    folder.write(kSkins + "b001fafit_01.cmx", "");
    folder.write(kSkins + "b001fafitlgt_a.bmp", bitmapFile(4800, 4800, 0xEE0001));
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 0), 0xEE0001U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AClickShowsTheNameThatTheArchiveHasNow) {
    makeModel("b001fafit", 1);
    makeArchive({{"b001fafitlgt_a.bmp", 0xAA0001}, {"b001fafitlgt_b.bmp", 0xAA0002}});
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_A");
        makeArchive({{"b001fafitlgt_a.bmp", 0xAA0001}, {"skins\\b001fafitlgt_New.bmp", 0xAA0003}});
        clickCell(window, 1);
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_NEW");
        EXPECT_EQ(skinColour(window), 0xAA0003U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,B001FAFITLGT_NEW");
    EXPECT_EQ(reply.FarFileIndex, 2);
}

TEST_F(SelectSkinTest, AnEntryThatIsGoneIsReportedAndChoosesNothing) {
    makeModel("b001fafit", 1);
    makeArchive({{"b001fafitlgt_a.bmp", 0xAA0001}, {"b001fafitlgt_b.bmp", 0xAA0002}});
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        makeArchive({{"b001fafitlgt_a.bmp", 0xAA0001}});
        clickCell(window, 1);
        ASSERT_EQ(recorder.reports().size(), 2U);
        EXPECT_EQ(recorder.reports()[0].procedure, "gsExtractFileEx");
        EXPECT_EQ(recorder.reports()[1].procedure, "picThumbs_MouseDown");
        EXPECT_EQ(recorder.reports()[1].number, 9);
        EXPECT_EQ(skinColour(window), 0xAA0001U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.SelectedSkin, "B001FAFIT_01,B001FAFITLGT_A");
    EXPECT_EQ(reply.FarFileIndex, 1);
}

// A red picture as other programs write it.
std::string pictureOf(const char* format) {
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(0xFF0000);
    QByteArray content;
    QBuffer buffer(&content);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return content.toStdString();
}

// Bitmaps of 8 rows of 24 bytes behind a head of 54, and pictures of other formats.
const std::vector<std::string>& unfitPictures() {
    static const std::vector<std::string> pictures = {
        bitmapFile(8, 8, 0xFF0000).substr(0, 54 + 8 * 24 - 1),
        bitmapFile(8, 8, 0xFF0000).substr(0, 80), pictureOf("PNG"), pictureOf("XPM")};
    return pictures;
}

TEST_F(SelectSkinTest, APictureThatIsNoWholeBitmapIsListedAsBad) {
    makeModel("b001fafit", 2);
    QString names;
    for (const std::string& picture : unfitPictures()) {
        const std::string name =
            numbered("b001fafitlgt_x", static_cast<int>(names.size())) + ".bmp";
        folder.write(kSkins + name, picture);
        names += QString::fromStdString(name) + "\r\n";
    }
    open(kSelectSimSkin, [&](QWidget& window) {
        script.answer();
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 1), 0x100002U);
        EXPECT_EQ(cellColour(window, 2), 0U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        click(window, "cmdCancel");
    });
    ASSERT_EQ(script.messages().size(), 1U);
    EXPECT_TRUE(script.messages()[0].text.contains("loaded:\r\n\r\n" + names + "\r\nThese"));
}

TEST_F(SelectSkinTest, ABitmapWithoutTheLastRowsPadIsWhole) {
    folder.write(kSkins + "b001fafit_01.cmx", "");
    // Rows of 9 bytes are padded to 12.
    const std::string bitmap = bitmapFile(3, 3, 0x123456);
    folder.write(kSkins + "b001fafitlgt_a.bmp", bitmap.substr(0, bitmap.size() - 3));
    open(kSelectSimSkin, [](QWidget& window) {
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(cellColour(window, 0), 0x123456U);
        const QImage skin = find<PictureBox>(window, "picSkin")->picture();
        EXPECT_EQ(skin.size(), QSize(3, 3));
        EXPECT_EQ(skin.pixel(2, 0) & 0xFFFFFF, 0x123456U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AnUnfitPictureInAnArchiveCostsItsOwnCell) {
    makeModel("b001fafit", 1);
    std::vector<ArchiveEntry> entries = {{"b001fafitlgt_first.bmp", bitmapFile(8, 8, 0xCC0001)}};
    for (const std::string& picture : unfitPictures()) {
        entries.push_back({"b001fafitlgt_x.bmp", picture});
    }
    entries.push_back({"b001fafitlgt_last.bmp", bitmapFile(8, 8, 0xCC0002)});
    folder.write(kTextures, archiveFile(entries));
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_TRUE(recorder.reports().empty());
        EXPECT_EQ(cellColour(window, 0), 0xCC0001U);
        for (int cell = 1; cell <= 4; ++cell) {
            EXPECT_NE(cellColour(window, cell), 0xFF0000U) << cell;
            EXPECT_NE(cellColour(window, cell), 0xCC0001U) << cell;
        }
        EXPECT_EQ(cellColour(window, 5), 0xCC0002U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_FIRST");
        EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
        // A click tells why it isn't shown, and changes nothing.
        clickCell(window, 3);
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(recorder.reports()[0].procedure, "picThumbs_MouseDown");
        EXPECT_EQ(skinColour(window), 0xCC0001U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AnUnfitPictureThatIsTheFirstOfItsPageCostsNoMore) {
    makeModel("b001fafit", 1);
    folder.write(kTextures, archiveFile({{"b001fafitlgt_a.bmp", unfitPictures()[0]},
                                         {"b001fafitlgt_b.bmp", bitmapFile(8, 8, 0xCC0002)}}));
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_TRUE(recorder.reports().empty());
        EXPECT_EQ(cellColour(window, 1), 0xCC0002U);
        EXPECT_EQ(textOf(window, "txtPageCount"), "Page 1 of 1");
        EXPECT_EQ(textOf(window, "txtSkinName"), "B001FAFITLGT_A");
        EXPECT_NE(skinColour(window), 0xFF0000U);
        click(window, "cmdSelect");
    });
    EXPECT_EQ(reply.FarFileIndex, 1);
}

// The scratch file isn't cut: what stands behind an entry is what is left of the one before.
TEST_F(SelectSkinTest, ABitmapIsNotMadeWholeByTheOneBeforeIt) {
    makeModel("b001fafit", 1);
    const std::string cut = bitmapFile(8, 8, 0xFF0000).substr(0, 100);
    std::string archive = archiveFile(
        {{"b001fafitlgt_a.bmp", bitmapFile(8, 8, 0xCC0001)}, {"b001fafitlgt_b.bmp", cut}});
    folder.write(kTextures, archive);
    const test::ErrorRecorder recorder;
    open(kSelectSimSkin, [&](QWidget& window) {
        lookIn(window, kArchives);
        clickLine(window, "lstModels", "B001FAFIT_01");
        clickCell(window, 1);
        ASSERT_EQ(recorder.reports().size(), 1U);
        EXPECT_EQ(recorder.reports()[0].number, 481);
        EXPECT_EQ(skinColour(window), 0xCC0001U);
        click(window, "cmdCancel");
    });
}

TEST_F(SelectSkinTest, AnEmptyPageSaysWhatIsToBeDone) {
    makeModel("b001fafit", 1);
    folder.write(kSkins + "b002fafit_01.cmx", "");
    open(kSelectSimSkin, [](QWidget& window) {
        auto* page = find<PictureBox>(window, "picThumbs");
        EXPECT_EQ(page->emptyText(), "Click a body in the list first.");
        EXPECT_TRUE(hasLetters(page));
        clickLine(window, "lstModels", "B001FAFIT_01");
        EXPECT_EQ(page->emptyText(), "");
        EXPECT_FALSE(hasLetters(page));
        clickLine(window, "lstModels", "B002FAFIT_01");
        EXPECT_EQ(page->emptyText(), "No skin in the skins folder fits this body.");
        EXPECT_TRUE(hasLetters(page));
        lookIn(window, kArchives);
        EXPECT_EQ(page->emptyText(), "No skin in the FAR files fits this body.");
        EXPECT_EQ(page->accessibleDescription(), page->emptyText());
        click(window, "cmdCancel");
    });
    open(
        kSelectSimSkin,
        [](QWidget& window) {
            EXPECT_EQ(find<PictureBox>(window, "picThumbs")->emptyText(),
                      "There is no body of this kind to choose.");
            click(window, "cmdCancel");
        },
        "malgtfitB");
}

TEST_F(SelectSkinTest, APageWithoutHandsSaysSo) {
    open(kSelectHand, [this](QWidget& window) {
        auto* page = find<PictureBox>(window, "picThumbs");
        EXPECT_EQ(page->emptyText(), "There is no hand skin in the skins folder.");
        EXPECT_TRUE(hasLetters(page));
        lookIn(window, kArchives);
        EXPECT_EQ(page->emptyText(), "There is no hand skin in the FAR files.");
        makeHands(1);
        lookIn(window, kFolder);
        EXPECT_EQ(page->emptyText(), "");
        EXPECT_FALSE(hasLetters(page));
        click(window, "cmdCancel");
    });
}

}  // namespace
}  // namespace marlowick
