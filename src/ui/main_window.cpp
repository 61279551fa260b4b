#include "ui/main_window.h"

#include "link/catalogue.h"
#include "link/poll_cycle.h"
#include "link/start_stop.h"
#include "ui/messages_window.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
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

    // Transmit and scan.
    auto* tx = new QGroupBox("Transmit and scan", central);
    auto* txl = new QHBoxLayout(tx);
    chkTransmitEnable_ = Named(new QCheckBox(f.chkTransmitEnable.caption, tx), "chkTransmitEnable",
                               f.chkTransmitEnable);
    chkSplit_ = Named(new QCheckBox(f.chkSplit.caption, tx), "chkSplit", f.chkSplit);
    cmdStartStopScan_ = Named(new QPushButton(tx), "cmdStartStopScan", f.cmdStartStopScan);
    cmdScanMemOrBank_ = Named(new QPushButton(tx), "cmdScanMemOrBank", f.cmdScanMemOrBank);
    txl->addWidget(chkTransmitEnable_);
    txl->addWidget(chkSplit_);
    txl->addStretch();
    txl->addWidget(cmdScanMemOrBank_);
    txl->addWidget(cmdStartStopScan_);
    top->addWidget(tx);

    // The feature buttons of the FT-897 and FT-857.
    auto modelFrame = [&](const char* name, const QString& title,
                          std::initializer_list<std::pair<const char*, CommandButton*>> rows) {
        auto* frame = new QGroupBox(title, central);
        frame->setObjectName(name);
        auto* row = new QHBoxLayout(frame);
        for (auto [objectName, button] : rows) {
            auto* b = Named(new QPushButton(button->caption, frame), objectName, *button);
            row->addWidget(b);
            modelButtons_.emplace_back(b, button);
        }
        top->addWidget(frame);
        return frame;
    };
    frmFT897_ = modelFrame("frmFT897", "FT-897",
                           {{"cmdFT897Processor", &f.cmdFT897Processor},
                            {"cmdFT897NoiseBlanker", &f.cmdFT897NoiseBlanker},
                            {"cmdFT897DNF", &f.cmdFT897DNF},
                            {"cmdFT897DNR", &f.cmdFT897DNR},
                            {"cmdFT897DBF", &f.cmdFT897DBF},
                            {"cmdFT897Fast", &f.cmdFT897Fast},
                            {"cmdFT897Lock", &f.cmdFT897Lock}});
    frmFT857_ = modelFrame("frmFT857", "FT-857",
                           {{"cmdFT857Processor", &f.cmdFT857Processor},
                            {"cmdFT857NoiseBlanker", &f.cmdFT857NoiseBlanker},
                            {"cmdFT857DNF", &f.cmdFT857DNF},
                            {"cmdFT857DNR", &f.cmdFT857DNR},
                            {"cmdFT857DBF", &f.cmdFT857DBF},
                            {"cmdFT857Fast", &f.cmdFT857Fast},
                            {"cmdFT857Lock", &f.cmdFT857Lock}});

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
    cmdStartStopScan_->setText(f.cmdStartStopScan.caption);
    ShowControl(cmdStartStopScan_, f.cmdStartStopScan);
    cmdScanMemOrBank_->setText(f.cmdScanMemOrBank.caption);

    // Only the frame of the rig in use is shown.
    const QString& rig = c_.s.RigType;
    frmFT897_->setVisible(rig == RigFT897 || rig == RigFT897D);
    frmFT857_->setVisible(rig == RigFT857 || rig == RigFT857D);
    for (auto [widget, model] : modelButtons_) {
        widget->setText(model->caption);
        ShowControl(widget, *model);
        ShowColour(widget, model->backColour);
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
