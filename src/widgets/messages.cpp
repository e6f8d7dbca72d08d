#include "widgets/messages.h"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <algorithm>

#include "widgets/form.h"
#include "widgets/input_guard.h"

namespace marlowick {
namespace {

// The window in front, also where no window has the focus.
QWidget* owner() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr) {
        return modal;
    }
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : frontWindow();
}

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Exclamation:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// The one that Enter means.
QMessageBox::StandardButton defaultButton(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::YesNo:
            return QMessageBox::Yes;
        case MessageButtons::NoYes:
            return QMessageBox::No;
        case MessageButtons::Ok:
            break;
    }
    return QMessageBox::Ok;
}

// A text of hundreds of lines scrolls, so that the buttons stay on the screen.
void scrollLongText(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    const QSize room = box.screen()->availableSize() / 2;
    if (label == nullptr || grid == nullptr || label->sizeHint().height() <= room.height()) {
        return;
    }
    int row = 0;
    int column = 0;
    int rows = 1;
    int columns = 1;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->removeWidget(label);
    auto* view = new QScrollArea(&box);
    view->setObjectName(QStringLiteral("messageText"));
    view->setFrameShape(QFrame::NoFrame);
    view->setWidgetResizable(true);
    view->setMinimumSize(
        std::min(label->sizeHint().width() + view->style()->pixelMetric(QStyle::PM_ScrollBarExtent),
                 room.width()),
        room.height());
    view->setWidget(label);
    grid->addWidget(view, row, column, rows, columns);
    box.defaultButton()->setFocus();
}

// Room for a window's title beside its icon and buttons. Pixels.
int titleWidth(const QWidget& window) {
    constexpr int kIconAndButtons = 130;
    const int wanted =
        window.fontMetrics().horizontalAdvance(window.windowTitle()) + kIconAndButtons;
    return std::min(wanted, window.screen()->availableSize().width());
}

// The box keeps to the size that its own layout gives it.
void makeRoomForTitle(QMessageBox& box) {
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()); grid != nullptr) {
        grid->addItem(new QSpacerItem(titleWidth(box), 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    }
}

QString areYouSure() {
    return QStringLiteral("Are You Sure?");
}

// Only No stops what was asked about.
bool confirmed(MessageButtons buttons, const QString& question) {
    return showMessage(QStringLiteral("Confirm Action"), MessageIcon::Question, buttons,
                       question) != MessageReply::No;
}

}  // namespace

MessageReply showMessage(const QString& title, MessageIcon icon, MessageButtons buttons,
                         const QString& text) {
    const InputGuard::Pause inputAllowed;
    QMessageBox box(owner());
    box.setObjectName(QStringLiteral("messageBox"));
    box.setWindowTitle(title);
    box.setIcon(boxIcon(icon));
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    const bool asks = buttons != MessageButtons::Ok;
    box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    box.setDefaultButton(defaultButton(buttons));
    box.setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
    scrollLongText(box);
    makeRoomForTitle(box);
    const int answer = box.exec();
    if (!asks) {
        return MessageReply::Ok;
    }
    return answer == QMessageBox::Yes ? MessageReply::Yes : MessageReply::No;
}

bool confirmAction(const QString& question) {
    return confirmed(MessageButtons::YesNo, question);
}

bool confirmChange(const QString& question, const QString& lineBreak) {
    return confirmAction(question + lineBreak + areYouSure());
}

bool confirmLoss(const QString& question) {
    return confirmed(MessageButtons::NoYes, question + QLatin1Char('\n') + areYouSure());
}

QString askForText(const QString& title, const QString& prompt) {
    const InputGuard::Pause inputAllowed;
    QInputDialog box(owner());
    box.setObjectName(QStringLiteral("inputBox"));
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setMinimumWidth(titleWidth(box));
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

}  // namespace marlowick
