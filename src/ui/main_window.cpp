#include "ui/main_window.h"

#include "link/catalogue.h"
#include "link/poll_cycle.h"
#include "link/start_stop.h"
#include "protocol/model_controls.h"
#include "protocol/tones.h"
#include "protocol/transmit.h"
#include "protocol/write_frequency.h"
#include "ui/messages_window.h"

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

void ShowControl(QWidget* w, const Control& control) {
    if (w->isEnabled() != control.enabled) w->setEnabled(control.enabled);
    if (w->isVisibleTo(w->parentWidget()) != control.visible) w->setVisible(control.visible);
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

    // Frequency display.
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
    txtMode_->setMaximumWidth(80);
    lblRigMode_ = Named(new QLabel(display), "lblRigMode", f.lblRigMode);
    disp->addWidget(txtVfoA_);
    disp->addWidget(txtMode_);
    disp->addWidget(lblRigMode_);
    disp->addStretch();
    top->addWidget(display);

    // Meter with its scale in fixed-pitch type, and the signal threshold below it.
    auto* meter = new QGroupBox("S-meter", central);
    auto* met = new QVBoxLayout(meter);
    auto* scale = new QLabel("..1...3...5...7...9   20  40 60", meter);
    scale->setObjectName("Label1");
    scale->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    pbarSmeter_ = Named(new QProgressBar(meter), "pbarSmeter", f.pbarSmeter);
    pbarSmeter_->setTextVisible(false);
    auto* lblGotSignal = new QLabel("Click below to set 'got a signal' s-meter level", meter);
    lblGotSignal->setObjectName("lblGotSignal");
    pbarGotSignal_ = Named(new QProgressBar(meter), "pbarGotSignal", f.pbarGotSignal);
    pbarGotSignal_->setTextVisible(false);
    pbarGotSignal_->setMaximumHeight(10);
    pbarGotSignal_->installEventFilter(this);
    met->addWidget(scale);
    met->addWidget(pbarSmeter_);
    met->addWidget(lblGotSignal);
    met->addWidget(pbarGotSignal_);
    // The state lights.
    auto* lights = new QHBoxLayout();
    for (auto [name, model] : {std::pair<const char*, Label*>{"lblTX", &f.lblTX},
                               {"lblRX", &f.lblRX},
                               {"lblSQL", &f.lblSQL},
                               {"lblDCS", &f.lblDCS},
                               {"lblDISC", &f.lblDISC}}) {
        auto* light = Named(new QLabel(model->caption, meter), name, *model);
        light->setAlignment(Qt::AlignCenter);
        light->setFrameShape(QFrame::Panel);
        light->setMinimumWidth(44);
        lights->addWidget(light);
        lights_.emplace_back(light, model);
    }
    lights->addStretch();
    met->addLayout(lights);
    top->addWidget(meter);

    // VFO buttons beside the frequency.
    disp->addWidget(button(display, "cmdVFOtoggle", f.cmdVFOtoggle, cmdVFOtoggle_Click));
    disp->addWidget(button(display, "cmdVFOSEqual", f.cmdVFOSEqual, cmdVFOSEqual_Click));
    disp->addWidget(button(display, "cmdVFOBOff", f.cmdVFOBOff, cmdVFOBOff_Click));
    disp->addWidget(button(display, "cmdMeters", f.cmdMeters, {}));

    // Mode buttons, two rows of six.
    auto* modes = new QGroupBox("Mode", central);
    auto* ml = new QGridLayout(modes);
    for (int i = 0; i < 12; ++i) {
        const QByteArray name = "Command2_" + QByteArray::number(i);
        ml->addWidget(
            button(modes, name.constData(), f.Command2[i], [i](Core& c) { Command2_Click(c, i); }),
            i / 6, i % 6);
    }
    lblNarrow_ = Named(new QLabel(f.lblNarrow.caption, modes), "lblNarrow", f.lblNarrow);
    ml->addWidget(lblNarrow_, 0, 6);
    top->addWidget(modes);

    // Repeater: shift and CTCSS tone.
    auto* repeater = new QGroupBox("Repeater", central);
    auto* rl = new QHBoxLayout(repeater);
    rl->addWidget(new QLabel("Shift", repeater));
    rl->addWidget(button(repeater, "cmdShiftMinus", f.cmdShiftMinus, cmdShiftMinus_Click));
    rl->addWidget(button(repeater, "cmdShiftSimplex", f.cmdShiftSimplex, cmdShiftSimplex_Click));
    rl->addWidget(button(repeater, "cmdShiftPlus", f.cmdShiftPlus, cmdShiftPlus_Click));
    rl->addSpacing(16);
    rl->addWidget(new QLabel("CTCSS", repeater));
    cboCTCSS_ = Named(new QComboBox(repeater), "cboCTCSS", f.cboCTCSS);
    rl->addWidget(cboCTCSS_);
    for (auto [name, model] : {std::pair<const char*, Label*>{"lblEnc", &f.lblEnc},
                               {"lblDec", &f.lblDec},
                               {"lblCTCSSFreq", &f.lblCTCSSFreq}}) {
        auto* light = Named(new QLabel(model->caption, repeater), name, *model);
        light->setAlignment(Qt::AlignCenter);
        light->setFrameShape(QFrame::Panel);
        light->setMinimumWidth(44);
        rl->addWidget(light);
        lights_.emplace_back(light, model);
    }
    rl->addStretch();
    top->addWidget(repeater);
    connect(cboCTCSS_, &QComboBox::activated, this, [this](int index) {
        if (!rendering_) c_.f.cboCTCSS.listIndex = index;
    });

    // Transmit and scan.
    auto* tx = new QGroupBox("Transmit and scan", central);
    auto* txl = new QHBoxLayout(tx);
    auto* txRx = button(tx, "cmdTxRx", f.cmdTxRx, cmdTxRx_Click);
    txRx->setCheckable(true);
    txRx->setShortcut(Qt::Key_F9);
    txRx->setToolTip(f.cmdTxRx.toolTip + "(F9) ");
    txl->addWidget(txRx);
    chkTransmitEnable_ =
        check(tx, "chkTransmitEnable", f.chkTransmitEnable, chkTransmitEnable_Click);
    chkSplit_ = check(tx, "chkSplit", f.chkSplit, chkSplit_Click);
    txl->addWidget(chkTransmitEnable_);
    txl->addWidget(chkSplit_);
    txl->addStretch();
    cmdScanMemOrBank_ = button(tx, "cmdScanMemOrBank", f.cmdScanMemOrBank, {});
    cmdStartStopScan_ = button(tx, "cmdStartStopScan", f.cmdStartStopScan, {});
    txl->addWidget(cmdScanMemOrBank_);
    txl->addWidget(cmdStartStopScan_);
    top->addWidget(tx);

    // The frame of the rig in use; the others stay hidden.
    auto frame = [&](const Frame& model, const char* name) {
        auto* box = new QGroupBox(model.caption, central);
        box->setObjectName(name);
        frames_.emplace_back(box, &model);
        top->addWidget(box);
        return box;
    };
    auto featureRow =
        [&](QGroupBox* box, Label& rigName, const char* rigNameObject,
            std::initializer_list<std::tuple<const char*, CommandButton*, void (*)(Core&)>> rows) {
            auto* row = new QHBoxLayout(box);
            row->addWidget(Named(new QLabel(box), rigNameObject, rigName));
            rigNames_.emplace_back(static_cast<QLabel*>(row->itemAt(0)->widget()), &rigName);
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
        QHBoxLayout* row = featureRow(frame(f.frmFT817, "frmFT817"), f.lblFT817, "lblFT817", {});
        row->insertWidget(1, new QLabel("AGC", central));
        static const char* const kAgc[] = {"Auto", "Fast", "Slow", "Off"};
        for (int i = 0; i < 4; ++i) {
            auto* o = new QRadioButton(kAgc[i], central);
            o->setObjectName(QString("optFT817AGC_%1").arg(i));
            row->insertWidget(2 + i, o);
            options_.emplace_back(o, &f.optFT817AGC[i]);
            connect(o, &QRadioButton::clicked, this, [this, i] {
                if (rendering_) return;
                for (int k = 0; k < 4; ++k) c_.f.optFT817AGC[k].value = k == i;
                handle([i](Core& c) { optFT817AGC_Click(c, i); });
            });
        }
    }
    frame(f.frmFT847, "frmFT847");
    frame(f.frmFRG100, "frmFRG100");
    {
        // Bandwidths by button: 250 Hz, 500 Hz, 2.0 kHz, 2.4 kHz, 6 kHz.
        auto* grid = new QGridLayout(frame(f.frmFT1000MP, "frmFT1000MP"));
        static const char* const kWidths[] = {"250", "500", "2.0k", "2.4k", "6k"};
        grid->addWidget(new QLabel("8.2 MHz", central), 0, 0);
        grid->addWidget(new QLabel("455 kHz", central), 1, 0);
        for (int i = 0; i < 5; ++i) {
            f.cmdFT1000MP_Filter_82[i].caption = kWidths[i];
            f.cmdFT1000MP_Filter_455[i].caption = kWidths[i];
            const QByteArray n82 = "cmdFT1000MP_Filter_82_" + QByteArray::number(i);
            const QByteArray n455 = "cmdFT1000MP_Filter_455_" + QByteArray::number(i);
            grid->addWidget(button(central, n82.constData(), f.cmdFT1000MP_Filter_82[i],
                                   [i](Core& c) { cmdFT1000MP_Filter_82_Click(c, i); }),
                            0, i + 1);
            grid->addWidget(button(central, n455.constData(), f.cmdFT1000MP_Filter_455[i],
                                   [i](Core& c) { cmdFT1000MP_Filter_455_Click(c, i); }),
                            1, i + 1);
        }
    }
    {
        auto* row = new QHBoxLayout(frame(f.frmFT920, "frmFT920"));
        f.cmdFT920Tuner.caption = "Tuner in/out";
        row->addWidget(button(central, "cmdFT920Tuner", f.cmdFT920Tuner, cmdFT920Tuner_Click));
        row->addWidget(
            button(central, "cmdFT920StartTune", f.cmdFT920StartTune, cmdFT920StartTune_Click));
        row->addStretch();
    }
    {
        auto* row = new QHBoxLayout(frame(f.frmFT450, "frmFT450"));
        static const char* const kAgc[] = {"AGC Auto", "AGC Slow", "AGC Fast", "AGC Off"};
        for (int i = 0; i < 4; ++i) f.lbl450AGC[i].caption = kAgc[i];
        f.lbl450Tuner.toolTip = " Click to toggle Tuner On/Off ";
        row->addWidget(labelButton(central, "lbl450Tuner", f.lbl450Tuner, lbl450Tuner_Click));
        row->addWidget(labelButton(central, "lbl450Att", f.lbl450Att, lbl450Att_Click));
        row->addWidget(labelButton(central, "lbl450Ipo", f.lbl450Ipo, lbl450Ipo_Click));
        for (int i = 0; i < 4; ++i) {
            const QByteArray name = "lbl450AGC_" + QByteArray::number(i);
            row->addWidget(labelButton(central, name.constData(), f.lbl450AGC[i],
                                       [i](Core& c) { lbl450AGC_Click(c, i); }));
        }
        row->addWidget(button(central, "cmd450Tune", f.cmd450Tune, cmd450Tune_Click));
        chkShowDSP_ =
            Named(new QCheckBox(f.chkShowDSP.caption, central), "chkShowDSP", f.chkShowDSP);
        chkShowDSP_->setEnabled(false);
        row->addWidget(chkShowDSP_);
        row->addStretch();
    }
    // The VR-5000's tuning steps of the mode in use.
    auto steps = [&](const Frame& model, const char* name, auto& options, const char* object,
                     std::initializer_list<const char*> captions) {
        auto* row = new QHBoxLayout(frame(model, name));
        int i = 0;
        for (const char* caption : captions) {
            auto* o = new QRadioButton(caption, central);
            o->setObjectName(QString("%1_%2").arg(object).arg(i));
            o->setEnabled(false);
            row->addWidget(o);
            options_.emplace_back(o, &options[i++]);
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

    // Delays.
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
    dl->addWidget(chkSliders_, 0, 0);
    dl->addWidget(lblCmdDelay_, 1, 0);
    dl->addWidget(sldCMDdelay_, 1, 1);
    dl->addWidget(lblAGCdelay_, 2, 0);
    dl->addWidget(sldSmeterDelay_, 2, 1);
    dl->addWidget(lblExtra_, 3, 0);
    dl->addWidget(sldExtra_, 3, 1);
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

QPushButton* MainWindow::button(QWidget* parent, const char* name, CommandButton& model,
                                std::function<void(Core&)> onClick) {
    auto* b = Named(new QPushButton(model.caption, parent), name, model);
    modelButtons_.emplace_back(b, &model);
    if (onClick) {
        connect(b, &QPushButton::clicked, this, [this, onClick] {
            if (!rendering_) handle(onClick);
        });
    }
    return b;
}

QPushButton* MainWindow::labelButton(QWidget* parent, const char* name, Label& model,
                                     std::function<void(Core&)> onClick) {
    auto* b = Named(new QPushButton(model.caption, parent), name, model);
    labelButtons_.emplace_back(b, &model);
    connect(b, &QPushButton::clicked, this, [this, onClick] {
        if (!rendering_) handle(onClick);
    });
    return b;
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
    lblTimeoutCount_->setText(f.lblTimeoutCount.caption);
    ShowColour(lblTimeoutCount_, f.lblTimeoutCount.backColour);
    lblUTC_->setText(f.lblUTC.caption);
    cmdTenMinCounter_->setText(f.cmdTenMinCounter.caption);
    ShowColour(cmdTenMinCounter_, f.cmdTenMinCounter.backColour);

    if (txtVfoA_->text() != f.txtVfoA.text) txtVfoA_->setText(f.txtVfoA.text);
    if (txtMode_->text() != f.txtMode.text) txtMode_->setText(f.txtMode.text);
    lblRigMode_->setText(f.lblRigMode.caption);

    pbarSmeter_->setRange(f.pbarSmeter.min, f.pbarSmeter.max);
    pbarSmeter_->setValue(f.pbarSmeter.value);
    pbarGotSignal_->setRange(f.pbarGotSignal.min, f.pbarGotSignal.max);
    pbarGotSignal_->setValue(f.pbarGotSignal.value);

    chkTransmitEnable_->setChecked(f.chkTransmitEnable.value == 1);
    ShowControl(chkTransmitEnable_, f.chkTransmitEnable);
    chkSplit_->setChecked(f.chkSplit.value == 1);
    ShowControl(chkSplit_, f.chkSplit);

    for (auto [box, model] : frames_) ShowControl(box, *model);
    for (auto [label, model] : rigNames_) label->setText(model->caption);
    for (auto [option, model] : options_) {
        if (option->isChecked() != model->value) option->setChecked(model->value);
    }
    for (auto [widget, model] : labelButtons_) {
        widget->setText(model->caption);
        ShowControl(widget, *model);
        ShowColour(widget, model->backColour);
    }
    lblNarrow_->setText(f.lblNarrow.caption);
    ShowControl(lblNarrow_, f.lblNarrow);
    ShowControl(chkShowDSP_, f.chkShowDSP);
    chkShowDSP_->setEnabled(false);
    if (cboCTCSS_->count() != f.cboCTCSS.list.size() ||
        (cboCTCSS_->count() > 0 && cboCTCSS_->itemText(0) != f.cboCTCSS.list.first())) {
        cboCTCSS_->clear();
        cboCTCSS_->addItems(f.cboCTCSS.list);
    }
    if (cboCTCSS_->currentIndex() != f.cboCTCSS.listIndex)
        cboCTCSS_->setCurrentIndex(f.cboCTCSS.listIndex);
    ShowControl(cboCTCSS_, f.cboCTCSS);
    for (auto [widget, model] : modelButtons_) {
        widget->setText(model->caption);
        ShowControl(widget, *model);
        ShowColour(widget, model->backColour);
        if (widget->isCheckable() && widget->isChecked() != model->pressed)
            widget->setChecked(model->pressed);
        if (widget->font().bold() != model->bold) {
            QFont font = widget->font();
            font.setBold(model->bold);
            widget->setFont(font);
        }
    }
    for (auto [widget, model] : lights_) {
        widget->setText(model->caption);
        ShowColour(widget, model->backColour);
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
    lblCmdDelay_->setText(f.lblCmdDelay.caption);
    ShowControl(lblCmdDelay_, f.lblCmdDelay);
    lblAGCdelay_->setText(f.lblAGCdelay.caption);
    ShowControl(lblAGCdelay_, f.lblAGCdelay);
    lblExtra_->setText(f.lblExtra.caption);
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
