// Drives the program's windows as a person does: finds controls by their object
// names, clicks and types, and answers what comes up in the middle of a command.
#pragma once

#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <vector>

#include "support/test_folder.h"
#include "widgets/form.h"

namespace marlowick::test {

// The visible window of that name; nullptr if there is none.
QWidget* shownWindow(const QString& name);

template <class Control>
Control* find(QWidget& window, const char* name) {
    auto* control = window.findChild<Control*>(QString::fromLatin1(name));
    if (control == nullptr) {
        qFatal("no control %s", name);
    }
    return control;
}

void click(QWidget& window, const char* button);
QString textOf(QWidget& window, const char* box);

struct SeenMessage {
    QString title;
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    bool yesNo = false;
};

// Deals with the modal windows and message boxes that come up while a command runs. Whatever
// nobody is prepared for is noted as unexpected and closed.
class ModalScript : public QObject {
  public:
    ModalScript();
    ~ModalScript() override;

    // The next message box gets this answer.
    void answer(QMessageBox::StandardButton button = QMessageBox::Ok);
    // The next window of that name gets this treatment; it must close the window in the end.
    void whenShown(const QString& window, std::function<void(QWidget&)> action);

    const std::vector<SeenMessage>& messages() const { return messages_; }
    // Windows and boxes that came up unprepared for.
    const QStringList& unexpected() const { return unexpected_; }
    void forgetUnexpected() { unexpected_.clear(); }
    bool isDone() const { return steps_.empty(); }

  private:
    void look();

    struct Step {
        QString window;  // empty for a message box
        std::function<void(QWidget&)> action;
    };
    std::deque<Step> steps_;
    std::vector<SeenMessage> messages_;
    QStringList unexpected_;
    QTimer* timer_;
    QPointer<QWidget> handled_;
};

// Base of window tests: fresh folders and settings, fresh windows.
class WindowTest : public ::testing::Test {
  protected:
    ~WindowTest() override;

    TestFolder folder;
    ModalScript script;
};

// Sims.exe in the game folder, and the setting pointing there.
void installGame(const TestFolder& folder);

}  // namespace marlowick::test
