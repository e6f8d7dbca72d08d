#include "platform/form.h"

#include <QApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLayout>
#include <QList>
#include <QTimer>
#include <cstdlib>
#include <utility>

#include "foundation/error_trap.h"
#include "platform/input_guard.h"

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

ModalForm::ModalForm() {
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
    const InputGuard::Pause inputAllowed;
    QWidget* owner = QApplication::activeModalWidget();
    if (owner == nullptr) {
        owner = QApplication::activeWindow();
    }
    removeControls();
    setParent(owner == this ? nullptr : owner, windowFlags());
    buildControls();
    formStack().append(this);
    setResult(QDialog::Rejected);
    QEventLoop loop;
    const QMetaObject::Connection closed =
        connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
    bool done = false;
    const QMetaObject::Connection noted = connect(this, &QDialog::finished, [&] { done = true; });
    runEvent(objectName().toLatin1().constData(), "Form_Load", [this] { Form_Load(); });
    if (!done) {
        show();
        runEvent(objectName().toLatin1().constData(), "Form_Activate", [this] { Form_Activate(); });
    }
    if (!done) {
        loop.exec();
    }
    disconnect(closed);
    disconnect(noted);
    hide();
    setParent(nullptr, windowFlags());
    formStack().removeOne(this);
    if (!formStack().isEmpty()) {
        FormEvents* before = formStack().last();
        runEvent("", "Form_Activate", [before] { before->Form_Activate(); });
    }
}

void ModalForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        if (escapeButton_ != nullptr) {
            escapeButton_->click();
        }
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
