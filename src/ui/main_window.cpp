#include "ui/main_window.h"

#include "link/catalogue.h"
#include "cycle/poll_cycle.h"
#include "cycle/start_stop.h"
#include "protocol/model_controls.h"
#include "protocol/tones.h"
#include "protocol/transmit.h"
#include "protocol/write_frequency.h"
#include "ui/messages_window.h"
#include "ui/rig_sharing_dialog.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <QSlider>
#include <QVBoxLayout>

namespace veldor {

namespace {

constexpr int kTwipsPerPixel = 15;

QString StyleFor(Colour colour) {
    if (colour == ButtonFace) return {};
    const int r = colour & 0xFF, g = (colour >> 8) & 0xFF, b = (colour >> 16) & 0xFF;
    return QString("background-color: rgb(%1,%2,%3);").arg(r).arg(g).arg(b);
}

template <typename W>
W* Named(W* widget, const char* name, const Control& control) {
    widget->setObjectName(name);
    widget->setToolTip(control.toolTip);
    return widget;
}

void ShowTip(QWidget* w, const QString& tip) {
    if (w->toolTip() != tip) w->setToolTip(tip);
}

void ShowControl(QWidget* w, const Control& control) {
    if (w->isEnabled() != control.enabled) w->setEnabled(control.enabled);
    if (w->isVisibleTo(w->parentWidget()) != control.visible) w->setVisible(control.visible);
    ShowTip(w, control.toolTip);
}

template <typename W>
void ShowText(W* w, const QString& text) {
    if (w->text() != text) w->setText(text);
}

void ShowColour(QWidget* w, Colour colour) {
    const QString style = StyleFor(colour);
    if (w->styleSheet() != style) w->setStyleSheet(style);
}

void ShowSlider(QSlider* s, const Slider& slider) {
    s->setRange(slider.min, slider.max);
    if (s->value() != slider.value) s->setValue(slider.value);
    ShowControl(s, slider);
}

}  // namespace

MainWindow::MainWindow(Core& core) : c_(core), messages_(new MessagesWindow(core)) {
    setObjectName("Form1");
    Form1& f = c_.f;
    auto* central = new QWidget(this);
    auto* top = new QVBoxLayout(central);

    // Connection: on/off, receive timeouts, UTC and the ten-minute counter.
    auto* connection = new QGroupBox("Connection", central);
    auto* conn = new QHBoxLayout(connection);
    chkOnOff_ =
        Named(new QCheckBox(QString(f.chkOnOff.caption), connection), "chkOnOff", f.chkOnOff);
    lblTimeoutCount_ = Named(new QLabel(connection), "lblTimeoutCount", f.lblTimeoutCount);
    lblTimeoutCount_->setMinimumWidth(40);
    lblTimeoutCount_->setAlignment(Qt::AlignCenter);
    lblTimeoutCount_->setFrameShape(QFrame::Panel);
    lblTimeoutCount_->setFrameShadow(QFrame::Sunken);
    lblUTC_ = Named(new QLabel(connection), "lblUTC", f.lblUTC);
    lblUTC_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    cmdTenMinCounter_ = Named(new QPushButton(connection), "cmdTenMinCounter", f.cmdTenMinCounter);
    conn->addWidget(chkOnOff_);
    conn->addWidget(new QLabel("Timeouts", connection));
    conn->addWidget(lblTimeoutCount_);
    conn->addStretch();
    conn->addWidget(new QLabel("UTC", connection));
    conn->addWidget(lblUTC_);
    conn->addWidget(cmdTenMinCounter_);
    top->addWidget(connection);

    // The operating area: frequency and modes on the left, transmit and repeater beside them.
    auto* operating = new QGridLayout();
    operating->setColumnStretch(0, 1);
    top->addLayout(operating);

    // Frequency display, with the VFO buttons beside it.
    auto* display = new QGroupBox("Rig", central);
    auto* disp = new QHBoxLayout(display);
    txtVfoA_ = Named(new QLineEdit(display), "txtVfoA", f.txtVfoA);
    QFont big = txtVfoA_->font();
    big.setPointSize(big.pointSize() * 2);
    big.setBold(true);
    txtVfoA_->setFont(big);
    txtVfoA_->setReadOnly(true);
    txtVfoA_->setMinimumWidth(200);
    txtMode_ = Named(new QLineEdit(display), "txtMode", f.txtMode);
    txtMode_->setReadOnly(true);
    txtMode_->setMinimumWidth(56);
    txtMode_->setMaximumWidth(80);
    lblRigMode_ = Named(new QLabel(display), "lblRigMode", f.lblRigMode);
    disp->addWidget(txtVfoA_);
    disp->addWidget(txtMode_);
    disp->addWidget(lblRigMode_);
    disp->addStretch();
    disp->addWidget(button(display, "cmdVFOtoggle", f.cmdVFOtoggle, cmdVFOtoggle_Click));
    disp->addWidget(button(display, "cmdVFOSEqual", f.cmdVFOSEqual, cmdVFOSEqual_Click));
    disp->addWidget(button(display, "cmdVFOBOff", f.cmdVFOBOff, cmdVFOBOff_Click));
    disp->addWidget(button(display, "cmdMeters", f.cmdMeters, {}));
    operating->addWidget(display, 0, 0);

    // Mode buttons under the frequency; the narrow mark sits beside button 6.
    auto* modes = new QGroupBox("Mode", central);
    modeGrid_ = new QGridLayout(modes);
    for (int i = 0; i < 12; ++i) {
        QPushButton* b = button(modes, QString("Command2_%1").arg(i), f.Command2[i],
                                [i](Core& c) { Command2_Click(c, i); });
        modeCells_[i] = b;
        if (i == 6) {
            auto* cell = new QWidget(modes);
            auto* cl = new QHBoxLayout(cell);
            cl->setContentsMargins(0, 0, 0, 0);
            cl->setSpacing(2);
            b->setParent(cell);
            cl->addWidget(b, 1);
            auto* narrow = light(cell, "lblNarrow", f.lblNarrow);
            narrow->setMinimumWidth(16);
            cl->addWidget(narrow);
            modeCells_[i] = cell;
        }
        modeCells_[i]->hide();
    }
    operating->addWidget(modes, 1, 0);

    // Transmit: the TX/RX button, its enable box and split.
    auto* tx = new QGroupBox("Transmit", central);
    auto* txl = new QHBoxLayout(tx);
    auto* txRx = button(tx, "cmdTxRx", f.cmdTxRx, cmdTxRx_Click);
    buttons_.back().tipSuffix = "(F9) ";
    txRx->setCheckable(true);
    // F9 works the button from anywhere in the window. A shortcut of the button itself would
    // be lost whenever its caption changes, since a new caption brings its own mnemonic.
    auto* f9 = new QShortcut(QKeySequence(Qt::Key_F9), this);
    f9->setObjectName("shortcutTxRx");
    connect(f9, &QShortcut::activated, txRx, &QPushButton::click);
    txRx->setMinimumSize(96, 40);
    QFont txFont = txRx->font();
    txFont.setPointSize(txFont.pointSize() + 2);
    txRx->setFont(txFont);
    txl->addWidget(txRx);
    auto* txChecks = new QVBoxLayout();
    chkTransmitEnable_ =
        check(tx, "chkTransmitEnable", f.chkTransmitEnable, chkTransmitEnable_Click);
    chkSplit_ = check(tx, "chkSplit", f.chkSplit, chkSplit_Click);
    txChecks->addWidget(chkTransmitEnable_);
    txChecks->addWidget(chkSplit_);
    txl->addLayout(txChecks);
    txl->addStretch();
    operating->addWidget(tx, 0, 1);

    // Repeater: shift and CTCSS tone.
    auto* repeater = new QGroupBox("Repeater", central);
    auto* rl = new QGridLayout(repeater);
    shiftLabel_ = new QLabel("Shift", repeater);
    rl->addWidget(shiftLabel_, 0, 0);
    auto* shifts = new QHBoxLayout();
    shifts->addWidget(button(repeater, "cmdShiftMinus", f.cmdShiftMinus, cmdShiftMinus_Click));
    shifts->addWidget(
        button(repeater, "cmdShiftSimplex", f.cmdShiftSimplex, cmdShiftSimplex_Click));
    shifts->addWidget(button(repeater, "cmdShiftPlus", f.cmdShiftPlus, cmdShiftPlus_Click));
    rl->addLayout(shifts, 0, 1);
    rl->addWidget(new QLabel("CTCSS", repeater), 1, 0);
    auto* tone = new QHBoxLayout();
    cboCTCSS_ = Named(new QComboBox(repeater), "cboCTCSS", f.cboCTCSS);
    cboCTCSS_->setPlaceholderText("tone");
    cboCTCSS_->setMinimumContentsLength(6);
    tone->addWidget(cboCTCSS_);
    tone->addWidget(light(repeater, "lblEnc", f.lblEnc));
    tone->addWidget(light(repeater, "lblDec", f.lblDec));
    tone->addWidget(light(repeater, "lblCTCSSFreq", f.lblCTCSSFreq));
    rl->addLayout(tone, 1, 1);
    rl->setRowStretch(2, 1);
    connect(cboCTCSS_, &QComboBox::activated, this, [this](int index) {
        if (!rendering_) c_.f.cboCTCSS.listIndex = index;
    });
    operating->addWidget(repeater, 1, 1);

    // Meter with its scale in fixed-pitch type above a bar of the same width, so that each
    // mark stands over its level; the signal threshold below it.
    auto* meter = new QGroupBox("S-meter", central);
    auto* met = new QVBoxLayout(meter);
    auto* scale = new QLabel("..1...3...5...7...9   20  40 60", meter);
    scale->setObjectName("Label1");
    QFont scaleFont = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    scaleFont.setPointSize(scaleFont.pointSize() + 3);
    scale->setFont(scaleFont);
    const int barWidth = scale->fontMetrics().horizontalAdvance(scale->text()) + 4;
    pbarSmeter_ = Named(new QProgressBar(meter), "pbarSmeter", f.pbarSmeter);
    pbarSmeter_->setTextVisible(false);
    pbarSmeter_->setFixedWidth(barWidth);
    auto* lblGotSignal = new QLabel("Click below to set 'got a signal' s-meter level", meter);
    lblGotSignal->setObjectName("lblGotSignal");
    pbarGotSignal_ = Named(new QProgressBar(meter), "pbarGotSignal", f.pbarGotSignal);
    pbarGotSignal_->setTextVisible(false);
    pbarGotSignal_->setMaximumHeight(10);
    pbarGotSignal_->setFixedWidth(barWidth);
    pbarGotSignal_->installEventFilter(this);
    auto* bars = new QVBoxLayout();
    bars->addWidget(scale);
    bars->addWidget(pbarSmeter_);
    bars->addWidget(lblGotSignal);
    bars->addWidget(pbarGotSignal_);
    // The state lights beside the bars.
    auto* lights = new QHBoxLayout();
    for (auto [name, model] : {std::pair<const char*, Label*>{"lblTX", &f.lblTX},
                               {"lblRX", &f.lblRX},
                               {"lblSQL", &f.lblSQL},
                               {"lblDCS", &f.lblDCS},
                               {"lblDISC", &f.lblDISC}})
        lights->addWidget(light(meter, name, *model), 0, Qt::AlignVCenter);
    auto* ml = new QHBoxLayout();
    ml->addLayout(bars);
    ml->addSpacing(24);
    ml->addLayout(lights);
    ml->addStretch();
    met->addLayout(ml);
    top->addWidget(meter);

    // The frame of the rig in use; the others stay hidden.
    auto frame = [&](const Frame& model, const char* name) {
        auto* box = new QGroupBox(model.caption, central);
        box->setObjectName(name);
        frames_.emplace_back(box, &model);
        top->addWidget(box);
        return box;
    };
    auto rigName = [&](QWidget* parent, const char* name, Label& model) {
        auto* label = Named(new QLabel(model.caption, parent), name, model);
        QFont bold = label->font();
        bold.setBold(true);
        label->setFont(bold);
        labels_.push_back({label, &model});
        return label;
    };
    auto featureRow =
        [&](QGroupBox* box, Label& name, const char* nameObject,
            std::initializer_list<std::tuple<const char*, CommandButton*, void (*)(Core&)>> rows) {
            auto* row = new QHBoxLayout(box);
            row->addWidget(rigName(box, nameObject, name));
            for (auto [objectName, model, handler] : rows)
                row->addWidget(button(box, objectName, *model, handler));
            row->addStretch();
            return row;
        };
    featureRow(frame(f.frmFT897, "frmFT897"), f.Label14, "Label14",
               {{"cmdFT897Processor", &f.cmdFT897Processor, cmdFT897Processor_Click},
                {"cmdFT897NoiseBlanker", &f.cmdFT897NoiseBlanker, cmdFT897NoiseBlanker_Click},
                {"cmdFT897DNF", &f.cmdFT897DNF, cmdFT897DNF_Click},
                {"cmdFT897DNR", &f.cmdFT897DNR, cmdFT897DNR_Click},
                {"cmdFT897DBF", &f.cmdFT897DBF, cmdFT897DBF_Click},
                {"cmdFT897Fast", &f.cmdFT897Fast, cmdFT897Fast_Click},
                {"cmdFT897Lock", &f.cmdFT897Lock, cmdFT897Lock_Click}});
    featureRow(frame(f.frmFT857, "frmFT857"), f.Label18, "Label18",
               {{"cmdFT857Processor", &f.cmdFT857Processor, cmdFT857Processor_Click},
                {"cmdFT857NoiseBlanker", &f.cmdFT857NoiseBlanker, cmdFT857NoiseBlanker_Click},
                {"cmdFT857DNF", &f.cmdFT857DNF, cmdFT857DNF_Click},
                {"cmdFT857DNR", &f.cmdFT857DNR, cmdFT857DNR_Click},
                {"cmdFT857DBF", &f.cmdFT857DBF, cmdFT857DBF_Click},
                {"cmdFT857Fast", &f.cmdFT857Fast, cmdFT857Fast_Click},
                {"cmdFT857Lock", &f.cmdFT857Lock, cmdFT857Lock_Click}});
    {
        QGroupBox* box = frame(f.frmFT817, "frmFT817");
        QHBoxLayout* row = featureRow(box, f.lblFT817, "lblFT817", {});
        row->insertSpacing(1, 16);
        row->insertWidget(2, new QLabel("AGC", box));
        static const char* const kAgc[] = {"Auto", "Fast", "Slow", "Off"};
        for (int i = 0; i < 4; ++i) {
            row->insertWidget(3 + i, option(box, QString("optFT817AGC_%1").arg(i), f.optFT817AGC[i],
                                            kAgc[i], [this, i] {
                                                for (int k = 0; k < 4; ++k)
                                                    c_.f.optFT817AGC[k].value = k == i;
                                                handle([i](Core& c) { optFT817AGC_Click(c, i); });
                                            }));
        }
    }
    frame(f.frmFT847, "frmFT847");
    frame(f.frmFRG100, "frmFRG100");
    {
        // Bandwidths by button: 250 Hz, 500 Hz, 2.0 kHz, 2.4 kHz, 6 kHz.
        QGroupBox* box = frame(f.frmFT1000MP, "frmFT1000MP");
        auto* grid = new QGridLayout(box);
        static const char* const kWidths[] = {"250", "500", "2.0k", "2.4k", "6k"};
        grid->addWidget(new QLabel("8.2 MHz filter", box), 0, 0);
        grid->addWidget(new QLabel("455 kHz filter", box), 1, 0);
        for (int i = 0; i < 5; ++i) {
            grid->addWidget(
                button(
                    box, QString("cmdFT1000MP_Filter_82_%1").arg(i), f.cmdFT1000MP_Filter_82[i],
                    [i](Core& c) { cmdFT1000MP_Filter_82_Click(c, i); }, kWidths[i]),
                0, i + 1);
            grid->addWidget(
                button(
                    box, QString("cmdFT1000MP_Filter_455_%1").arg(i), f.cmdFT1000MP_Filter_455[i],
                    [i](Core& c) { cmdFT1000MP_Filter_455_Click(c, i); }, kWidths[i]),
                1, i + 1);
        }
        grid->setColumnStretch(6, 1);
    }
    {
        // The FT-920's VFO lights, antenna, dial speed and tuner.
        QGroupBox* box = frame(f.frmFT920, "frmFT920");
        auto* row = new QHBoxLayout(box);
        auto shape = [&](const char* name, const char* caption, const Colour& colour) {
            auto* s = new QLabel(caption, box);
            s->setObjectName(name);
            s->setAlignment(Qt::AlignCenter);
            s->setFrameShape(QFrame::Panel);
            s->setMinimumWidth(28);
            shapes_.emplace_back(s, &colour);
            return s;
        };
        row->addWidget(new QLabel("VFO A", box));
        row->addWidget(shape("shpTxVfoA", "TX", f.shpTxVfoA));
        row->addWidget(shape("shpRxVfoA", "RX", f.shpRxVfoA));
        row->addSpacing(8);
        row->addWidget(new QLabel("VFO B", box));
        row->addWidget(shape("shpTxVfoB", "TX", f.shpTxVfoB));
        row->addWidget(shape("shpRxVfoB", "RX", f.shpRxVfoB));
        row->addSpacing(8);
        row->addWidget(new QLabel("Ant", box));
        row->addWidget(light(box, "lblAnt", f.lblAnt));
        row->addWidget(light(box, "lblRXant", f.lblRXant));
        row->addSpacing(8);
        row->addWidget(new QLabel("Dial", box));
        row->addWidget(light(box, "lblTune", f.lblTune));
        row->addSpacing(8);
        row->addWidget(
            button(box, "cmdFT920Tuner", f.cmdFT920Tuner, cmdFT920Tuner_Click, "Tuner in/out"));
        row->addWidget(
            button(box, "cmdFT920StartTune", f.cmdFT920StartTune, cmdFT920StartTune_Click));
        row->addStretch();
    }
    {
        QGroupBox* box = frame(f.frmFT450, "frmFT450");
        auto* row = new QHBoxLayout(box);
        const QString toggle = " Click to toggle %1 On/Off ";
        row->addWidget(labelButton(box, "lbl450Tuner", f.lbl450Tuner, lbl450Tuner_Click, {},
                                   toggle.arg("Tuner")));
        row->addWidget(
            labelButton(box, "lbl450Att", f.lbl450Att, lbl450Att_Click, {}, toggle.arg("ATT")));
        row->addWidget(
            labelButton(box, "lbl450Ipo", f.lbl450Ipo, lbl450Ipo_Click, {}, toggle.arg("IPO")));
        row->addSpacing(8);
        static const char* const kAgc[] = {"AGC Auto", "AGC Slow", "AGC Fast", "AGC Off"};
        for (int i = 0; i < 4; ++i) {
            row->addWidget(labelButton(
                box, QString("lbl450AGC_%1").arg(i), f.lbl450AGC[i],
                [i](Core& c) { lbl450AGC_Click(c, i); }, kAgc[i]));
        }
        row->addSpacing(8);
        row->addWidget(button(box, "cmd450Tune", f.cmd450Tune, cmd450Tune_Click));
        chkShowDSP_ = Named(new QCheckBox(f.chkShowDSP.caption, box), "chkShowDSP", f.chkShowDSP);
        chkShowDSP_->setEnabled(false);
        row->addWidget(chkShowDSP_);
        row->addStretch();
    }
    // The VR-5000's tuning steps of the mode in use.
    auto steps = [&](const Frame& model, const char* name, auto& options, const char* object,
                     std::initializer_list<const char*> captions) {
        QGroupBox* box = frame(model, name);
        auto* row = new QHBoxLayout(box);
        int i = 0;
        for (const char* caption : captions) {
            row->addWidget(
                option(box, QString("%1_%2").arg(object).arg(i), options[i], caption, {}));
            ++i;
        }
        row->addStretch();
    };
    steps(f.frmVR5000LSB, "frmVR5000LSB", f.optLSBUSB, "optLSBUSB",
          {"20 Hz", "100 Hz", "500 Hz", "1 kHz", "5 kHz"});
    steps(f.frmVR5000AM, "frmVR5000AM", f.optAM, "optAM",
          {"1k", "5k", "9k", "10k", "20k", "25k", "50k", "100k", "500k"});
    steps(f.frmVR5000FMN, "frmVR5000FMN", f.optFMN, "optFMN",
          {"5k", "6.25k", "10k", "12.5k", "20k", "25k", "50k", "100k", "500k"});
    steps(f.frmVR5000WFM, "frmVR5000WFM", f.optWFM, "optWFM", {"10k", "50k", "100k", "500k"});

    // Delays, and the scan buttons beside them.
    auto* delays = new QGroupBox(central);
    auto* dl = new QGridLayout(delays);
    chkSliders_ = Named(new QCheckBox(f.chkSliders.caption, delays), "chkSliders", f.chkSliders);
    auto slider = [&](const char* name, Slider& model) {
        auto* s = Named(new QSlider(Qt::Horizontal, delays), name, model);
        s->setRange(model.min, model.max);
        return s;
    };
    sldCMDdelay_ = slider("sldCMDdelay", f.sldCMDdelay);
    sldSmeterDelay_ = slider("sldSmeterDelay", f.sldSmeterDelay);
    sldExtra_ = slider("sldExtra", f.sldExtra);
    lblCmdDelay_ = Named(new QLabel(delays), "lblCmdDelay", f.lblCmdDelay);
    lblAGCdelay_ = Named(new QLabel(delays), "lblAGCdelay", f.lblAGCdelay);
    lblExtra_ = Named(new QLabel(delays), "lblExtra", f.lblExtra);
    auto* scan = new QHBoxLayout();
    scan->addWidget(button(delays, "cmdScanMemOrBank", f.cmdScanMemOrBank, {}));
    scan->addWidget(button(delays, "cmdStartStopScan", f.cmdStartStopScan, {}));
    dl->addWidget(chkSliders_, 0, 0);
    dl->addLayout(scan, 0, 2, Qt::AlignRight);
    dl->addWidget(lblCmdDelay_, 1, 0);
    dl->addWidget(sldCMDdelay_, 1, 1);
    dl->addWidget(lblAGCdelay_, 2, 0);
    dl->addWidget(sldSmeterDelay_, 2, 1);
    dl->addWidget(lblExtra_, 3, 0);
    dl->addWidget(sldExtra_, 3, 1);
    dl->setColumnStretch(1, 1);
    top->addWidget(delays);
    top->addStretch();
    setCentralWidget(central);

    // Each widget to its handler, connected by hand.
    connect(chkOnOff_, &QCheckBox::clicked, this, [this](bool checked) {
        if (rendering_) return;
        c_.f.chkOnOff.value = checked ? 1 : 0;
        handle(chkOnOff_Click);
    });
    connect(cmdTenMinCounter_, &QPushButton::clicked, this,
            [this] { handle(cmdTenMinCounter_Click); });
    connect(chkSliders_, &QCheckBox::clicked, this, [this](bool checked) {
        c_.f.chkSliders.value = checked ? 1 : 0;
        handle(chkSliders_Click);
    });
    auto bindSlider = [this](QSlider* s, Slider Form1::*model, void (*handler)(Core&)) {
        connect(s, &QSlider::valueChanged, this, [this, model, handler](int value) {
            if (rendering_) return;
            (c_.f.*model).value = value;
            handle(handler);
        });
    };
    bindSlider(sldCMDdelay_, &Form1::sldCMDdelay, sldCMDdelay_Change);
    bindSlider(sldSmeterDelay_, &Form1::sldSmeterDelay, sldSmeterDelay_Change);
    bindSlider(sldExtra_, &Form1::sldExtra, sldExtra_Change);
    buildMenus();
    render();
}

QPushButton* MainWindow::button(QWidget* parent, const QString& name, CommandButton& model,
                                std::function<void(Core&)> onClick, const QString& fallback) {
    auto* b = new QPushButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    b->setObjectName(name);
    buttons_.push_back({b, &model, fallback, {}, static_cast<bool>(onClick)});
    if (onClick) {
        connect(b, &QPushButton::clicked, this, [this, onClick] {
            if (!rendering_) handle(onClick);
        });
    }
    return b;
}

QPushButton* MainWindow::labelButton(QWidget* parent, const QString& name, Label& model,
                                     std::function<void(Core&)> onClick, const QString& fallback,
                                     const QString& fallbackTip) {
    auto* b = new QPushButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    b->setObjectName(name);
    labelButtons_.push_back({b, &model, fallback, fallbackTip});
    connect(b, &QPushButton::clicked, this, [this, onClick] {
        if (!rendering_) handle(onClick);
    });
    return b;
}

QLabel* MainWindow::light(QWidget* parent, const char* name, Label& model) {
    auto* l = Named(new QLabel(model.caption, parent), name, model);
    l->setAlignment(Qt::AlignCenter);
    l->setFrameShape(QFrame::Panel);
    l->setMinimumWidth(44);
    l->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    labels_.push_back({l, &model});
    return l;
}

QRadioButton* MainWindow::option(QWidget* parent, const QString& name, OptionButton& model,
                                 const QString& fallback, std::function<void()> onClick) {
    auto* o = new QRadioButton(model.caption.isEmpty() ? fallback : model.caption, parent);
    o->setObjectName(name);
    options_.push_back({o, &model, fallback, static_cast<bool>(onClick)});
    if (onClick) {
        connect(o, &QRadioButton::clicked, this, [this, onClick] {
            if (!rendering_) onClick();
        });
    }
    return o;
}

QCheckBox* MainWindow::check(QWidget* parent, const char* name, CheckBox& model,
                             void (*onClick)(Core&)) {
    auto* box = Named(new QCheckBox(model.caption, parent), name, model);
    connect(box, &QCheckBox::clicked, this, [this, &model, onClick](bool checked) {
        if (rendering_) return;
        model.value = checked ? 1 : 0;
        handle(onClick);
    });
    return box;
}

void MainWindow::arrangeModeButtons() {
    for (QWidget* cell : modeCells_) modeGrid_->removeWidget(cell);
    int shown = 0;
    for (int i = 0; i < 12; ++i) {
        modeCells_[i]->setVisible(modeShown_[i]);
        if (modeShown_[i]) {
            modeGrid_->addWidget(modeCells_[i], shown / 6, shown % 6);
            ++shown;
        }
    }
}

void MainWindow::place() {
    move(c_.f.left / kTwipsPerPixel, c_.f.top / kTwipsPerPixel);
}

MainWindow::~MainWindow() {
    delete messages_;
}

void MainWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu("&File");
    QAction* exit = file->addAction("E&xit");
    exit->setObjectName("mnuExit");
    connect(exit, &QAction::triggered, this, [this] { close(); });
    QMenu* options = menuBar()->addMenu("&Options");
    QAction* settings = options->addAction("&Settings...");
    settings->setObjectName("mnuSettings");
    connect(settings, &QAction::triggered, this, [this] { handle(Form_DblClick); });
    QAction* sharing = options->addAction("Rig shari&ng...");
    sharing->setObjectName("mnuRigSharing");
    connect(sharing, &QAction::triggered, this, [this] {
        RigSharingDialog dialog(c_, this);
        dialog.exec();
        render();
    });
    // Ticked items that run a handler.
    auto tickItem = [&](MenuItem& item, const char* name, void (*handler)(Core&)) {
        QAction* a = options->addAction(item.caption);
        a->setObjectName(name);
        a->setCheckable(true);
        connect(a, &QAction::triggered, this, [this, handler] { handle(handler); });
        menuItems_.emplace_back(a, &item);
    };
    Form1& f = c_.f;
    tickItem(f.mnuFT817AGCmonitor, "mnuFT817AGCmonitor", mnuFT817AGCmonitor_Click);
    tickItem(f.mnuRaiseDTR, "mnuRaiseDTR", mnuRaiseDTR_Click);
    tickItem(f.mnuRaiseRTS, "mnuRaiseRTS", mnuRaiseRTS_Click);
    tickItem(f.mnuLinkRTS, "mnuLinkRTS", mnuLinkRTS_Click);
    tickItem(f.mnuTXRXcontrolsRTS, "mnuTXRXcontrolsRTS", mnuTXRXcontrolsRTS_Click);
    options->addSeparator();

