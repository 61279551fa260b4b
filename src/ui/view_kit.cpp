#include "ui/view_kit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTimer>

#include <algorithm>
#include <memory>

namespace veldor {

namespace {

void ShowTip(QWidget* w, const QString& tip) {
    if (w->toolTip() != tip) w->setToolTip(tip);
}

// Enabled, visible and the tool tip; the tip is the control's own unless one is given.
void ShowControl(QWidget* w, const Control& control, const QString* tip = nullptr) {
    if (w->isEnabled() != control.enabled) w->setEnabled(control.enabled);
    if (w->isVisibleTo(w->parentWidget()) != control.visible) w->setVisible(control.visible);
    ShowTip(w, tip ? *tip : control.toolTip);
}

template <typename W>
void ShowText(W* w, const QString& text) {
    if (w->text() != text) w->setText(text);
}

void ShowColour(QWidget* w, Colour colour) {
    const QString style = StyleFor(colour);
    if (w->styleSheet() != style) w->setStyleSheet(style);
}

// Caption, tool tip and what a screen reader says, for a widget with a text.
template <typename W>
void ShowCaption(W* w, const QString& caption, const QString& toolTip) {
    ShowText(w, caption);
    SetAccessible(w, caption, toolTip);
}

// The mouse buttons as the program's handlers number them.
int ButtonNumber(Qt::MouseButton button) {
    switch (button) {
        case Qt::LeftButton:
            return 1;
        case Qt::RightButton:
            return 2;
        case Qt::MiddleButton:
            return 4;
        default:
            return 0;
    }
}

// A label that takes both mouse buttons and the double click. The kit runs its handlers.
class ClickLabel : public QPushButton {
  public:
    ClickLabel(const QString& text, QWidget* parent, std::function<void(const Handler&)> run,
               LabelHandlers handlers)
        : QPushButton(text, parent), run_(std::move(run)), h_(std::move(handlers)) {
        // The keyboard's click: Space, as on any button.
        connect(this, &QPushButton::clicked, this, [this] { click(); });
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override {
        afterDouble_ = false;
        setDown(true);
        event->accept();
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        afterDouble_ = true;
        setDown(true);
        event->accept();
        if (h_.dblClick) run_(h_.dblClick);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        setDown(false);
        event->accept();
        const int button = ButtonNumber(event->button());
        const bool clicked = !afterDouble_ && rect().contains(event->position().toPoint());
        afterDouble_ = false;
        if (h_.mouseUp) run_([this, button](Core& c) { h_.mouseUp(c, button); });
        if (clicked) click();
    }
    void contextMenuEvent(QContextMenuEvent* event) override {
        event->accept();
        // The menu key stands for the right button; a right click is dealt with on release.
        if (event->reason() != QContextMenuEvent::Keyboard) return;
        if (h_.mouseUp) run_([this](Core& c) { h_.mouseUp(c, 2); });
        click();
    }
    void keyPressEvent(QKeyEvent* event) override {
        if (h_.dblClickKey != 0 && event->key() == h_.dblClickKey && h_.dblClick) {
            run_(h_.dblClick);
            return;
        }
        QPushButton::keyPressEvent(event);
    }

  private:
    void click() {
        if (h_.click) run_(h_.click);
    }
    std::function<void(const Handler&)> run_;
    LabelHandlers h_;
    bool afterDouble_ = false;
};

}  // namespace

QString StyleFor(Colour colour) {
    if (colour == ButtonFace || colour == WindowFace) return {};
    const int r = colour & 0xFF, g = (colour >> 8) & 0xFF, b = (colour >> 16) & 0xFF;
    return QString("background-color: rgb(%1,%2,%3);").arg(r).arg(g).arg(b);
}

QString PlainCaption(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == '&' && i + 1 < caption.size()) ++i;  // "&&" stands for one "&"
        plain += caption[i];
    }
    return plain.trimmed();
}

void SetAccessible(QWidget* widget, const QString& caption, const QString& toolTip) {
    const QString name = PlainCaption(caption);
    if (!name.isEmpty() && widget->accessibleName() != name) widget->setAccessibleName(name);
    const QString description = toolTip.trimmed();
    if (widget->accessibleDescription() != description)
        widget->setAccessibleDescription(description);
}

