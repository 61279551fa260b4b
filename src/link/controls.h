// Controls as plain state. A form is a struct of these; the view renders them and forwards
// each user event to the handler of the same name. Two controls compare equal when they show
// the same, so the view can pass over a control that has not changed.
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
    bool operator==(const Control&) const = default;
};

struct Label : Control {
    QString caption;
    Colour backColour = ButtonFace;
    Colour foreColour = Black;
    bool operator==(const Label&) const = default;
};

struct CommandButton : Control {
    QString caption;
    Colour backColour = ButtonFace;
    bool bold = false;
    bool pressed = false;  // buttons drawn as toggles stay down while pressed
    bool operator==(const CommandButton&) const = default;
};

struct CheckBox : Control {
    QString caption;
    int value = 0;  // 0 unticked, 1 ticked
    Colour backColour = ButtonFace;
    bool operator==(const CheckBox&) const = default;
};

struct OptionButton : Control {
    QString caption;
    bool value = false;
    bool operator==(const OptionButton&) const = default;
};

struct TextBox : Control {
    QString text;
    Colour backColour = WindowFace;
    bool operator==(const TextBox&) const = default;
};

struct ComboBox : Control {
    QStringList list{};
    int listIndex = -1;  // -1: nothing chosen
    QString text{};      // what the box shows while no item is chosen
    bool operator==(const ComboBox&) const = default;
};

// The text a list box shows: its chosen item's, or its own.
inline QString ComboText(const ComboBox& box) {
    return box.listIndex >= 0 && box.listIndex < box.list.size() ? box.list[box.listIndex]
                                                                 : box.text;
}

// A frame groups controls; hiding it hides them all.
struct Frame : Control {
    QString caption;
    bool operator==(const Frame&) const = default;
};

struct Slider : Control {
    int value = 0;
    int min = 0;
    int max = 100;
    bool operator==(const Slider&) const = default;
};

struct ProgressBar : Control {
    int value = 0;
    int min = 0;
    int max = 100;
    bool operator==(const ProgressBar&) const = default;
};

struct MenuItem {
    QString caption;
    bool checked = false;
    bool enabled = true;
    bool visible = true;
};

}  // namespace veldor
