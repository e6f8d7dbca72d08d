// Drives the program's own windows step by step, as a person does: each step waits
// for what it needs to see, takes pictures of the whole screen and of the window in
// front, and clicks or types on a real control. A step may open a modal window or a message box;
// the steps behind it then run inside that window's own event loop.
#pragma once

#include <QAbstractItemView>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

namespace marlowick::tour {

struct Step {
    QString name;                  // also the picture's name
    std::function<bool()> ready;   // what must be on the screen
    std::function<void()> action;  // what the person does then
};

class Driver {
  public:
    // Pictures of the screen go into folder as 01-name.png, 02-name.png ..., those of the windows
    // alone into its folder "windows" as name.png. Without a folder there are no pictures, and no
    // step waits until its window looks its best.
    explicit Driver(QString folder);

    void add(const QString& name, std::function<bool()> ready, std::function<void()> action);
    // Runs the steps from the event loop, one after the other; a step that isn't ready within 30
    // seconds ends the program with an error.
    void start();
    bool isDone() const { return next_ == steps_.size(); }

  private:
    bool takesPictures() const { return !folder_.isEmpty(); }
    int poll() const;  // milliseconds
    bool isReady(int elapsed) const;
    // settled: the window has had its time to paint.
    void wait(int elapsed, bool settled);
    void takePicture(const QString& name);

    QString folder_;
    std::vector<Step> steps_;
    std::size_t next_ = 0;
};

// The window of that name, if it is on the screen.
QWidget* shownWindow(const QString& name);
// A control of a shown window, by its object name. Ends the program with an error if it isn't
// there.
QWidget* control(const QString& window, const QString& name);

std::function<bool()> whenShown(const QString& window);
std::function<bool()> whenAsked(const QString& title);

std::function<void()> clickOn(const QString& window, const QString& name);
// The button with that caption.
std::function<void()> press(const QString& window, const QString& caption);
std::function<void()> clickAt(const QString& window, const QString& name, QPoint position);
std::function<void()> doubleClickAt(const QString& window, const QString& name, QPoint position);
// Draws with the left button held, from the middle of a control, so many pixels.
std::function<void()> dragOn(const QString& window, const QString& name, QPoint way);
// The first row of a list whose text begins with the given one.
std::function<void()> clickRow(const QString& window, const QString& name, const QString& text);
// The same row is opened by a double click; the row may lie within others.
std::function<void()> openRow(const QString& window, const QString& name, const QString& text);
// A command of a menu.
std::function<void()> chooseCommand(const QString& window, const QString& name);
std::function<void()> closeWindow(const QString& window);
std::function<void()> openTab(const QString& window, const QString& name, const QString& caption);
std::function<void()> typeText(const QString& window, const QString& name, const QString& text);
// The button of the message box that is up, by its role's word: "Yes", "No" or "OK".
std::function<void()> answer(const QString& button);
std::function<void()> pause();

}  // namespace marlowick::tour
