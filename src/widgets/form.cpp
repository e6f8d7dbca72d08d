#include "widgets/form.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QList>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <cstdlib>
#include <utility>

#include "foundation/error_trap.h"
#include "widgets/input_guard.h"

namespace marlowick {
namespace {

QList<FormEvents*>& formStack() {
    static QList<FormEvents*> stack;
    return stack;
}

QList<QPointer<QWidget>>& windowList() {
    static QList<QPointer<QWidget>> windows;
    return windows;
}

std::function<void()>& programEnd() {
    static std::function<void()> end;
    return end;
}

}  // namespace

void runEvent(const char* window, const char* event, const std::function<void()>& handler) {
    trapped(window, event, handler);
}

void setBottomForm(FormEvents* form) {
    formStack().clear();
    if (form != nullptr) {
        formStack().append(form);
    }
}

QWidget* frontWindow() {
    return formStack().isEmpty() ? nullptr : dynamic_cast<QWidget*>(formStack().last());
}

QSize sizeOnScreen(const QWidget& window) {
    return window.size().boundedTo(window.screen()->availableSize() - QSize(16, 40));
}

void FormEvents::onClick(QAbstractButton* button, std::string event,
                         std::function<void()> handler) {
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [this, event = std::move(event), handler = std::move(handler)] {
                         runEvent(windowName(), event.c_str(), handler);
                     });
}

ModalForm::ModalForm(const char* name) : FormEvents(name) {
    setObjectName(QString::fromLatin1(name));
    setModal(true);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

void ModalForm::removeControls() {
    delete layout();
    const QList<QWidget*> controls = findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    qDeleteAll(controls);
    const QList<QTimer*> timers = findChildren<QTimer*>(Qt::FindDirectChildrenOnly);
    qDeleteAll(timers);
    escapeButton_ = nullptr;
}

void ModalForm::showModal() {
    if (isVisible()) {
        return;
    }
    const InputGuard::Pause inputAllowed;
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* owner = modal != nullptr ? modal : frontWindow();
    removeControls();
    setParent(owner, windowFlags());
    buildControls();
    formStack().append(this);
    QEventLoop loop;
    bool closed = false;
    const QMetaObject::Connection finish = connect(this, &QDialog::finished, &loop, [&] {
        closed = true;
        loop.quit();
    });
    runEvent(windowName(), "Form_Load", [this] { Form_Load(); });
    show();
    runEvent(windowName(), "Form_Activate", [this] { Form_Activate(); });
    if (!closed) {
        loop.exec();
    }
    disconnect(finish);
    hide();
    setParent(nullptr, windowFlags());
    formStack().removeOne(this);
    if (!formStack().isEmpty()) {
        FormEvents* before = formStack().last();
        runEvent(before->windowName(), "Form_Activate", [before] { before->Form_Activate(); });
    }
    runEvent(windowName(), "Form_Unload", [this] { Form_Unload(); });
}

void ModalForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        if (escapeButton_ != nullptr) {
            escapeButton_->click();
        }
        return;
    }
    // A button that has the focus is the one that Enter means, before the default button.
    auto* button = qobject_cast<QPushButton*>(focusWidget());
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && button != nullptr && button->focusPolicy() == Qt::StrongFocus) {
        button->click();
        return;
    }
    QDialog::keyPressEvent(event);
}

void registerWindow(QWidget* window) {
    windowList().append(window);
}

void destroyWindows() {
    formStack().clear();
    const QList<QPointer<QWidget>> windows = std::exchange(windowList(), {});
    for (const QPointer<QWidget>& window : windows) {
        delete window.data();
    }
}

void endProgram() {
    if (programEnd()) {
        programEnd()();
        return;
    }
    std::_Exit(EXIT_SUCCESS);
}

void setProgramEnd(std::function<void()> end) {
    programEnd() = std::move(end);
}

}  // namespace marlowick
