// The binding of widgets to the controls of a form struct. Every window builds its widgets
// through a ViewKit: each widget takes the control's name as its object name, shows the
// control's caption, colour, tool tip, enabled and visible state at every render, and forwards
// its event to the control's handler. A widget without a handler stays disabled: its function
// is not there, and it does not pretend.
#pragma once

#include "link/core.h"

#include <QElapsedTimer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QSlider;
class QTimer;
class QEvent;
class QObject;
class QWidget;

namespace veldor {

using Handler = std::function<void(Core&)>;

// What a label the operator clicks does with the mouse. The buttons are numbered as the
// program's handlers know them: 1 left, 2 right, 4 middle.
struct LabelHandlers {
    Handler click;
    std::function<void(Core&, int button)> mouseUp;
    Handler dblClick;
    int dblClickKey = 0;  // a key that does what a double click does (Qt::Key), 0 for none
};

class ViewKit;

// All windows' kits: a handler's effect shows in every window at once.
class Views {
  public:
    Views();
    ~Views();
    // Shows the core's state in every window now: after a handler, whose effect the operator
    // waits to see.
    void renderAll();
    // Shows what changed, now if the last showing is older than kRenderPeriodMs, or else once
    // that period is over: the tick and the link's pauses come far more often than an eye
    // follows. With tickFollows the next tick, due within its period, shows it instead, so that
    // an idle program wakes for its tick alone.
    void renderSoon(bool tickFollows = false);
    static constexpr int kRenderPeriodMs = 50;

  private:
    friend class ViewKit;
    void render(bool changedOnly);
    std::vector<ViewKit*> kits_;
    std::unique_ptr<QTimer> deferred_;
    QElapsedTimer sinceRender_;
};

class ViewKit {
  public:
    ViewKit(Core& core, Views& views);
    ~ViewKit();
    ViewKit(const ViewKit&) = delete;
    ViewKit& operator=(const ViewKit&) = delete;

    Core& core() { return c_; }
    // Runs a handler, then shows its effect in every window.
    void handle(const Handler& handler);
    // Shows the state the core has reached in this kit's widgets. changedOnly passes over the
    // controls that are as they were last shown; a render after a handler shows them all, as
    // the operator may have changed a widget itself.
    void render(bool changedOnly = false);
    // True while render() sets widgets, whose signals are then not the operator's.
    bool rendering() const { return rendering_; }
    // A renderer of the window's own, run at every render.
    void onRender(std::function<void()> renderer);
    // A renderer of one control, passed over by a changed-only render while the control is as
    // it was last shown and does not ask for the focus.
    template <typename Model>
    void onControl(const Model& model, std::function<void()> renderer) {
        onRender([this, &model, renderer = std::move(renderer),
                  shown = std::optional<Model>()]() mutable {
            if (changedOnly_ && shown && *shown == model && c_.focusRequest != &model) return;
            shown = model;
            renderer();
        });
    }

    // keyTip, when given, follows the tool tip to tell the button's key.
    QPushButton* button(QWidget* parent, const QString& name, const CommandButton& model,
                        Handler onClick, const QString& fallback = {}, const QString& keyTip = {});
    // A label the operator clicks, drawn as a button.
    QPushButton* labelButton(QWidget* parent, const QString& name, const Label& model,
                             Handler onClick, const QString& fallback = {},
                             const QString& fallbackTip = {});
    // A framed label whose back colour is a light.
    // A label that takes either mouse button and the double click, drawn as a button. As on
    // the system the program was made for, letting a button go gives MouseUp and then Click, so
    // a right click clicks too; a double click gives DblClick and MouseUp in place of the second
    // click. From the keyboard, Space clicks and the menu key is a right click.
    QPushButton* clickLabel(QWidget* parent, const QString& name, const Label& model,
                            LabelHandlers handlers, const QString& fallback = {},
                            const QString& fallbackTip = {});
    QLabel* light(QWidget* parent, const QString& name, const Label& model);
    QLabel* label(QWidget* parent, const QString& name, const Label& model);
    QRadioButton* option(QWidget* parent, const QString& name, OptionButton& model,
                         const QString& fallback, Handler onClick);
    // The members of an option array: a click selects its member and clears the others, as
    // option buttons do, then runs the handler with the member's index.
    std::vector<QRadioButton*> options(QWidget* parent, const QString& name,
                                       std::span<OptionButton> models, const QStringList& fallbacks,
                                       std::function<void(Core&, int)> onClick);
    QCheckBox* check(QWidget* parent, const QString& name, CheckBox& model, Handler onClick);
    // An entry box; its text goes back to the control as the operator types.
    QLineEdit* textBox(QWidget* parent, const QString& name, TextBox& model);
    // A list; the operator's choice goes to listIndex, then to the handler.
    QComboBox* combo(QWidget* parent, const QString& name, ComboBox& model, Handler onClick);
    // A list the operator may also type into; a text not in the list is the control's own. A
    // choice from the list runs onClick, when given.
    QComboBox* editableCombo(QWidget* parent, const QString& name, ComboBox& model,
                             Handler onClick = {});
    QSlider* slider(QWidget* parent, const QString& name, Slider& model, Handler onChange);
    // A vertical scroll bar; the top is its minimum.
    QScrollBar* scrollBar(QWidget* parent, const QString& name, Slider& model, Handler onChange);
    QProgressBar* bar(QWidget* parent, const QString& name, const ProgressBar& model);
    QGroupBox* frame(QWidget* parent, const QString& name, const Frame& model);

    // A check run when the operator leaves the box for another control of its window; when it
    // returns true the focus goes back to the box.
    void lostFocus(QWidget* box, std::function<bool(Core&)> check);
    // Runs the check of the box that has the focus, as leaving it would (a button that acts on
    // the boxes runs this first): false when the focus went back.
    bool leaveFocusedBox();

  private:
    // Gives the widget the keyboard focus when the core asks it for the control.
    void takeFocus(QWidget* widget, const Control& control);

    Core& c_;
    Views& views_;
    std::vector<std::function<void()>> renderers_;
    std::vector<std::pair<QWidget*, std::function<bool()>>> focusChecks_;
    bool rendering_ = false;
    bool changedOnly_ = false;
    bool checking_ = false;
};

// Runs fn for each event of target before target sees it; fn returns true to keep the event
// from target. The hook lives as long as target.
void OnEvent(QObject* target, std::function<bool(QEvent*)> fn);

// The system's colour word as a style sheet; the system colours are the style's own.
QString StyleFor(Colour colour);
// A caption without its access-key ampersands, as a screen reader says it.
QString PlainCaption(const QString& caption);
// Sets what a screen reader says of a widget: its name and its description.
void SetAccessible(QWidget* widget, const QString& caption, const QString& toolTip);
// The same for a box that shows a value (an entry, a list, a bar, a slider).
void SetAccessibleValue(QWidget* widget, const QString& toolTip);
// A label beside a box: its access key moves to the box, and a screen reader names the box by
// it.
QLabel* BuddyLabel(const QString& text, QWidget* box);

}  // namespace veldor