void SetAccessibleValue(QWidget* widget, const QString& toolTip) {
    // A box that shows a value is named by the window (the label beside it); without one, its
    // tool tip says what it is.
    if (widget->accessibleName().isEmpty()) widget->setAccessibleName(toolTip.trimmed());
    SetAccessible(widget, {}, toolTip);
}

namespace {

class EventHook : public QObject {
  public:
    EventHook(QObject* target, std::function<bool(QEvent*)> fn)
        : QObject(target), fn_(std::move(fn)) {
        target->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override { return fn_(event); }

  private:
    std::function<bool(QEvent*)> fn_;
};

}  // namespace

void OnEvent(QObject* target, std::function<bool(QEvent*)> fn) {
    new EventHook(target, std::move(fn));
}

QLabel* BuddyLabel(const QString& text, QWidget* box) {
    auto* label = new QLabel(text, box->parentWidget());
    label->setBuddy(box);
    box->setAccessibleName(PlainCaption(text));
    return label;
}

Views::Views() : deferred_(std::make_unique<QTimer>()) {
    deferred_->setSingleShot(true);
    QObject::connect(deferred_.get(), &QTimer::timeout, [this] { render(true); });
}

Views::~Views() = default;

void Views::renderSoon(bool tickFollows) {
    if (!sinceRender_.isValid() || sinceRender_.elapsed() >= kRenderPeriodMs) {
        render(true);
        return;
    }
    if (tickFollows)
        deferred_->stop();
    else if (!deferred_->isActive())
        deferred_->start(kRenderPeriodMs - static_cast<int>(sinceRender_.elapsed()));
}

void Views::renderAll() {
    render(false);
}

void Views::render(bool changedOnly) {
    deferred_->stop();
    sinceRender_.start();
    // A render may open or close a window, whose kit then joins or leaves the list.
    const std::vector<ViewKit*> kits = kits_;
    for (ViewKit* kit : kits)
        if (std::find(kits_.begin(), kits_.end(), kit) != kits_.end()) kit->render(changedOnly);
}

ViewKit::ViewKit(Core& core, Views& views) : c_(core), views_(views) {
    views_.kits_.push_back(this);
}

ViewKit::~ViewKit() {
    auto& kits = views_.kits_;
    kits.erase(std::remove(kits.begin(), kits.end(), this), kits.end());
}

void ViewKit::handle(const Handler& handler) {
    handler(c_);
    views_.renderAll();
}

void ViewKit::render(bool changedOnly) {
    rendering_ = true;
    changedOnly_ = changedOnly;
    for (const auto& renderer : renderers_) renderer();
    changedOnly_ = false;
    rendering_ = false;
}

void ViewKit::onRender(std::function<void()> renderer) {
    renderers_.push_back(std::move(renderer));
}

void ViewKit::takeFocus(QWidget* widget, const Control& control) {
    if (c_.focusRequest != &control) return;
    c_.focusRequest = nullptr;
    widget->setFocus(Qt::OtherFocusReason);
}

QPushButton* ViewKit::button(QWidget* parent, const QString& name, const CommandButton& model,
                             Handler onClick, const QString& fallback, const QString& keyTip) {
    auto* b = new QPushButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    b->setObjectName(name);
    const bool wired = static_cast<bool>(onClick);
    if (wired) {
        QObject::connect(b, &QPushButton::clicked, b, [this, onClick] {
            if (!rendering_) handle(onClick);
        });
    }
    onControl(model, [this, b, &model, fallback, keyTip, wired] {
        const QString tip = model.toolTip + keyTip;
        ShowCaption(b, model.caption.isEmpty() ? fallback : model.caption, tip);
        ShowControl(b, model, &tip);
        if (!wired) b->setEnabled(false);
        ShowColour(b, model.backColour);
        if (b->isCheckable() && b->isChecked() != model.pressed) b->setChecked(model.pressed);
        if (b->font().bold() != model.bold) {
            QFont font = b->font();
            font.setBold(model.bold);
            b->setFont(font);
        }
        takeFocus(b, model);
    });
    return b;
}

QPushButton* ViewKit::labelButton(QWidget* parent, const QString& name, const Label& model,
                                  Handler onClick, const QString& fallback,
                                  const QString& fallbackTip) {
    auto* b = new QPushButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    b->setObjectName(name);
    const bool wired = static_cast<bool>(onClick);
    if (wired) {
        QObject::connect(b, &QPushButton::clicked, b, [this, onClick] {
            if (!rendering_) handle(onClick);
        });
    }
    onControl(model, [b, &model, fallback, fallbackTip, wired] {
        const QString tip = model.toolTip.isEmpty() ? fallbackTip : model.toolTip;
        ShowCaption(b, model.caption.isEmpty() ? fallback : model.caption, tip);
        ShowControl(b, model, &tip);
        if (!wired) b->setEnabled(false);
        ShowColour(b, model.backColour);
    });
    return b;
}

QPushButton* ViewKit::clickLabel(QWidget* parent, const QString& name, const Label& model,
                                 LabelHandlers handlers, const QString& fallback,
                                 const QString& fallbackTip) {
    auto run = [this](const Handler& handler) {
        if (!rendering_) handle(handler);
    };
    auto* b = new ClickLabel(model.caption.isEmpty() ? fallback : model.caption, parent, run,
                             std::move(handlers));
    b->setObjectName(name);
    onControl(model, [b, &model, fallback, fallbackTip] {
        const QString tip = model.toolTip.isEmpty() ? fallbackTip : model.toolTip;
        ShowCaption(b, model.caption.isEmpty() ? fallback : model.caption, tip);
        ShowControl(b, model, &tip);
        ShowColour(b, model.backColour);
    });
    return b;
}

QLabel* ViewKit::light(QWidget* parent, const QString& name, const Label& model) {
    QLabel* l = label(parent, name, model);
    l->setAlignment(Qt::AlignCenter);
    l->setFrameShape(QFrame::Panel);
    // As wide as the longest caption a light has, in the type of the moment.
    const auto fit = [l] { l->setMinimumWidth(l->fontMetrics().horizontalAdvance("TEMP") + 10); };
    fit();
    OnEvent(l, [fit](QEvent* e) {
        if (e->type() == QEvent::FontChange) fit();
        return false;
    });
    l->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    return l;
}

QLabel* ViewKit::label(QWidget* parent, const QString& name, const Label& model) {
    auto* l = new QLabel(model.caption, parent);
    l->setObjectName(name);
    onControl(model, [l, &model] {
        // A label is read by its text; its tool tip says what the text is. Its lines may end
        // in CR LF, as the program writes them.
        ShowText(l, QString(model.caption).replace("\r\n", "\n"));
        SetAccessible(l, {}, model.toolTip);
        ShowControl(l, model);
        ShowColour(l, model.backColour);
    });
    return l;
}

QRadioButton* ViewKit::option(QWidget* parent, const QString& name, OptionButton& model,
                              const QString& fallback, Handler onClick) {
    auto* o = new QRadioButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    o->setObjectName(name);
    const bool wired = static_cast<bool>(onClick);
    if (wired) {
        QObject::connect(o, &QRadioButton::clicked, o, [this, &model, onClick] {
            if (rendering_) return;
            model.value = true;
            handle(onClick);
        });
    }
    onControl(model, [o, &model, fallback, wired] {
        ShowCaption(o, model.caption.isEmpty() ? fallback : model.caption, model.toolTip);
        ShowControl(o, model);
        if (!wired) o->setEnabled(false);
        if (o->isChecked() != model.value) o->setChecked(model.value);
    });
    return o;
}

std::vector<QRadioButton*> ViewKit::options(QWidget* parent, const QString& name,
                                            std::span<OptionButton> models,
                                            const QStringList& fallbacks,
                                            std::function<void(Core&, int)> onClick) {
    std::vector<QRadioButton*> widgets;
    for (size_t i = 0; i < models.size(); ++i) {
        Handler handler;
        if (onClick) {
            handler = [models, i, onClick](Core& c) {
                for (size_t k = 0; k < models.size(); ++k) models[k].value = k == i;
                onClick(c, static_cast<int>(i));
            };
        }
        const QString fallback = static_cast<qsizetype>(i) < fallbacks.size()
                                     ? fallbacks[static_cast<qsizetype>(i)]
                                     : QString();
        widgets.push_back(option(parent, QString("%1_%2").arg(name).arg(i), models[i], fallback,
                                 std::move(handler)));
    }
    return widgets;
}

QCheckBox* ViewKit::check(QWidget* parent, const QString& name, CheckBox& model, Handler onClick) {
    auto* box = new QCheckBox(model.caption, parent);
    box->setObjectName(name);
    const bool wired = static_cast<bool>(onClick);
    if (wired) {
        QObject::connect(box, &QCheckBox::clicked, box, [this, &model, onClick](bool checked) {
            if (rendering_) return;
            model.value = checked ? 1 : 0;
            handle(onClick);
        });
    }
    onControl(model, [box, &model, wired] {
        ShowCaption(box, model.caption, model.toolTip);
        ShowControl(box, model);
        if (!wired) box->setEnabled(false);
        ShowColour(box, model.backColour);
        if (box->isChecked() != (model.value == 1)) box->setChecked(model.value == 1);
    });
    return box;
}

QLineEdit* ViewKit::textBox(QWidget* parent, const QString& name, TextBox& model) {
    auto* e = new QLineEdit(model.text, parent);
    e->setObjectName(name);
    QObject::connect(e, &QLineEdit::textEdited, e,
                     [&model](const QString& text) { model.text = text; });
    onControl(model, [this, e, &model] {
        ShowText(e, model.text);
        ShowControl(e, model);
        ShowColour(e, model.backColour);
        SetAccessibleValue(e, model.toolTip);
        takeFocus(e, model);
    });
    return e;
}

QComboBox* ViewKit::combo(QWidget* parent, const QString& name, ComboBox& model, Handler onClick) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    QObject::connect(box, &QComboBox::activated, box, [this, &model, onClick](int index) {
        if (rendering_) return;
        model.listIndex = index;
        if (onClick) handle(onClick);
    });
    auto shown = std::make_shared<QStringList>();
    onControl(model, [box, &model, shown] {
        if (*shown != model.list) {
            *shown = model.list;
            box->clear();
            box->addItems(model.list);
        }
        if (box->currentIndex() != model.listIndex) box->setCurrentIndex(model.listIndex);
        // With no item chosen the box shows its own text, if it has one.
        if (!model.text.isEmpty() && box->placeholderText() != model.text)
            box->setPlaceholderText(model.text);
        ShowControl(box, model);
        SetAccessibleValue(box, model.toolTip);
    });
    return box;
}