    // Polling: how often a full reading is made.
    QMenu* polling = options->addMenu("&Polling");
    polling->setObjectName("mnuPollingTitle");
    const std::pair<const char*, int32_t> rates[] = {
        {"mnuPollingOff", 99}, {"mnuPolling", 0},      {"mnuPolling02", 200},
        {"mnuPolling05", 500}, {"mnuPolling1", 1000},  {"mnuPolling2", 2000},
        {"mnuPolling5", 5000}, {"mnuPolling10", 10000}};
    MenuItem* items[] = {&c_.f.mnuPollingOff, &c_.f.mnuPolling,  &c_.f.mnuPolling02,
                         &c_.f.mnuPolling05,  &c_.f.mnuPolling1, &c_.f.mnuPolling2,
                         &c_.f.mnuPolling5,   &c_.f.mnuPolling10};
    for (size_t i = 0; i < std::size(rates); ++i) {
        QAction* a = polling->addAction(items[i]->caption);
        a->setObjectName(rates[i].first);
        a->setCheckable(true);
        const int32_t delay = rates[i].second;
        connect(a, &QAction::triggered, this,
                [this, delay] { handle([delay](Core& c) { SetPollingDelay(c, delay); }); });
        menuItems_.emplace_back(a, items[i]);
    }
    polling->addSeparator();
    QAction* now = polling->addAction("Update now");
    now->setObjectName("mnuPollingUpdateNow");
    now->setShortcut(Qt::Key_F3);
    connect(now, &QAction::triggered, this, [this] { handle(mnuPollingUpdateNow_Click); });

