#include "platform/messages.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>

#include "platform/form.h"
#include "platform/input_guard.h"

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
    if (buttons == MessageButtons::Ok) {
        box.setStandardButtons(QMessageBox::Ok);
        box.exec();
        return MessageReply::Ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? MessageReply::Yes : MessageReply::No;
}

bool confirmAction(const QString& question) {
    return showMessage(QStringLiteral("Confirm Action"), MessageIcon::Question,
                       MessageButtons::YesNo, question) != MessageReply::No;
}

QString askForText(const QString& title, const QString& prompt) {
    const InputGuard::Pause inputAllowed;
    QInputDialog box(owner());
    box.setObjectName(QStringLiteral("inputBox"));
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

}  // namespace marlowick
