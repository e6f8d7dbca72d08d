// The system's own handle of a window, as calls of Windows want it for an owner.
#pragma once

#include <windows.h>
// After windows.h.
#include <QWidget>

namespace marlowick {

inline HWND nativeWindow(const QWidget* control) {
    return control == nullptr ? nullptr : reinterpret_cast<HWND>(control->window()->winId());
}

}  // namespace marlowick
