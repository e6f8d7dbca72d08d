#include "far/manage_fars_test.h"

#include <QSignalSpy>

#include "system/disk.h"
#include "system/files.h"
#include "widgets/folder_list.h"
#include "widgets/picture_box.h"

namespace marlowick::test {

ManageFARsTest::ManageFARsTest() {
    installGame(folder);
    folder.write("pictures/red.bmp", kRed);
    folder.write("pictures/Green.BMP", kGreen);
    folder.write("pictures/notes.txt", "no picture");
    setFreeDiskSpace([](const Path&) { return 1e12; });
}

ManageFARsTest::~ManageFARsTest() {
    setFreeDiskSpace({});
}

void ManageFARsTest::makeArchive(const std::string& name,
                                 const std::vector<ArchiveEntry>& entries) {
    folder.write(kTextures + name, archiveFile(entries));
}

std::string ManageFARsTest::archive(const std::string& name) const {
    return folder.read(kTextures + name);
}

void ManageFARsTest::manage(const std::function<void(QWidget&)>& action) {
    script.whenShown(QStringLiteral("frmManageFARs"), [action](QWidget& window) {
        action(window);
        window.close();
    });
    theWindow<frmManageFARs>().showModal();
    EXPECT_TRUE(script.isDone());
}

void ManageFARsTest::pick(QWidget& window, const QString& name, bool messageFollows) {
    script.whenShown(QStringLiteral("frmOpenFAR"), [name](QWidget& opener) {
        const QList<QListWidgetItem*> found = list(opener)->findItems(name, Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1);
        select(opener, {list(opener)->row(found.first())});
        click(opener, "cmdSelect");
    });
    if (messageFollows) {
        script.answer();
    }
    click(window, "cmdOpen");
}

void ManageFARsTest::cancelPicking(QWidget& window) {
    script.whenShown(QStringLiteral("frmOpenFAR"),
                     [](QWidget& opener) { click(opener, "cmdCancel"); });
    click(window, "cmdOpen");
}

void ManageFARsTest::goTo(QWidget& window, const std::string& name) const {
    find<FolderList>(window, "dirFiles")->setPath(folder.path(name));
}

QListWidget* ManageFARsTest::list(QWidget& window, const char* name) {
    return find<QListWidget>(window, name);
}

QStringList ManageFARsTest::rows(QWidget& window, const char* name) {
    QStringList texts;
    for (int row = 0; row < list(window, name)->count(); ++row) {
        texts.append(list(window, name)->item(row)->text());
    }
    return texts;
}

QStringList ManageFARsTest::selected(QWidget& window, const char* name) {
    QStringList texts;
    for (int row = 0; row < list(window, name)->count(); ++row) {
        if (list(window, name)->item(row)->isSelected()) {
            texts.append(list(window, name)->item(row)->text());
        }
    }
    return texts;
}

void ManageFARsTest::select(QWidget& window, const std::vector<int>& rows, const char* name) {
    Qt::KeyboardModifiers modifiers;
    for (const int row : rows) {
        QListWidgetItem* item = list(window, name)->item(row);
        list(window, name)->scrollToItem(item);
        const QRect place = list(window, name)->visualItemRect(item);
        QTest::mouseClick(list(window, name)->viewport(), Qt::LeftButton, modifiers,
                          {5, place.center().y()});
        modifiers = Qt::ControlModifier;
    }
}

unsigned ManageFARsTest::colourOf(QWidget& window, const char* picture) {
    const QImage image = find<PictureBox>(window, picture)->picture();
    return image.isNull() ? 0xFFFFFFFFU
                          : image.pixel(image.width() / 2, image.height() / 2) & 0xFFFFFFU;
}

bool ManageFARsTest::showsError(QWidget& window, const char* picture) {
    const QImage image = find<PictureBox>(window, picture)->picture();
    return !image.isNull() && image == find<PictureBox>(window, "picError")->picture();
}

std::vector<std::string> ManageFARsTest::scratchFiles() const {
    return searchFiles(folder.path("program\\temp"), "*");
}

}  // namespace marlowick::test
