#include "driver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "widgets/form.h"
#include "widgets/input_guard.h"

namespace marlowick::tour {
namespace {

constexpr int kPollMilliseconds = 50;
constexpr int kHurriedPollMilliseconds = 2;
constexpr int kSettleMilliseconds = 400;
constexpr int kPatienceMilliseconds = 30000;
// A window manager may give a window no frame at all.
constexpr int kFrameMilliseconds = 3000;

[[noreturn]] void giveUp(const QString& what) {
    std::fprintf(stderr, "tour: %s\n", qPrintable(what));
    std::_Exit(EXIT_FAILURE);
}

// A window manager that is slow to put a frame around a window leaves its frame at one pixel for
// good, as Qt has it. All frames are alike: such a window has that of the windows before it.
QRect frameOf(const QWidget& window) {
    static QMargins margins;
    const QRect inner = window.geometry();
    const QRect frame = window.frameGeometry();
    if (!frame.contains(inner)) {
        return inner.marginsAdded(margins);
    }
    margins = {inner.left() - frame.left(), inner.top() - frame.top(),
               frame.right() - inner.right(), frame.bottom() - inner.bottom()};
    return frame;
}

// The window that the person looks at.
QWidget* frontmost() {
    QWidget* front = QApplication::activeModalWidget();
    if (front == nullptr) {
        front = frontWindow();
    }
    if (front == nullptr || !front->isVisible()) {
        front = QApplication::activeWindow();
    }
    return front;
}

// The window in front as the screen shows it, frame and all.
QRect frontFrame() {
    const QWidget* front = frontmost();
    return front == nullptr ? QRect() : frameOf(*front);
}

// Whether the window in front has got its frame. A busy window manager draws it late, and has the
// window at one pixel while it does.
bool isFramed() {
    const QWidget* front = frontmost();
    if (front == nullptr) {
        return true;
    }
    const QRect frame = front->frameGeometry();
    return frame != front->geometry() && frame.width() > 1 && frame.height() > 1;
}

void save(const QPixmap& picture, const QString& file) {
    // PNG's quality is its size: 0 is the smallest file.
    if (!picture.save(file, "PNG", 0)) {
        giveUp("can't write " + file);
    }
}

QMessageBox* shownBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

// The middle of the first row whose text begins with the given one, scrolled into sight.
QPoint rowOf(QAbstractItemView* list, const QString& text) {
    const QModelIndexList found =
        list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, text, 1,
                             Qt::MatchStartsWith | Qt::MatchRecursive);
    if (found.isEmpty()) {
        giveUp("no row of " + list->objectName() + " begins with " + text);
    }
    list->scrollTo(found.first());
    return list->visualRect(found.first()).center();
}

}  // namespace

Driver::Driver(QString folder) : folder_(std::move(folder)) {
    if (takesPictures()) {
        QDir(folder_).mkpath(QStringLiteral("windows"));
    }
}

void Driver::add(const QString& name, std::function<bool()> ready, std::function<void()> action) {
    steps_.push_back({name, std::move(ready), std::move(action)});
}

void Driver::start() {
    QTimer::singleShot(poll(), qApp, [this] { wait(0, !takesPictures()); });
}

int Driver::poll() const {
    return takesPictures() ? kPollMilliseconds : kHurriedPollMilliseconds;
}

bool Driver::isReady(int elapsed) const {
    // While a window paints, clicks are thrown away.
    return !InputGuard::isActive() && steps_[next_].ready() &&
           (!takesPictures() || isFramed() || elapsed > kFrameMilliseconds);
}

void Driver::wait(int elapsed, bool settled) {
    if (isDone()) {
        return;
    }
    if (!isReady(elapsed)) {
        if (elapsed > kPatienceMilliseconds) {
            giveUp("the step \"" + steps_[next_].name + "\" never came");
        }
        const bool stillSettled = settled && (!takesPictures() || !InputGuard::isActive());
        QTimer::singleShot(poll(), qApp,
                           [this, elapsed, stillSettled] { wait(elapsed + poll(), stillSettled); });
        return;
    }
    if (!settled) {
        QTimer::singleShot(kSettleMilliseconds, qApp,
                           [this, elapsed] { wait(elapsed + kSettleMilliseconds, true); });
        return;
    }
    const Step& due = steps_[next_];
    if (takesPictures()) {
        takePicture(due.name);
    }
    ++next_;
    // The action may not come back before a modal window closes: the next step waits inside.
    start();
    due.action();
}

