// While a page is painted or a list is built the window repaints as it goes, but
// nobody can start a second command: clicks and keys are thrown away and timers
// stand still.
#pragma once

#include "system/one_command.h"

namespace marlowick {

enum class Pointer { Default, Hourglass };

// The pointer of the whole screen.
void setPointer(Pointer pointer);
bool pointerIsBusy();

// Clicks, keys and attempts to close a window are thrown away as long as one lives.
class InputGuard {
  public:
    InputGuard();
    ~InputGuard();
    InputGuard(const InputGuard&) = delete;
    InputGuard& operator=(const InputGuard&) = delete;

    static bool isActive();

    // Lets input through while a message or a modal window is up in the middle of such work.
    class Pause {
      public:
        Pause();
        ~Pause();
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

      private:
        int depth_;
        OneCommand::Pause command_;
    };

  private:
    OneCommand command_;
};

// Gives the windows a chance to repaint.
void repaintWindows();

}  // namespace marlowick
