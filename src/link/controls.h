// Controls as plain state. A form is a struct of these; the view renders them and forwards
// each user event to the handler of the same name.
#pragma once

#include <QString>
#include <QStringList>

#include <array>
#include <cstdint>

namespace veldor {

// The platform's colour word, blue in the high byte.
using Colour = uint32_t;
inline constexpr Colour Red = 0xFF;
inline constexpr Colour Green = 0xFF00;
inline constexpr Colour PaleGreen = 0xC0FFC0;
inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour Black = 0x000000;
inline constexpr Colour ButtonFace = 0x8000000F;  // the system's button face colour
inline constexpr Colour WindowFace = 0x80000005;  // the system's window (text box) colour

struct Control {
    bool enabled = true;
    bool visible = true;
    QString toolTip;
};

struct Label : Control {
    QString caption;
    Colour backColour = ButtonFace;
    Colour foreColour = Black;
};

struct CommandButton : Control {
    QString caption;
    Colour backColour = ButtonFace;
    bool bold = false;
    bool pressed = false;  // buttons drawn as toggles stay down while pressed
};

struct CheckBox : Control {
    QString caption;
    int value = 0;  // 0 unticked, 1 ticked
    Colour backColour = ButtonFace;
};

struct OptionButton : Control {
    QString caption;
    bool value = false;
};

struct TextBox : Control {
    QString text;
    Colour backColour = WindowFace;
};

struct ComboBox : Control {
    QStringList list{};
    int listIndex = -1;  // -1: nothing chosen
    QString text{};      // what the box shows while no item is chosen
};

// The text a list box shows: its chosen item's, or its own.
inline QString ComboText(const ComboBox& box) {
    return box.listIndex >= 0 && box.listIndex < box.list.size() ? box.list[box.listIndex]
                                                                 : box.text;
}

// A frame groups controls; hiding it hides them all.
struct Frame : Control {
    QString caption;
};

struct Slider : Control {
    int value = 0;
    int min = 0;
    int max = 100;
};

struct ProgressBar : Control {
    int value = 0;
    int min = 0;
    int max = 100;
};

struct MenuItem {
    QString caption;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
};

}  // namespace veldor