QComboBox* ViewKit::editableCombo(QWidget* parent, const QString& name, ComboBox& model,
                                  Handler onClick) {
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    // A chosen item and a typed text both go to the control: the item's index, or the text.
    QObject::connect(box, &QComboBox::currentTextChanged, box, [this, &model](const QString& text) {
        if (rendering_) return;
        model.listIndex = model.list.indexOf(text);
        model.text = model.listIndex < 0 ? text : QString();
    });
    if (onClick)
        QObject::connect(box, &QComboBox::activated, box, [this, &model, onClick](int index) {
            if (rendering_) return;
            model.listIndex = index;
            model.text.clear();
            handle(onClick);
        });
    auto shown = std::make_shared<QStringList>();
    onRender([box, &model, shown] {
        if (*shown != model.list) {
            *shown = model.list;
            box->clear();
            box->addItems(model.list);
        }
        if (box->currentText() != ComboText(model)) {
            if (model.listIndex >= 0)
                box->setCurrentIndex(model.listIndex);
            else
                box->setEditText(model.text);
        }
        ShowControl(box, model);
        SetAccessibleValue(box, model.toolTip);
    });
    return box;
}

QSlider* ViewKit::slider(QWidget* parent, const QString& name, Slider& model, Handler onChange) {
    auto* s = new QSlider(Qt::Horizontal, parent);
    s->setObjectName(name);
    s->setRange(model.min, model.max);
    const bool wired = static_cast<bool>(onChange);
    if (wired) {
        QObject::connect(s, &QSlider::valueChanged, s, [this, &model, onChange](int value) {
            if (rendering_) return;
            model.value = value;
            handle(onChange);
        });
    }
    onControl(model, [s, &model, wired] {
        if (s->minimum() != model.min || s->maximum() != model.max)
            s->setRange(model.min, model.max);
        if (s->value() != model.value) s->setValue(model.value);
        ShowControl(s, model);
        SetAccessibleValue(s, model.toolTip);
        if (!wired) s->setEnabled(false);
    });
    return s;
}

