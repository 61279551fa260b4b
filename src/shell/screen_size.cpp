#include "shell/screen_size.h"

namespace veldor {

namespace {

constexpr int kTwipsPerPixel = 15;

// A screen dimension classed to the first of the three sizes it reaches; 0 below the first.
int ClassOf(int pixels, int small, int medium, int large) {
    if (pixels >= large) return large;
    if (pixels >= medium) return medium;
    if (pixels >= small) return small;
    return 0;
}

void Tell(Core& c, const QString& text) {
    c.p.dialogs->messageBox(text, "VELDOR", MsgButtons::OK, MsgIcon::Exclamation);
}

}  // namespace

QString ScreenFontClass(Core& c) {
    return c.p.system->logicalDpi() == 96 ? "VGA" : "8514";
}

bool SetScreenSize(Core& c) {
    State& s = c.s;
    if (s.ScreenSize == s.AppliedScreenSize || s.ScreenSize == "None") return true;
    s.ScreenWidth = ClassOf(c.p.system->screenWidthTwips() / kTwipsPerPixel, 640, 800, 1024);
    s.ScreenHeight = ClassOf(c.p.system->screenHeightTwips() / kTwipsPerPixel, 480, 600, 768);
    if (s.ScreenWidth == 0 || s.ScreenHeight == 0) {
        Tell(c, "This program needs a screen resolution of at least 640x480 pixels");
        c.p.system->endProcess();
        return false;
    }
    s.DisplayClass = ScreenFontClass(c);
    if (s.DisplayClass == "8514") {
        if (s.ScreenWidth == 640) {
            Tell(c,
                 "Change your display settings to use Small Fonts\r\nor increase your screen "
                 "resolution");
            c.p.system->endProcess();
            return false;
        }
        if (s.ScreenWidth == 800) s.ScreenSize = "Small";
        if (s.ScreenWidth == 1024 && s.ScreenSize == "Large") s.ScreenSize = "Medium";
    }
    // The names say how large the controls look: "Large" draws the design for 640 by 480 on
    // the whole screen.
    if (s.ScreenSize == "Small") {
        s.TargetWidth = 1024;
        s.TargetHeight = 768;
    } else if (s.ScreenSize == "Large") {
        s.TargetWidth = 640;
        s.TargetHeight = 480;
    } else {
        s.TargetWidth = 800;
        s.TargetHeight = 600;
    }
    if (s.ScreenWidth < s.TargetWidth) {
        s.TargetWidth = s.ScreenWidth;
        s.TargetHeight = s.ScreenHeight;
        // Said without holding the start up: the program works at the smaller size.
        c.p.dialogs->notice("Window size adjusted to fit current screen resolution", "VELDOR");
    }
    // The scale is always from the design size, so a second change does not compound.
    s.ScaleX = double(s.ScreenWidth) / s.TargetWidth;
    s.ScaleY = double(s.ScreenHeight) / s.TargetHeight;
    s.AppliedScreenSize = s.ScreenSize;
    return true;
}

double FontScale(const State& s) {
    return s.RescaleFonts == "Yes" ? (s.ScaleX + s.ScaleY) / 2 : 1.0;
}

}  // namespace veldor
