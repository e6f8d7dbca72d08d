#include "widgets/input_guard.h"

#include <QApplication>
#include <QEvent>
#include <QObject>
#include <utility>

namespace marlowick {
namespace {

int guardDepth = 0;

class InputFilter : public QObject {
  public:
    bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
        if (guardDepth == 0) {
            return false;
        }
        switch (event->type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
            case QEvent::Wheel:
            case QEvent::KeyPress:
            case QEvent::KeyRelease:
            case QEvent::Shortcut:
            case QEvent::ShortcutOverride:
            case QEvent::ContextMenu:
            case QEvent::TouchBegin:
                return true;
            case QEvent::Close:
                event->ignore();
                return true;
            default:
                return false;
        }
    }
};

void installFilterOnce() {
    static QObject* owner = nullptr;
    if (owner != qApp) {
        owner = qApp;
        auto* filter = new InputFilter;
        filter->setParent(qApp);
        qApp->installEventFilter(filter);
    }
}

}  // namespace

void setPointer(Pointer pointer) {
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
    if (pointer == Pointer::Hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

bool pointerIsBusy() {
    return QApplication::overrideCursor() != nullptr;
}

InputGuard::InputGuard() {
    installFilterOnce();
    ++guardDepth;
}

InputGuard::~InputGuard() {
    // What was clicked and typed meanwhile waits in the queue: take it out while it is still
    // thrown away.
    if (guardDepth == 1) {
        QCoreApplication::processEvents();
    }
    --guardDepth;
}

bool InputGuard::isActive() {
    return guardDepth > 0;
}

InputGuard::Pause::Pause() : depth_(std::exchange(guardDepth, 0)) {}

InputGuard::Pause::~Pause() {
    guardDepth = depth_;
}

void repaintWindows() {
    QCoreApplication::processEvents();
}

}  // namespace marlowick