QScrollBar* ViewKit::scrollBar(QWidget* parent, const QString& name, Slider& model,
                               Handler onChange) {
    auto* s = new QScrollBar(Qt::Vertical, parent);
    s->setObjectName(name);
    s->setRange(model.min, model.max);
    s->setValue(model.value);
    const bool wired = static_cast<bool>(onChange);
    if (wired) {
        QObject::connect(s, &QScrollBar::valueChanged, s, [this, &model, onChange](int value) {
            if (rendering_) return;
            model.value = value;
            handle(onChange);
        });
    }
    onControl(model, [s, &model, wired] {
        if (s->minimum() != model.min || s->maximum() != model.max)
            s->setRange(model.min, model.max);
        if (s->value() != model.value) s->setValue(model.value);
        ShowControl(s, model);
        SetAccessibleValue(s, model.toolTip);
        if (!wired) s->setEnabled(false);
    });
    return s;
}

QProgressBar* ViewKit::bar(QWidget* parent, const QString& name, const ProgressBar& model) {
    auto* b = new QProgressBar(parent);
    b->setObjectName(name);
    b->setTextVisible(false);
    onControl(model, [b, &model] {
        if (b->minimum() != model.min || b->maximum() != model.max)
            b->setRange(model.min, model.max);
        if (b->value() != model.value) b->setValue(model.value);
        ShowControl(b, model);
        SetAccessibleValue(b, model.toolTip);
    });
    return b;
}