    // Talk speed: how often the poll tick runs.
    QMenu* talk = options->addMenu("&Talk speed");
    talk->setObjectName("mnuTalkSpeed");
    for (int i = 0; i < 5; ++i) {
        QAction* a = talk->addAction(c_.f.mnuTalk[i].caption);
        a->setObjectName(QString("mnuTalk%1").arg(i + 1));
        a->setCheckable(true);
        connect(a, &QAction::triggered, this,
                [this, i] { handle([i](Core& c) { mnuTalk_Click(c, i + 1); }); });
        menuItems_.emplace_back(a, &c_.f.mnuTalk[i]);
    }
}

void MainWindow::handle(const std::function<void(Core&)>& handler) {
    handler(c_);
    render();
}

void MainWindow::render() {
    rendering_ = true;
    const Form1& f = c_.f;
    setWindowTitle(f.caption);

    chkOnOff_->setChecked(f.chkOnOff.value == 1);
    ShowColour(chkOnOff_, f.chkOnOff.backColour);
    ShowTip(chkOnOff_, f.chkOnOff.toolTip);
    ShowText(lblTimeoutCount_, f.lblTimeoutCount.caption);
    ShowColour(lblTimeoutCount_, f.lblTimeoutCount.backColour);
    ShowText(lblUTC_, f.lblUTC.caption);
    ShowText(cmdTenMinCounter_, f.cmdTenMinCounter.caption);
    ShowColour(cmdTenMinCounter_, f.cmdTenMinCounter.backColour);

    ShowText(txtVfoA_, f.txtVfoA.text);
    ShowText(txtMode_, f.txtMode.text);
    ShowText(lblRigMode_, f.lblRigMode.caption);

    pbarSmeter_->setRange(f.pbarSmeter.min, f.pbarSmeter.max);
    pbarSmeter_->setValue(f.pbarSmeter.value);
    pbarGotSignal_->setRange(f.pbarGotSignal.min, f.pbarGotSignal.max);
    pbarGotSignal_->setValue(f.pbarGotSignal.value);

    chkTransmitEnable_->setChecked(f.chkTransmitEnable.value == 1);
    ShowControl(chkTransmitEnable_, f.chkTransmitEnable);
    chkSplit_->setChecked(f.chkSplit.value == 1);
    ShowControl(chkSplit_, f.chkSplit);

    std::array<bool, 12> modeShown{};
    for (int i = 0; i < 12; ++i) modeShown[i] = f.Command2[i].visible;
    if (modeShown != modeShown_) {
        modeShown_ = modeShown;
        arrangeModeButtons();
    }

    for (auto [box, model] : frames_) {
        ShowControl(box, *model);
        if (box->title() != model->caption) box->setTitle(model->caption);
    }
    for (const OptionView& v : options_) {
        ShowText(v.widget, v.model->caption.isEmpty() ? v.fallback : v.model->caption);
        ShowControl(v.widget, *v.model);
        if (!v.wired) v.widget->setEnabled(false);
        if (v.widget->isChecked() != v.model->value) v.widget->setChecked(v.model->value);
    }
    for (const LabelButtonView& v : labelButtons_) {
        ShowText(v.widget, v.model->caption.isEmpty() ? v.fallback : v.model->caption);
        ShowControl(v.widget, *v.model);
        if (v.model->toolTip.isEmpty()) ShowTip(v.widget, v.fallbackTip);
        ShowColour(v.widget, v.model->backColour);
    }
    for (const LabelView& v : labels_) {
        ShowText(v.widget, v.model->caption);
        ShowControl(v.widget, *v.model);
        ShowColour(v.widget, v.model->backColour);
    }
    for (auto [shape, colour] : shapes_) ShowColour(shape, *colour);

    ShowControl(chkShowDSP_, f.chkShowDSP);
    chkShowDSP_->setEnabled(false);
    if (shownTones_ != f.cboCTCSS.list) {
        shownTones_ = f.cboCTCSS.list;
        cboCTCSS_->clear();
        cboCTCSS_->addItems(shownTones_);
    }
    if (cboCTCSS_->currentIndex() != f.cboCTCSS.listIndex)
        cboCTCSS_->setCurrentIndex(f.cboCTCSS.listIndex);
    ShowControl(cboCTCSS_, f.cboCTCSS);
    // The shift label goes with the rig's shift buttons.
    shiftLabel_->setVisible(f.cmdShiftMinus.visible || f.cmdShiftSimplex.visible ||
                            f.cmdShiftPlus.visible);

    for (const ButtonView& v : buttons_) {
        const CommandButton& model = *v.model;
        ShowText(v.widget, model.caption.isEmpty() ? v.fallback : model.caption);
        ShowControl(v.widget, model);
        if (!v.tipSuffix.isEmpty()) ShowTip(v.widget, model.toolTip + v.tipSuffix);
        if (!v.wired) v.widget->setEnabled(false);
        ShowColour(v.widget, model.backColour);
        if (v.widget->isCheckable() && v.widget->isChecked() != model.pressed)
            v.widget->setChecked(model.pressed);
        if (v.widget->font().bold() != model.bold) {
            QFont font = v.widget->font();
            font.setBold(model.bold);
            v.widget->setFont(font);
        }
    }

    for (auto [action, item] : menuItems_) {
        action->setText(item->caption);
        action->setChecked(item->checked);
        action->setEnabled(item->enabled);
        action->setVisible(item->visible);
    }

    chkSliders_->setChecked(f.chkSliders.value == 1);
    ShowSlider(sldCMDdelay_, f.sldCMDdelay);
    ShowSlider(sldSmeterDelay_, f.sldSmeterDelay);
    ShowSlider(sldExtra_, f.sldExtra);
    ShowText(lblCmdDelay_, f.lblCmdDelay.caption);
    ShowControl(lblCmdDelay_, f.lblCmdDelay);
    ShowText(lblAGCdelay_, f.lblAGCdelay.caption);
    ShowControl(lblAGCdelay_, f.lblAGCdelay);
    ShowText(lblExtra_, f.lblExtra.caption);
    ShowControl(lblExtra_, f.lblExtra);

    messages_->render();
    rendering_ = false;
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == pbarGotSignal_ && event->type() == QEvent::MouseButtonPress) {
        const int x = static_cast<int>(static_cast<QMouseEvent*>(event)->position().x());
        const int width = pbarGotSignal_->width();
        handle([x, width](Core& c) { pbarGotSignal_MouseDown(c, x, width); });
        return true;
    }
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    c_.f.left = x() * kTwipsPerPixel;
    c_.f.top = y() * kTwipsPerPixel;
    Form_Unload(c_);
    // During a long job the unloading does nothing, and the window stays.
    if (c_.s.Transmitting || c_.s.SpectrumRunning || c_.s.ScanRunning) {
        event->ignore();
        return;
    }
    event->accept();
}

}  // namespace veldor