void Driver::takePicture(const QString& name) {
    const QString file =
        QStringLiteral("%1/%2-%3.png").arg(folder_).arg(next_ + 1, 2, 10, QChar('0')).arg(name);
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    save(screen, file);
    save(screen.copy(frontFrame()), QStringLiteral("%1/windows/%2.png").arg(folder_, name));
    std::printf("  %s\n", qPrintable(file));
    std::fflush(stdout);
}

QWidget* shownWindow(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

QWidget* control(const QString& window, const QString& name) {
    QWidget* shown = shownWindow(window);
    QWidget* found = shown == nullptr ? nullptr : shown->findChild<QWidget*>(name);
    if (found == nullptr) {
        giveUp("there is no " + name + " on " + window);
    }
    return found;
}

std::function<bool()> whenShown(const QString& window) {
    return [window] {
        QWidget* modal = QApplication::activeModalWidget();
        QWidget* shown = shownWindow(window);
        return shown != nullptr && (modal == nullptr || modal == shown);
    };
}

std::function<bool()> whenAsked(const QString& title) {
    return [title] { return shownBox() != nullptr && shownBox()->windowTitle() == title; };
}

std::function<void()> clickOn(const QString& window, const QString& name) {
    return [=] { QTest::mouseClick(control(window, name), Qt::LeftButton); };
}

std::function<void()> press(const QString& window, const QString& caption) {
    return [=] {
        const QWidget* shown = shownWindow(window);
        for (QAbstractButton* button : shown->findChildren<QAbstractButton*>()) {
            if (button->text().remove('&') == caption) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        giveUp("there is no button " + caption + " on " + window);
    };
}

std::function<void()> clickAt(const QString& window, const QString& name, QPoint position) {
    return
        [=] { QTest::mouseClick(control(window, name), Qt::LeftButton, Qt::NoModifier, position); };
}

std::function<void()> dragOn(const QString& window, const QString& name, QPoint way) {
    return [=] {
        QWidget* dragged = control(window, name);
        const QPoint start = dragged->rect().center();
        QTest::mousePress(dragged, Qt::LeftButton, Qt::NoModifier, start);
        // QTest's own move tells of no button that is held.
        QMouseEvent move(QEvent::MouseMove, start + way, dragged->mapToGlobal(start + way),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(dragged, &move);
        QTest::mouseRelease(dragged, Qt::LeftButton, Qt::NoModifier, start + way);
    };
}

std::function<void()> doubleClickAt(const QString& window, const QString& name, QPoint position) {
    return [=] {
        QTest::mouseDClick(control(window, name), Qt::LeftButton, Qt::NoModifier, position);
    };
}

std::function<void()> clickRow(const QString& window, const QString& name, const QString& text) {
    return [=] {
        auto* list = qobject_cast<QAbstractItemView*>(control(window, name));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, rowOf(list, text));
    };
}

std::function<void()> openRow(const QString& window, const QString& name, const QString& text) {
    return [=] {
        auto* list = qobject_cast<QAbstractItemView*>(control(window, name));
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, rowOf(list, text));
    };
}

std::function<void()> chooseCommand(const QString& window, const QString& name) {
    return [=] {
        auto* action = shownWindow(window)->findChild<QAction*>(name);
        if (action == nullptr) {
            giveUp("there is no " + name + " in the menus of " + window);
        }
        action->trigger();
    };
}

std::function<void()> closeWindow(const QString& window) {
    return [=] { QMetaObject::invokeMethod(shownWindow(window), "close"); };
}

std::function<void()> openTab(const QString& window, const QString& name, const QString& caption) {
    return [=] {
        QTabBar* bar = qobject_cast<QTabWidget*>(control(window, name))->tabBar();
        for (int i = 0; i < bar->count(); ++i) {
            if (bar->tabText(i) == caption) {
                QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(i).center());
                return;
            }
        }
        giveUp("there is no tab " + caption);
    };
}

std::function<void()> typeText(const QString& window, const QString& name, const QString& text) {
    return [=] { QTest::keyClicks(control(window, name), text); };
}

std::function<void()> answer(const QString& button) {
    return [button] {
        for (QAbstractButton* candidate : shownBox()->buttons()) {
            if (candidate->text().remove('&') == button) {
                QTest::mouseClick(candidate, Qt::LeftButton);
                return;
            }
        }
        giveUp("the message has no button " + button);
    };
}

std::function<void()> pause() {
    return [] {};
}

}  // namespace marlowick::tour