QGroupBox* ViewKit::frame(QWidget* parent, const QString& name, const Frame& model) {
    auto* box = new QGroupBox(model.caption, parent);
    box->setObjectName(name);
    onControl(model, [box, &model] {
        ShowControl(box, model);
        if (box->title() != model.caption) box->setTitle(model.caption);
    });
    return box;
}

}  // namespace veldor

namespace veldor {

void ViewKit::lostFocus(QWidget* box, std::function<bool(Core&)> check) {
    auto leave = [this, box, check] {
        if (checking_ || rendering_) return true;
        bool back = false;
        checking_ = true;
        handle([&](Core& c) { back = check(c); });
        checking_ = false;
        if (back) {
            // After the focus has finished moving away.
            QTimer::singleShot(0, box, [box] {
                box->setFocus(Qt::OtherFocusReason);
                if (auto* edit = qobject_cast<QLineEdit*>(box)) edit->selectAll();
            });
        }
        return !back;
    };
    // Leaving for another control of the window, not the focus going with the window (to a
    // message box, another window).
    OnEvent(box, [leave](QEvent* event) {
        if (event->type() != QEvent::FocusOut) return false;
        switch (static_cast<QFocusEvent*>(event)->reason()) {
            case Qt::TabFocusReason:
            case Qt::BacktabFocusReason:
            case Qt::MouseFocusReason:
            case Qt::ShortcutFocusReason:
                leave();
                break;
            default:
                break;
        }
        return false;
    });
    focusChecks_.emplace_back(box, leave);
}

bool ViewKit::leaveFocusedBox() {
    // The box its window gives the focus to, even while a message box has just closed and the
    // window is not yet active again.
    for (const auto& [box, leave] : focusChecks_)
        if (box->window()->focusWidget() == box) return leave();
    return true;
}

}  // namespace veldor
