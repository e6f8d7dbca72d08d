// What all windows share: how a modal window is shown, when its events run, and
// what becomes of a failure that no routine took.
#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QPointer>
#include <functional>
#include <string>

namespace marlowick {

// The events of a window.
class FormEvents {
  public:
    // name: the window's, a literal; error reports show it.
    explicit FormEvents(const char* name) : name_(name) {}
    virtual ~FormEvents() = default;
    const char* windowName() const { return name_; }

    // The window's controls are in their design state: fill them.
    virtual void Form_Load() {}
    // The window is shown, or a modal window that it opened has closed. A message box activates
    // nothing.
    virtual void Form_Activate() {}
    // The window has closed.
    virtual void Form_Unload() {}

  protected:
    // Runs a handler at each click of a button; event is the handler's name.
    void onClick(QAbstractButton* button, std::string event, std::function<void()> handler);

  private:
    const char* name_;
};

// Runs an event handler. A failure that no routine in it took goes to the error trap under the
// window's and the handler's name, so that it never reaches the event loop.
void runEvent(const char* window, const char* event, const std::function<void()>& handler);

// Puts the window that is shown without being modal at the bottom of the stack of windows.
void setBottomForm(FormEvents* form);

// The window on top of the stack; nullptr before the first one.
QWidget* frontWindow();

// The size of a window that isn't shown yet; on a small screen no more than that has room for
// inside of a frame and beside a task bar.
QSize sizeOnScreen(const QWidget& window);

// Base of the modal windows. The object lives as long as the program and keeps its public
// properties; each showing starts with fresh controls.
class ModalForm : public QDialog, public FormEvents {
  public:
    // name: the window's and its object name.
    explicit ModalForm(const char* name);

    // Builds the controls, runs Form_Load, shows the window over the one in front, runs
    // Form_Activate and waits until it is closed; then the window before it is activated.
    void showModal();

  protected:
    // Makes the controls in their design state and connects them. Members that don't outlive a
    // showing start afresh here too.
    virtual void buildControls() = 0;
    // The button that Esc presses; nullptr if Esc does nothing.
    void setEscapeButton(QAbstractButton* button) { escapeButton_ = button; }
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void removeControls();
    QPointer<QAbstractButton> escapeButton_;
};

// Windows exist once each and are reached by their class.
void registerWindow(QWidget* window);
// Deletes all windows; the next use of each makes it anew. At the end of the program, and of a
// test.
void destroyWindows();

template <class Window>
Window& theWindow() {
    static QPointer<Window> window;
    if (window.isNull()) {
        window = new Window;
        registerWindow(window);
    }
    return *window;
}

// Ends the program at once: no window is asked and no file is closed by hand.
void endProgram();
// Puts something else in the place of the end, for tests; an empty function is the real end.
void setProgramEnd(std::function<void()> end);

}  // namespace marlowick
