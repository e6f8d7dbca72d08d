#include "support/window_driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <utility>

#include "foundation/game.h"
#include "widgets/display_text.h"
#include "widgets/input_guard.h"
#include "widgets/settings.h"

namespace marlowick::test {

QWidget* shownWindow(const QString& name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

void click(QWidget& window, const char* button) {
    QTest::mouseClick(find<QAbstractButton>(window, button), Qt::LeftButton);
}

QString textOf(QWidget& window, const char* box) {
    return find<QLineEdit>(window, box)->text();
}

ModalScript::ModalScript() : timer_(new QTimer(this)) {
    timer_->setSingleShot(true);
    timer_->setInterval(5);
    connect(timer_, &QTimer::timeout, this, &ModalScript::look);
    timer_->start();
}

ModalScript::~ModalScript() = default;

void ModalScript::answer(QMessageBox::StandardButton button) {
    steps_.push_back({QString(), [button](QWidget& box) {
                          auto* answer = qobject_cast<QMessageBox*>(&box)->button(button);
                          if (answer == nullptr) {
                              ADD_FAILURE() << "the message has no such button";
                              box.close();
                              return;
                          }
                          QTest::mouseClick(answer, Qt::LeftButton);
                      }});
}

void ModalScript::whenShown(const QString& window, std::function<void(QWidget&)> action) {
    steps_.push_back({window, std::move(action)});
}

void ModalScript::look() {
    // Another look is due whatever the action does: it may open a further window.
    QTimer::singleShot(5, this, &ModalScript::look);
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == handled_ || InputGuard::isActive()) {
        if (modal == nullptr) {
            handled_ = nullptr;
        }
        return;
    }
    auto* box = qobject_cast<QMessageBox*>(modal);
    const QString name = box != nullptr ? QString() : modal->objectName();
    if (steps_.empty() || steps_.front().window != name) {
        unexpected_.append(box != nullptr ? box->text() : name);
        modal->close();
        return;
    }
    if (box != nullptr) {
        messages_.push_back({box->windowTitle(), box->text(), box->icon(),
                             box->standardButtons() == (QMessageBox::Yes | QMessageBox::No)});
    }
    const Step step = steps_.front();
    steps_.pop_front();
    handled_ = modal;
    step.action(*modal);
    if (handled_ == modal) {
        handled_ = nullptr;
    }
}

WindowTest::~WindowTest() {
    EXPECT_TRUE(script.unexpected().isEmpty())
        << script.unexpected().join(QStringLiteral(" | ")).toStdString();
    setPointer(Pointer::Default);
    destroyWindows();
}

void installGame(const TestFolder& folder) {
    folder.write("game/Sims.exe", "stand-in");
    writeSetting(setting::kSimsLocation, toDisplay(SimsPath));
}

}  // namespace marlowick::test
