#include "widgets/folder_list.h"

#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <algorithm>
#include <string>
#include <vector>

#include "system/files.h"
#include "system/runtime_error.h"
#include "widgets/display_text.h"

namespace marlowick {
namespace {

constexpr int kPathRole = Qt::UserRole;

// The length of the part of a path that no folder lies above: "C:\", "\\server\share" or "\".
std::size_t rootLength(const std::string& text) {
    if (text.starts_with("\\\\")) {
        const std::size_t share = text.find('\\', 2);
        return share == std::string::npos ? text.size()
                                          : std::min(text.find('\\', share + 1), text.size());
    }
    if (text.size() >= 2 && text[1] == ':') {
        return text.size() >= 3 && text[2] == '\\' ? 3 : 2;
    }
    return text.starts_with('\\') ? 1 : 0;
}

// With backslashes alone, and none at the end unless the path is a root.
Path plainPath(const Path& folder) {
    std::string text = folder.text();
    std::replace(text.begin(), text.end(), '/', '\\');
    while (text.size() > rootLength(text) && text.ends_with('\\')) {
        text.pop_back();
    }
    return Path(text);
}

// The open folder and those above it, the root first.
std::vector<Path> chainOf(const Path& folder) {
    const std::string& text = folder.text();
    const std::size_t root = rootLength(text);
    std::vector<Path> chain;
    if (root > 0) {
        chain.emplace_back(text.substr(0, root));
    }
    for (std::size_t start = root; start < text.size();) {
        const std::size_t end = std::min(text.find('\\', start), text.size());
        if (end > start) {
            chain.emplace_back(text.substr(0, end));
        }
        start = end + 1;
    }
    return chain;
}

// Names as the machine has them, so that folders in any script can be opened. A folder that begins
// with a dot is shown too: Wine keeps its drives in one.
QStringList foldersWithin(const Path& folder) {
    QString native = QString::fromStdString(files().followLinks(folder).text());
    native.replace(QLatin1Char('\\'), QLatin1Char('/'));
    QStringList names;
    if (native.isEmpty()) {
        return names;
    }
    for (const QFileInfo& info : QDir(native).entryInfoList(
             QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
        const QString name = info.fileName();
        const bool visible = !info.isHidden() || name.startsWith(QLatin1Char('.'));
        if (visible && !name.contains(QLatin1Char('\\'))) {
            names.append(name);
        }
    }
    return names;
}

QString lastPiece(const Path& folder) {
    const QString text = toDisplay(folder);
    const qsizetype separator =
        std::max(text.lastIndexOf(QLatin1Char('\\')), text.lastIndexOf(QLatin1Char('/')));
    return folder.text().size() <= rootLength(folder.text()) ? text : text.mid(separator + 1);
}

// A folder whose tool tip is its name where that isn't seen whole; else the list's own is shown.
class FolderItem : public QTreeWidgetItem {
  public:
    using QTreeWidgetItem::QTreeWidgetItem;

    QVariant data(int column, int role) const override {
        return role == Qt::ToolTipRole && isCut() ? toToolTip(text(column))
                                                  : QTreeWidgetItem::data(column, role);
    }

  private:
    bool isCut() const {
        const QTreeWidget* list = treeWidget();
        if (list == nullptr) {
            return false;
        }
        const int start = list->visualItemRect(this).left();
        const int width = list->sizeHintForIndex(list->indexFromItem(this)).width();
        return start < 0 || start + width > list->viewport()->width();
    }
};

}  // namespace

FolderList::FolderList(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setExpandsOnDoubleClick(false);
    setIndentation(12);
    setUniformRowHeights(true);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void FolderList::setPath(const Path& folder) {
    const Path opened = plainPath(folder);
    if (!files().folderExists(opened)) {
        throw RuntimeError(error::kPathNotFound);
    }
    const bool changed = !(opened == path_);
    path_ = opened;
    showFolders();
    if (changed) {
        Q_EMIT pathChanged();
    }
}

void FolderList::showFolders() {
    clear();
    QTreeWidgetItem* parent = invisibleRootItem();
    const auto add = [&](const QString& name, const Path& folder, QStyle::StandardPixmap icon) {
        auto* item = new FolderItem(parent, QStringList(name));
        item->setIcon(0, style()->standardIcon(icon));
        item->setData(0, kPathRole, QString::fromStdString(folder.text()));
        return item;
    };
    for (const Path& folder : chainOf(path_)) {
        parent = add(lastPiece(folder), folder, QStyle::SP_DirOpenIcon);
        parent->setExpanded(true);
    }
    const std::string separator = path_.text().ends_with('\\') ? "" : "\\";
    for (const QString& name : foldersWithin(path_)) {
        add(name, Path(path_.text() + separator + name.toStdString()), QStyle::SP_DirClosedIcon);
    }
    setCurrentItem(parent);
    scrollToItem(parent, QAbstractItemView::PositionAtTop);
}

void FolderList::openItem(QTreeWidgetItem* item) {
    if (item == nullptr) {
        return;
    }
    const Path folder = Path(item->data(0, kPathRole).toString().toStdString());
    if (files().folderExists(folder)) {
        setPath(folder);
    } else {
        // One that has gone meanwhile goes from the list too.
        showFolders();
    }
}

void FolderList::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        openItem(currentItem());
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

void FolderList::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    header()->setMinimumSectionSize(viewport()->width());
}

void FolderList::drawBranches(QPainter* /*painter*/, const QRect& /*area*/,
                              const QModelIndex& /*index*/) const {}

void FolderList::mouseDoubleClickEvent(QMouseEvent* event) {
    openItem(itemAt(event->pos()));
}

}  // namespace marlowick
