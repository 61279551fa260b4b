// The state of the application shell: settings dialog, screen sizing, messages.
#pragma once

#include <QString>

#include <cstdint>

namespace veldor {

struct ShellState {
    // The settings dialog changed the window size; the main window resizes when it closes.
    bool ScreenSizeChanged = false;
    // The conversion window opens at the end of the next tick, between two exchanges.
    bool PendingConvert = false;

    // Screen sizing: the screen classed to 640, 800 or 1024 by 480, 600 or 768 pixels (0 below),
    // the size the design is scaled to, and the scale in force (1 at the design size).
    int ScreenWidth = 0;
    int ScreenHeight = 0;
    int TargetWidth = 1024;
    int TargetHeight = 768;
    QString DisplayClass = "VGA";
    QString AppliedScreenSize;  // the ScreenSize last applied, "" before the first
    double ScaleX = 1.0;
    double ScaleY = 1.0;
};

}  // namespace veldor
