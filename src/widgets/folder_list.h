// The folder control: a folder, the folders above it and those within it. A double
// click or Enter opens one of them.
#pragma once

#include <QTreeWidget>

#include "system/path.h"

namespace marlowick {

class FolderList : public QTreeWidget {
    Q_OBJECT
  public:
    explicit FolderList(QWidget* parent = nullptr);

    // The open folder, without a backslash behind it unless it is a root; empty before the first
    // one is opened.
    const Path& path() const { return path_; }
    // Opens a folder. 76 if there is none; the control then stays as it was.
    void setPath(const Path& folder);

  Q_SIGNALS:
    // Another folder is open now.
    void pathChanged();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Nothing can be folded, so there are no arrows for it.
    void drawBranches(QPainter* painter, const QRect& area,
                      const QModelIndex& index) const override;

  private:
    void openItem(QTreeWidgetItem* item);
    void showFolders();

    Path path_;
};

}  // namespace marlowick
