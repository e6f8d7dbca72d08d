// A list box that tells of a chosen line in one way: by mouse, keyboard or program,
// and also when the line that is chosen already is clicked again. A choice is only
// ever replaced: a click beside the lines, or with Ctrl, takes nothing away. Before a choice no
// line is marked, and Enter chooses the first one. Only the left button chooses.
#pragma once

#include <QListWidget>
#include <string>
#include <vector>

namespace marlowick {

class ClickList : public QListWidget {
    Q_OBJECT
  public:
    using QListWidget::QListWidget;

    // Shows game texts as lines, in the order given.
    void setLines(const std::vector<std::string>& gameTexts);
    // The same of texts of the screen.
    void setTexts(const QStringList& texts);
    // The text of the chosen line as a game text; empty if none is chosen.
    std::string line() const;

  Q_SIGNALS:
    void lineClicked();

  protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    bool pressed_ = false;
};

// Game texts in the order of a sorted list box: by upper-cased bytes, equals as they were added.
std::vector<std::string> sortedLines(std::vector<std::string> gameTexts);

}  // namespace marlowick
