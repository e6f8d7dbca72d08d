#include "layers/layers.h"

#include <gtest/gtest.h>

#include "support/test_folder.h"

namespace marlowick::test {
namespace {

using Findings = std::vector<std::string>;

TEST(LayersTest, EveryIncludeLeadsDownAndQtStaysInItsRooms) {
    EXPECT_EQ(layerFindings(MARLOWICK_SOURCES), Findings{});
}

class MadeUpTreeTest : public ::testing::Test {
  protected:
    Findings findings() const { return layerFindings(folder.program() / "src"); }
    void write(const std::string& name, const std::string& content) {
        folder.write("program/src/" + name, content);
    }

    TestFolder folder;
};

TEST_F(MadeUpTreeTest, DownwardIncludesAndOnesOwnFolderAreFine) {
    write("main.cpp", "#include <QApplication>\n#include \"start/startup.h\"\n");
    write("browser/frmMain.cpp",
          "#include \"browser/sims.h\"\n#include \"system/files.h\"\n#include \"ui_frmMain.h\"\n"
          "#include <QLabel>\n");
    write("browser/frmMain.ui", "<header>widgets/picture_box.h</header>\n");
    write("browser/page_view.cpp", "#include <QWidget>\n");
    write("iff/iff_file.h", "#include \"foundation/list.h\"\n#include <vector>\n");
    EXPECT_EQ(findings(), Findings{});
}

TEST_F(MadeUpTreeTest, AnIncludeThatLeadsUpOrAcrossIsToldWithFileAndLine) {
    write("iff/a.cpp", "\n#include \"wardrobe/rows.h\"\n");
    write("mesh/b.h", "#include \"iff/iff_file.h\"\n");
    write("widgets/c.ui", "<widget>\n  <header location=\"global\">catalogue/list.h</header>\n");
    EXPECT_EQ(findings(),
              (Findings{"iff/a.cpp:2: includes wardrobe/rows.h, which isn't below iff",
                        "mesh/b.h:1: includes iff/iff_file.h, which isn't below mesh",
                        "widgets/c.ui:2: includes catalogue/list.h, which isn't below widgets"}));
}

TEST_F(MadeUpTreeTest, QtInTheLogicIsTold) {
    write("iff/a.cpp", "#include <QString>\n");
    write("wardrobe/b.h", "class QWidget;  // and why\n// QLabel in a comment is none\n");
    write("far/c.cpp", "#include \"widgets/messages.h\"\n");
    write("catalogue/d.cpp", "#include \"ui_frmMain.h\"\n");
    write("browser/e.cpp", "#include <QtCore/qstring.h>\n");
    EXPECT_EQ(findings(), (Findings{"browser/e.cpp:1: names Qt", "catalogue/d.cpp:1: names Qt",
                                    "far/c.cpp:1: names Qt", "iff/a.cpp:1: names Qt",
                                    "wardrobe/b.h:1: names Qt"}));
}

TEST_F(MadeUpTreeTest, EveryWayToWriteAnIncludeCounts) {
    write("iff/a.cpp", "#  include \"wardrobe/rows.h\"\n\t#include <far/far_edit.h>\n");
    EXPECT_EQ(findings(),
              (Findings{"iff/a.cpp:1: includes wardrobe/rows.h, which isn't below iff",
                        "iff/a.cpp:2: includes far/far_edit.h, which isn't below iff"}));
}

TEST_F(MadeUpTreeTest, EveryNameOfQtCounts) {
    write("iff/a.cpp",
          "auto side = Qt::AlignLeft;\nQ_OBJECT\nqApp->quit();\nQIODevice* device;\n"
          "#include <QtCore>\n#include <qstring.h>\n");
    write("iff/b.cpp", "int Quiet = kQuality + Q + QUEUE + aQString;\n#include <queue>\n");
    Findings wanted;
    for (int line = 1; line <= 6; ++line) {
        wanted.push_back("iff/a.cpp:" + std::to_string(line) + ": names Qt");
    }
    EXPECT_EQ(findings(), wanted);
}

TEST_F(MadeUpTreeTest, AFolderOutsideTheHouseIsTold) {
    write("attic/a.cpp", "");
    write("iff/b.cpp", "#include \"attic/a.h\"\n#include \"c.h\"\n");
    write("second.cpp", "");
    EXPECT_EQ(findings(), (Findings{"attic/a.cpp:0: stands on no floor",
                                    "iff/b.cpp:1: includes attic/a.h, which stands on no floor",
                                    "iff/b.cpp:2: includes c.h, which names no folder",
                                    "second.cpp:0: stands on no floor"}));
}

}  // namespace
}  // namespace marlowick::test
