#include "widgets/click_list.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>
#include <iterator>
#include <utility>

#include "system/game_text.h"
#include "widgets/display_text.h"

namespace marlowick {
namespace {

// A line whose tool tip tells it whole, also after its text has changed.
class Line : public QListWidgetItem {
  public:
    using QListWidgetItem::QListWidgetItem;

    QVariant data(int role) const override {
        return role == Qt::ToolTipRole ? toToolTip(text()) : QListWidgetItem::data(role);
    }
};

bool choosesFirst(int key) {
    constexpr Qt::Key kKeys[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_Return,
                                 Qt::Key_Enter};
    return std::find(std::begin(kKeys), std::end(kKeys), key) != std::end(kKeys);
}

}  // namespace

void ClickList::setLines(const std::vector<std::string>& gameTexts) {
    QStringList texts;
    for (const std::string& text : gameTexts) {
        texts.append(toDisplay(text));
    }
    setTexts(texts);
}

void ClickList::setTexts(const QStringList& texts) {
    clear();
    for (const QString& text : texts) {
        addItem(new Line(text));
    }
}

std::string ClickList::line() const {
    const QList<QListWidgetItem*> chosen = selectedItems();
    return chosen.isEmpty() ? std::string() : toGameText(chosen.first()->text());
}

QItemSelectionModel::SelectionFlags ClickList::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
    if (selectionMode() != SingleSelection) {
        return QListWidget::selectionCommand(index, event);
    }
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

void ClickList::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        return;
    }
    pressed_ = indexAt(event->position().toPoint()).isValid();
    QListWidget::mousePressEvent(event);
}

void ClickList::mouseReleaseEvent(QMouseEvent* event) {
    QListWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && std::exchange(pressed_, false) &&
        !selectedItems().isEmpty()) {
        Q_EMIT lineClicked();
    }
}

// Where nothing is chosen yet, Enter or an arrow chooses the line that the list stands on, or the
// first one; else the first line could hardly be reached, and a single line not at all.
void ClickList::keyPressEvent(QKeyEvent* event) {
    const bool extends = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
    if (choosesFirst(event->key()) && !extends && count() > 0 && selectedItems().isEmpty()) {
        setCurrentItem(currentItem() != nullptr ? currentItem() : item(0));
        return;
    }
    QListWidget::keyPressEvent(event);
}

// A list that takes the focus would make its first line current, which looks like a choice.
void ClickList::focusInEvent(QFocusEvent* event) {
    const bool stands = currentItem() != nullptr;
    QListWidget::focusInEvent(event);
    if (!stands) {
        selectionModel()->clearCurrentIndex();
    }
}

void ClickList::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListWidget::selectionChanged(selected, deselected);
    if (!pressed_ && !selected.isEmpty()) {
        Q_EMIT lineClicked();
    }
}

std::vector<std::string> sortedLines(std::vector<std::string> gameTexts) {
    std::stable_sort(gameTexts.begin(), gameTexts.end(),
                     [](const std::string& left, const std::string& right) {
                         return compareIgnoringCase(left, right) < 0;
                     });
    return gameTexts;
}

}  // namespace marlowick
